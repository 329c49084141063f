#!/bin/sh
# Renders the icon's PNG sizes from its SVG, and the two views of it in docs/.
# Run it after changing the SVG and commit the PNGs: the build only copies them.
# Needs rsvg-convert (Debian package librsvg2-bin).
set -eu
cd "$(dirname "$0")"
for size in 48 128 256; do
    rsvg-convert -w "$size" -h "$size" app.quillmark.Quillmark.svg -o "quillmark-$size.png"
done
cp quillmark-48.png ../../docs/quillmark-icon-48.png
cp quillmark-256.png ../../docs/quillmark-icon-256.png
