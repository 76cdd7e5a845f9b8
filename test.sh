#!/usr/bin/env bash
# Installs what is missing, builds the console and runs every test.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-dependencies.sh test
cmake --preset release -DBUILD_TESTING=ON -DTQX_BENCHMARKS=ON
cmake --build --preset release
ctest --preset release
