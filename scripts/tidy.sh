#!/usr/bin/env bash
# Runs clang-tidy over the program's sources, or over the files named.
# Usage: tidy.sh [FILE ...]     reads the compile commands of the release preset
set -euo pipefail
cd "$(dirname "$0")/.."
if [ $# -gt 0 ]; then
    printf '%s\0' "$@"
else
    git ls-files -z -- 'src/*.cpp'
fi | xargs -0 -r -n 1 -P "$(nproc)" clang-tidy -p build/release --quiet \
    --extra-arg=-Wno-unknown-warning-option
