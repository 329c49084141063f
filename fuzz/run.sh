#!/usr/bin/env bash
# Runs fuzz targets of a fuzz build one after the other, each for SECONDS, on a
# corpus of its own under BUILD/fuzz/corpus/<name>. A fresh corpus starts from
# the fixture pages of the target's site (tests/fixtures/<site>/, so new
# fixtures join by themselves; the primitives target takes every site's), and
# each run adds what it found, so a later run goes on from there.
#
#   fuzz/run.sh BUILD [SECONDS] [NAME...]     e.g. fuzz/run.sh build-fuzz 3600 tfm_profile
#
# Without names every target of the build runs. A finding stops its target and
# leaves the input in BUILD/fuzz/artifacts/; the script then fails. The log box
# keeps caches that grow input by input, and libFuzzer would scan the whole
# heap for leaks after each such input, ten times slower: so the timed run
# looks for no leaks, and the corpus it leaves is then run once more with the
# leak check on.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=$(cd "${1:?usage: fuzz/run.sh BUILD [SECONDS] [NAME...]}" && pwd)
seconds=${2:-60}
shift $(($# < 2 ? $# : 2))

names=("$@")
if [ ${#names[@]} -eq 0 ]; then
    # The build folder also holds the targets' generated source folders.
    for binary in "$build"/fuzz/fuzz_*; do
        if [ -f "$binary" ] && [ -x "$binary" ]; then
            names+=("$(basename "$binary" | sed 's/^fuzz_//')")
        fi
    done
fi

# Shorter allocation stacks and a smaller quarantine: the scans allocate much
# through Qt, and this nearly doubles the executions a second. Two frames at
# most, because deeper ones lie inside Debian's Qt, built without frame
# pointers: there the fast unwinder reads stale stack words, nearly every
# stack looks new, and the sanitizer's stack store grew by 8 MB blocks to
# 700 MB in an hour. A finding's input replays with the full stacks.
asan=${ASAN_OPTIONS:-halt_on_error=1:abort_on_error=1:malloc_context_size=2:quarantine_size_mb=64}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-halt_on_error=1:print_stacktrace=1}
export LSAN_OPTIONS=${LSAN_OPTIONS:-suppressions=$root/fuzz/lsan.supp}
export QT_QPA_PLATFORM=offscreen

mkdir -p "$build/fuzz/artifacts"
for name in "${names[@]}"; do
    site=${name%%_*}
    corpus=$build/fuzz/corpus/$name
    mkdir -p "$corpus"
    if [ "$site" = primitives ]; then seeds=$root/tests/fixtures; else seeds=$root/tests/fixtures/$site; fi
    if [ -d "$seeds" ]; then
        find "$seeds" -type f \( -name '*.htm' -o -name '*.html' -o -name '*.txt' \) \
            -not -path '*/expected/*' -exec cp -n -t "$corpus" {} +
    fi
    dictionary=()
    [ -f "$root/fuzz/dict/$name.dict" ] && dictionary=(-dict="$root/fuzz/dict/$name.dict")
    echo "=== fuzz_$name: ${seconds}s on $(find "$corpus" -type f | wc -l) inputs ==="
    ASAN_OPTIONS=$asan:detect_leaks=0 "$build/fuzz/fuzz_$name" "${dictionary[@]}" \
        -max_total_time="$seconds" -timeout=25 -print_final_stats=1 \
        -artifact_prefix="$build/fuzz/artifacts/$name-" "$corpus"
    echo "=== fuzz_$name: leak check of $(find "$corpus" -type f | wc -l) inputs ==="
    log=$build/fuzz/leakcheck-$name.log
    if ! ASAN_OPTIONS=$asan:detect_leaks=1 "$build/fuzz/fuzz_$name" -runs=0 \
        -artifact_prefix="$build/fuzz/artifacts/$name-" "$corpus" >"$log" 2>&1; then
        cat "$log"
        exit 1
    fi
    grep -E 'INITED' "$log" || true
done
