#!/usr/bin/env bash
# corpus-run.sh [BUILD_DIR]: opens every folder of ../shared/corpus in turn with the driver of
# BUILD_DIR (default build-asan), as a user would, and counts per suite the files the grid shows
# (it placed them with a size) and refuses (they cost their cell); then walks the viewer over
# every picture of the folder, zooming into each and letting GIFs play. Fails when the program
# dies, a sanitizer reports, a folder doesn't load every position, or the walk meets an error.
set -uo pipefail
cd "$(dirname "$0")/.."
drive=${1:-build-asan}/src/app/vellumry-drive
corpus=../shared/corpus
[ -x "$drive" ] || { echo "no driver at $drive" >&2; exit 2; }
if [ ! -d "$corpus" ]; then
  # Under CI the corpus must be there: a run without it can't pass by skipping.
  [ "${CI:-}" = true ] && { echo "no corpus at $corpus under CI" >&2; exit 1; }
  echo "no corpus at $corpus: nothing to do"
  exit 0
fi
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
export XDG_CACHE_HOME="$home/cache"  # thumbnails of the run go with it

failures=0
printf '| suite | folders | files | shown | refused | failed |\n|---|---:|---:|---:|---:|---:|\n'
for suite in "$corpus"/*/; do
  folders=0 files=0 shown=0 refused=0 failed=0
  while IFS= read -r -d '' folder; do
    # Enough of the virtual clock for the grid's tick a file, with room to spare.
    count=$(find "$folder" -maxdepth 1 -type f | wc -l)
    script="screen 1920 1080
home \"$home\"
pictures \"$folder\"
start
wait $((2000 + 40 * count))
get Form1.bLoaded
get Form1.nCount"
    for ((i = 1; i <= count; i++)); do script+=$'\n'"get aPicW($i)"; done
    if ! out=$(printf '%s\n' "$script" | "$drive" 2>"$home/stderr"); then
      echo "died in $folder:" >&2
      tail -5 "$home/stderr" >&2
      failed=$((failed + 1)) failures=$((failures + 1))
      continue
    fi
    mapfile -t values < <(grep -v '^> ' <<<"$out")
    loaded=${values[0]} positions=${values[1]}
    [ "$positions" = 0 ] && continue  # no pictures here
    folders=$((folders + 1)) files=$((files + positions))
    if [ "$loaded" != true ]; then
      echo "not loaded: $folder" >&2
      failed=$((failed + 1)) failures=$((failures + 1))
    fi
    # The viewer over every picture of the folder: a zoom on each, and GIFs playing a while.
    walk="screen 1920 1080
home \"$home\"
pictures \"$folder\"
start
wait $((2000 + 40 * count))
select Form1.File2 0
dblclick Form1.File2
wait 300"
    for ((i = 1; i <= positions; i++)); do
      walk+=$'\n'"key Form2 38"$'\n'"wait 100"$'\n'"key Form2 39"$'\n'"wait 300"
    done
    walk+=$'\n'"key Form2 27"
    if ! out=$(printf '%s\n' "$walk" | "$drive" 2>"$home/stderr"); then
      echo "the viewer failed in $folder:" >&2
      grep '^> \(error\|uncaught\)' <<<"$out" | head -3 >&2
      tail -5 "$home/stderr" >&2
      failed=$((failed + 1)) failures=$((failures + 1))
    fi
    for ((i = 2; i < 2 + positions; i++)); do
      if [ "${values[$i]:-0}" -gt 0 ] 2>/dev/null; then shown=$((shown + 1)); else refused=$((refused + 1)); fi
    done
  done < <(find "$suite" -type d -print0 | sort -z)
  printf '| %s | %d | %d | %d | %d | %d |\n' "$(basename "$suite")" "$folders" "$files" "$shown" \
    "$refused" "$failed"
done
exit $((failures > 0))
