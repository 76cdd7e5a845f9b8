#!/usr/bin/env bash
# Line coverage of the layers without windows (link, device, boards) by their own tests. Fails below
# the limit, which is 80 per cent unless told otherwise.
# Usage: coverage.sh [PERCENT]
set -euo pipefail
cd "$(dirname "$0")/.."
limit=${1:-80}
build=build/coverage

cmake -S . -B $build -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS=--coverage \
    -DTQX_BENCHMARKS=OFF -DTQX_PACKAGING=OFF >/dev/null
cmake --build $build --target link_tests device_tests boards_tests
find $build -name '*.gcda' -delete
for tests in link device boards; do
    $build/bin/${tests}_tests --gtest_brief=1
done
for layer in link device boards; do
    printf '\n== src/%s ==\n' "$layer"
    gcovr --root . --object-directory $build --filter "src/$layer/" \
        --exclude-throw-branches --fail-under-line "$limit" $build
done
