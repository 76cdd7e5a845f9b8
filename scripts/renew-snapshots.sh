#!/usr/bin/env bash
# Accepts how the program looks and reads now: takes the tour, tells what is not as the lists in
# tests/app have it, and renews them. Pictures that have changed lie in build/release/looks
# afterwards; in its folder side-by-side with the old one at their left, where there is one (from
# the last renewal here or in docs/pictures) and ImageMagick is at hand.
# Usage: renew-snapshots.sh
set -euo pipefail
cd "$(dirname "$0")/.."
looks=build/release/looks
kept=$looks/accepted
cmake --build --preset release --target app_tests tqx7716-tour
rm -rf $looks/*.png $looks/*.txt $looks/side-by-side
mkdir -p $kept $looks/side-by-side
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
for new in $(find $looks -maxdepth 1 -name '*.png' | sort); do
    name=$(basename "$new")
    for old in $kept/"$name" docs/pictures/"$name"; do
        if [ -f "$old" ] && command -v convert >/dev/null; then
            convert "$old" "$new" +append $looks/side-by-side/"$name"
            new=$looks/side-by-side/$name
            break
        fi
    done
    echo "$new"
done
build/release/bin/tqx7716-tour $kept # for the next time
