#!/bin/bash
# count_tests.sh build-folder: prints how many tests of ctest's last run there passed and how many
# failed. A program that left its cases in results/ counts case by case, any other entry as one. An
# entry that failed has at least one failure, also when every case of it passed.
set -euo pipefail

folder=$1
passed=0
failed=0

# Cases that passed, then cases that failed, of one GoogleTest report. Skipped ones are neither.
count_cases() {
  awk '
    function finish() { if (open) { if (bad) failed++; else if (ran) passed++ } open = 0 }
    /^ *<testcase / { finish(); open = 1; bad = 0; ran = /result="completed"/ }
    /^ *<failure / { bad = 1 }
    END { finish(); print passed + 0, failed + 0 }
  ' "$1"
}

# Without a report of the run nothing is known, which is a failure.
if [ ! -f "$folder/ctest.xml" ]; then
  echo "0 1"
  exit 0
fi

while IFS=' ' read -r name status; do
  report="$folder/results/$name.xml"
  entry_passed=0
  entry_failed=0
  if [ -f "$report" ]; then
    read -r entry_passed entry_failed < <(count_cases "$report")
  elif [ "$status" = run ]; then
    entry_passed=1
  fi
  if [ "$status" != run ] && [ "$entry_failed" -eq 0 ]; then
    entry_failed=1
  fi
  passed=$((passed + entry_passed))
  failed=$((failed + entry_failed))
done < <(sed -n 's/^[[:space:]]*<testcase name="\([^"]*\)".* status="\([^"]*\)".*/\1 \2/p' \
  "$folder/ctest.xml")

if [ $((passed + failed)) -eq 0 ]; then
  failed=1
fi
echo "$passed $failed"
