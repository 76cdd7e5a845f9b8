#!/usr/bin/env bash
# Takes the pictures of README and handbook anew: runs the guided tour and copies to docs/pictures
# every picture that one of their pages shows. What none shows any more is removed.
# Usage: update-pictures.sh [TOUR]     the tour's executable, build/release/bin/tqx7716-tour unless named
set -euo pipefail
tour=$(realpath "${1:-$(dirname "$0")/../build/release/bin/tqx7716-tour}")
cd "$(dirname "$0")/.."
most=2000000 # bytes, all pictures together

taken=$(mktemp -d)
trap 'rm -rf "$taken"' EXIT
for scale in 1 2; do
    "$tour" "$taken" $scale
done

shown=$(grep -ohE 'pictures/[A-Za-z0-9-]+\.png' README.md docs/*.md docs/handbook/*.md | sort -u)
mkdir -p docs/pictures
rm -f docs/pictures/*.png
for picture in $shown; do
    cp "$taken/$(basename "$picture")" docs/pictures/
done
# Smaller files where the tool is at hand; the pictures are the same without it.
if command -v optipng >/dev/null; then
    optipng -quiet docs/pictures/*.png
fi

size=$(cat docs/pictures/*.png | wc -c)
echo "$(ls docs/pictures | wc -l) pictures, $size bytes"
if [ "$size" -gt $most ]; then
    echo "The pictures are larger than $most bytes together: show fewer." >&2
    exit 1
fi
