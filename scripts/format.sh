#!/usr/bin/env bash
# Formats the project's sources, or with --check only says whether they are formatted.
set -euo pipefail
cd "$(dirname "$0")/.."
mode=-i
[ "${1:-}" = --check ] && mode="--dry-run -Werror"
git ls-files -z --cached --others --exclude-standard -- '*.h' '*.cpp' |
    xargs -0 -r -n 20 -P 2 clang-format $mode
