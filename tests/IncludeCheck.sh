#!/usr/bin/env bash
# IncludeCheck.sh [SRC]: fails when a file under SRC (default: src beside this folder) includes
# a header of a folder whose library its own folder's libraries don't link, directly or through
# others, or when a platform layer includes anything of the program's own subsystems.
set -euo pipefail
src=${1:-"$(dirname "$0")/../src"}
cd "$src"

declare -A libFolder   # library -> folder that defines it
declare -A folderLibs  # folder -> its libraries
declare -A links       # library -> the vellumry libraries it names in target_link_libraries

# Each CMakeLists.txt as one line per command, so that commands spread over lines read whole.
commands() { sed 's/#.*//' "$1" | tr '\n' ' ' | sed 's/)/)\n/g'; }

while IFS= read -r list; do
  folder=$(dirname "$list")
  while IFS= read -r command; do
    if [[ $command =~ add_library\(\ *(vellumry_[a-z_]+) ]]; then
      lib=${BASH_REMATCH[1]}
      libFolder[$lib]=$folder
      folderLibs[$folder]+=" $lib"
    elif [[ $command =~ target_link_libraries\(\ *([A-Za-z0-9_.-]+)(.*)\) ]]; then
      target=${BASH_REMATCH[1]}
      named=$(grep -o 'vellumry_[a-z_]*' <<<"${BASH_REMATCH[2]}" | tr '\n' ' ' || true)
      links[$target]+=" $named"
      # An executable of the folder counts as one of its libraries.
      [[ $target == vellumry_* ]] || folderLibs[$folder]+=" $target"
    fi
  done < <(commands "$list")
done < <(find . -name CMakeLists.txt -printf '%P\n' | grep /)

# The libraries that `lib` reaches, itself included.
reach() {
  local -A seen=()
  local todo=("$@") lib
  while ((${#todo[@]})); do
    lib=${todo[0]}
    todo=("${todo[@]:1}")
    [[ -n ${seen[$lib]:-} ]] && continue
    seen[$lib]=1
    for next in ${links[$lib]:-}; do todo+=("$next"); done
  done
  echo "${!seen[@]}"
}

# The folder that holds an included path: the longest folder with a library that prefixes it.
folderOf() {
  local best=""
  for folder in "${!folderLibs[@]}"; do
    [[ $1 == "$folder"/* && ${#folder} -gt ${#best} ]] && best=$folder
  done
  echo "$best"
}

failures=0
for folder in "${!folderLibs[@]}"; do
  reachable=" $(reach ${folderLibs[$folder]}) "
  while IFS= read -r file; do
    while IFS= read -r included; do
      owner=$(folderOf "$included")
      [[ -z $owner || $owner == "$folder" ]] && continue
      ownerReached=0
      for lib in ${folderLibs[$owner]}; do
        [[ $reachable == *" $lib "* ]] && ownerReached=1
      done
      if ((ownerReached == 0)); then
        echo "$file includes $included, but $folder doesn't link ${folderLibs[$owner]# }"
        failures=$((failures + 1))
      elif [[ $folder == platform/* && $owner != platform/* ]]; then
        echo "$file: the platform layer $folder includes the subsystem header $included"
        failures=$((failures + 1))
      fi
    done < <(sed -n 's/^#include "\(.*\)".*/\1/p' "$file")
  done < <(find "$folder" -maxdepth 1 -name '*.cpp' -o -maxdepth 1 -name '*.h')
done

if ((failures > 0)); then
  echo "$failures include(s) outside what the libraries link"
  exit 1
fi
echo "includes stay inside the linked libraries: ${#folderLibs[@]} folders checked"
