#!/usr/bin/env bash
# Screenshots of every window, for a look at the layout and the night colours:
#   tools/screenshots/take_screenshots.sh [build-folder] [output-folder, default build/screenshots]
# Starts the program under a virtual X display (Xvfb, 1024x600 like a small netbook screen) with
# ASTEL_SCREENSHOT_DIR set: the program then opens each window in turn, saves it as a PNG and
# quits. The program's folder is a copy of the build folder's data, so nothing real is touched.
set -euo pipefail
cd "$(dirname "$0")/../.."
build=${1:-build}
out=${2:-$build/screenshots}
[ -x "$build/astel" ] || { echo "no program at $build/astel: build it first" >&2; exit 1; }
command -v xvfb-run >/dev/null || { echo "xvfb-run is missing: apt-get install xvfb xauth" >&2; exit 1; }

home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
cp "$build"/ASTEL.HOM "$build"/*.OBC "$home"/
cp "$build"/*.HTM "$home"/ 2>/dev/null || true
mkdir -p "$out"
out=$(cd "$out" && pwd)

# A fixed zone keeps the pictures comparable from one run to the next.
TZ=${TZ:-Europe/London} ASTEL_HOME="$home" ASTEL_SCREENSHOT_DIR="$out" \
  timeout 120 xvfb-run -a -s "-screen 0 1024x600x24" "$build/astel"
ls -1 "$out"/*.png
