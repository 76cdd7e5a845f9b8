#!/usr/bin/env bash
# Installs what is missing, builds the console and starts it on the simulated board. Without a
# display it runs the guided tour instead and says where the pictures are.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-dependencies.sh build
cmake --preset release -DBUILD_TESTING=OFF -DTQX_BENCHMARKS=OFF
cmake --build --preset release --target tqx7716-simulator tqx7716-tour tqx_packaging
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec build/release/bin/tqx7716-simulator
fi
echo "No display here: the guided tour drives the windows and takes their pictures."
for scale in 1 2; do
    build/release/bin/tqx7716-tour build/tour $scale
done
echo "The pictures are in $(pwd)/build/tour"
