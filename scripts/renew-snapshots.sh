#!/usr/bin/env bash
# Accepts how the program looks and reads now: takes the tour, tells what is not as the lists in
# tests/app have it, and renews them. Pictures that have changed lie in build/release/looks
# afterwards, each with the old one at its left where there is one: from the last renewal here, or
# in docs/pictures.
# Usage: renew-snapshots.sh
set -euo pipefail
cd "$(dirname "$0")/.."
looks=build/release/looks
cmake --build --preset release --target app_tests tqx7716-tour
rm -f $looks/*.png $looks/*.txt
mkdir -p $looks/accepted
build/release/bin/app_tests --gtest_filter='TourTest.*' --gtest_brief=1 >$looks/output 2>&1 || true
if [ ! -f $looks/pictures.txt ]; then
    cat $looks/output
    echo "The tour did not come to its end: nothing was renewed." >&2
    exit 1
fi

for list in snapshots.txt pictures.txt; do
    diff -NU0 tests/app/$list $looks/$list || true
    cp $looks/$list tests/app/$list
done
find $looks -maxdepth 1 -name '*.png' | sort
build/release/bin/tqx7716-tour $looks/accepted # for the next time
