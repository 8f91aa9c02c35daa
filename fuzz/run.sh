#!/usr/bin/env bash
# Runs the libFuzzer harnesses of a `fuzz` preset build, each for SECONDS, and prints one line per harness: its
# executions, time, corpus and findings.
#   fuzz/run.sh SECONDS [HARNESS...]      (every harness when none is named; the build is build/fuzz)
# Each harness starts from its seeds (fuzz/seeds/<name>/, the examples) and its kept findings
# (fuzz/findings/<name>/), grows its own corpus in build/fuzz/corpus/<name>/ (kept between runs, so a long
# campaign can be run in pieces) and writes what it finds to build/fuzz/findings/<name>/. Exit status 1 when a
# harness found something.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:?usage: fuzz/run.sh SECONDS [HARNESS...]}
shift
harnesses=("$@")
[ ${#harnesses[@]} -eq 0 ] && harnesses=(script_line lesson scenario call_args text_numbers window_tree event_file)

build=build/fuzz
declare -A extra_seeds=([script_line]=examples/lessons [lesson]=examples/lessons [scenario]=examples/photoshop
  [call_args]= [text_numbers]= [window_tree]=examples/windows [event_file]=)
declare -A max_len=([script_line]=4096 [lesson]=65536 [scenario]=65536 [call_args]=4096 [text_numbers]=256
  [window_tree]=65536 [event_file]=16384)

status=0
printf '%-14s %12s %8s %8s  %s\n' harness executions seconds corpus findings
for name in "${harnesses[@]}"; do
  corpus=$build/corpus/$name findings=$build/findings/$name log=$build/logs/$name.log
  mkdir -p "$corpus" "$findings" "$(dirname "$log")"
  dirs=("$corpus" "fuzz/seeds/$name")
  [ -d "fuzz/findings/$name" ] && dirs+=("fuzz/findings/$name")
  [ -n "${extra_seeds[$name]}" ] && dirs+=("${extra_seeds[$name]}")
  result=0
  "$build/fuzz/fuzz_$name" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len="${max_len[$name]}" \
    -dict="fuzz/dictionaries/$name.dict" -artifact_prefix="$findings/" -print_final_stats=1 "${dirs[@]}" \
    >"$log" 2>&1 || result=$?
  executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
  elapsed=$(sed -n 's/^Done [0-9]* runs in \([0-9]*\) second.*/\1/p' "$log" | tail -1)
  found=none
  if [ "$result" -ne 0 ]; then
    found="$(ls "$findings" | tr '\n' ' ')(see $log)"
    status=1
  fi
  printf '%-14s %12s %8s %8s  %s\n' "$name" "${executions:-?}" "${elapsed:-$seconds}" "$(ls "$corpus" | wc -l)" "$found"
done
exit $status
