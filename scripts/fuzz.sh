#!/usr/bin/env bash
# fuzz.sh [SECONDS] [TARGET...]: builds the libFuzzer targets with clang under AddressSanitizer
# and UndefinedBehaviorSanitizer, and runs each TARGET (default: all) for SECONDS (default 600),
# one after another. Each starts from the files of ../shared/corpus of its format, the kept
# findings in tests/data/fuzz/TARGET and what earlier runs found (build-fuzz/corpus/TARGET).
# Stops with status 1 and the path of the reproducing file at the first finding.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-600}
shift || true
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(probe jpeg png tiff gif bmp ico dib icondata linklist settings giffile gifstrip wmf emf exif pngtext picture)

# The corpus files each target starts from, by extension; probe takes every format.
extensions() {
  case $1 in
    probe | picture) echo jpg jpeg png tif tiff gif bmp dib ico cur emf wmf ;;
    jpeg) echo jpg jpeg ;;
    png | pngtext) echo png ;;
    tiff | exif) echo tif tiff ;;
    gif | giffile | gifstrip) echo gif ;;
    bmp | dib) echo bmp dib ;;
    ico | icondata) echo ico cur ;;
    wmf) echo wmf ;;
    emf) echo emf ;;
    linklist) echo txt ;;
    settings) echo ini txt ;;
    *) echo "unknown target: $1 (probe jpeg png tiff gif bmp ico dib icondata linklist settings giffile gifstrip wmf emf exif pngtext picture)" >&2 && exit 2 ;;
  esac
}
for target in "${targets[@]}"; do extensions "$target" >/dev/null; done

bash scripts/install-deps.sh libclang-rt-dev
dir=build-fuzz
[ -f "$dir/build.ninja" ] || cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_COMPILER=clang++ -DVELLUMRY_FUZZ=ON -DVELLUMRY_BENCH=OFF >/dev/null
cmake --build "$dir" -j "$(nproc)" --target "${targets[@]/#/fuzz_}"

export ASAN_OPTIONS=detect_leaks=1
export LSAN_OPTIONS=suppressions=$PWD/scripts/lsan.supp
export UBSAN_OPTIONS=print_stacktrace=1
for target in "${targets[@]}"; do
  seeds=$dir/seeds/$target corpus=$dir/corpus/$target findings=$dir/findings/$target
  rm -rf "$seeds"
  mkdir -p "$seeds" "$corpus" "$findings"
  inputs=("$corpus" "$seeds")
  [ ! -d "tests/data/fuzz/$target" ] || inputs+=("tests/data/fuzz/$target")
  if [ -d ../shared/corpus ]; then
    names=()
    for ext in $(extensions "$target"); do names+=(-o -iname "*.$ext"); done
    n=0
    # Numbered, as several suites hold files of the same name.
    while IFS= read -r -d '' file; do
      n=$((n + 1))
      cp "$file" "$seeds/$n-$(basename "$file")"
    done < <(find ../shared/corpus -type f \( "${names[@]:1}" \) -print0)
  fi
  echo "fuzz_$target: $seconds s from $(ls "$seeds" | wc -l) corpus seeds"
  # One allocation above 1 GiB is a finding, as in the tests: a length read and trusted.
  if ! "$dir/fuzz/fuzz_$target" -max_total_time="$seconds" -timeout=25 -malloc_limit_mb=1024 \
    -print_final_stats=1 -artifact_prefix="$findings/" "${inputs[@]}"; then
    echo "fuzz_$target found a fault; the input that shows it:" >&2
    ls -t "$findings"/* | head -1 >&2
    exit 1
  fi
done
