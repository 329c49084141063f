#!/bin/sh
# Takes the two pictures of the window in the README: the real program on a
# virtual X server with Debian's fonts, at the size it opens at, once with the
# default light palette and once with a dark one. The dark palette comes from
# the desktop's colour settings, as a KDE Plasma desktop gives them to every Qt
# program (kdeglobals), so the program shows it as it would on such a desktop.
#
# Needs: xvfb, x11-utils (xwininfo), imagemagick (import), fonts-dejavu-core.
# Usage, from the root of the repository, with a built program:
#   docs/take-screenshots.sh [path/to/quillmark]
# Writes docs/quillmark-window-light.png and docs/quillmark-window-dark.png.
set -eu

program=${1:-build/app/quillmark}
docs=$(cd "$(dirname "$0")" && pwd)
for tool in Xvfb xwininfo import; do
    command -v "$tool" >/dev/null || { echo "$tool is missing" >&2; exit 1; }
done
[ -x "$program" ] || { echo "no program at $program: build it first" >&2; exit 1; }

scratch=$(mktemp -d)
xvfb=
app=
finish() {
    [ -n "$app" ] && kill "$app" 2>/dev/null || true
    [ -n "$xvfb" ] && kill "$xvfb" 2>/dev/null || true
    rm -rf "$scratch"
}
trap finish EXIT INT TERM

# A display of our own, at 96 dpi, large enough for the window.
Xvfb -displayfd 3 -screen 0 1600x1100x24 -dpi 96 -nolisten tcp 3>"$scratch/display" \
    2>"$scratch/xvfb.log" &
xvfb=$!
tries=0
until [ -s "$scratch/display" ]; do
    tries=$((tries + 1))
    [ "$tries" -le 100 ] || { echo "Xvfb did not start" >&2; cat "$scratch/xvfb.log" >&2; exit 1; }
    sleep 0.1
done
display=:$(cat "$scratch/display")

# The colours of a dark scheme, in the form kdeglobals holds them.
mkdir -p "$scratch/dark/config"
cat >"$scratch/dark/config/kdeglobals" <<'EOF'
[Colors:Button]
BackgroundNormal=49,54,59
ForegroundNormal=239,240,241

[Colors:Selection]
BackgroundNormal=61,174,233
ForegroundNormal=252,252,252

[Colors:Tooltip]
BackgroundNormal=49,54,59
ForegroundNormal=239,240,241

[Colors:View]
BackgroundAlternate=35,38,41
BackgroundNormal=27,30,32
ForegroundLink=29,153,243
ForegroundNormal=239,240,241
ForegroundVisited=155,89,182

[Colors:Window]
BackgroundNormal=42,46,50
ForegroundNormal=239,240,241
EOF
mkdir -p "$scratch/light/config"

# One picture: the program in a clean environment of its own (a fresh settings
# store, no desktop of the user's), its window found by its title once mapped.
shoot() {
    scheme=$1
    shift
    home=$scratch/$scheme
    mkdir -p "$home/runtime"
    chmod 700 "$home/runtime"
    env -i PATH=/usr/bin:/bin DISPLAY="$display" HOME="$home" LANG=C.UTF-8 \
        XDG_CONFIG_HOME="$home/config" XDG_RUNTIME_DIR="$home/runtime" QT_QPA_PLATFORM=xcb \
        "$@" "$program" >"$home/program.log" 2>&1 &
    app=$!
    window=
    tries=0
    while [ -z "$window" ]; do
        tries=$((tries + 1))
        [ "$tries" -le 200 ] || { echo "no window for $scheme" >&2; cat "$home/program.log" >&2; exit 1; }
        sleep 0.1
        window=$(xwininfo -display "$display" -root -tree 2>/dev/null \
            | awk '/"Quillmark v/ { print $1; exit }')
        if [ -n "$window" ] && ! xwininfo -display "$display" -id "$window" \
            | grep -q 'Map State: IsViewable'; then
            window=
        fi
    done
    # Mapped is not yet painted: give the first frame time to reach the server.
    sleep 1
    import -display "$display" -window "$window" "$docs/quillmark-window-$scheme.png"
    size=$(xwininfo -display "$display" -id "$window" | awk '/Width:/ { w = $2 } /Height:/ { h = $2 } END { print w " x " h }')
    echo "quillmark-window-$scheme.png: $size"
    kill "$app"
    wait "$app" 2>/dev/null || true
    app=
}

shoot light
shoot dark QT_QPA_PLATFORMTHEME=kde KDE_SESSION_VERSION=5
