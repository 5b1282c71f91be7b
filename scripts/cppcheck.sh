#!/usr/bin/env bash
# Runs cppcheck over the sources that BUILD_DIR compiles, tests and generated files left out.
#
#   scripts/cppcheck.sh BUILD_DIR
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:?usage: scripts/cppcheck.sh BUILD_DIR}

# What is left out, each for its reason:
without=(
    constParameter           # every command is run by a function of the same type
    noExplicitConstructor    # a view of an array, and a result of a value or an error, are meant to convert
    knownConditionTrueFalse  # does not know that a QPointer is cleared by whatever a signal leads to
    shadowFunction           # a local "index" beside a function index() confuses nobody
    unusedStructMember       # takes the columns of constant tables for unused
    useStlAlgorithm          # a loop is often plainer
    virtualCallInConstructor # what is asked of a visible editor is not asked while it is constructed
)
arguments=()
for check in "${without[@]}"; do
    arguments+=("--suppress=$check")
done

# Of what the build compiles, only what is written by hand: not all of the rest has been generated.
project=$(mktemp --suffix=.json)
trap 'rm "$project"' EXIT
python3 - "$build/compile_commands.json" "$PWD" > "$project" << 'PYTHON'
import json, sys

folders = tuple(f"{sys.argv[2]}/{name}/" for name in ("src", "platform", "host", "apps"))
commands = json.load(open(sys.argv[1], encoding="utf-8"))
json.dump([command for command in commands if command["file"].startswith(folders)], sys.stdout)
PYTHON

cppcheck --project="$project" "${arguments[@]}" --library=qt --enable=warning,style,performance,portability \
    --suppress="*:*_autogen*" --inline-suppr --quiet --error-exitcode=1 -j "$(nproc)" --template='{file}:{line}: {severity} {id}: {message}'
echo "The sources are clean"
