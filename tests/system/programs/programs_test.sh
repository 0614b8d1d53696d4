#!/bin/bash
# Runs one test of the programs together, by its name. The tests stand in the files *_tests.sh, one function each.
# TVTASK is the command that runs the task host.
set -euo pipefail

folder=$(dirname "$(readlink -f "$0")")
source "$folder/world.sh"
for tests in "$folder"/*_tests.sh; do
    source "$tests"
done

"$1"
