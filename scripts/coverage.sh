#!/usr/bin/env bash
# Runs all tests with coverage. Fails unless they take every branch of the store, conflict and conversion code, and run
# at least 95 % of the lines of everything else, in each of its folders. HTML goes to build/coverage/html.
#
#   scripts/coverage.sh
set -euo pipefail
cd "$(dirname "$0")/.."

# Every branch of these: one that no test takes may lose a setting, or bend it.
store=(
    host/changestamp.cpp
    host/databasefile.cpp
    host/schema.cpp
    host/settingshistory.cpp
    host/settingsstore.cpp
    host/settingswriter.cpp
    host/sqlconnection.cpp
    host/sqlerrorwords.cpp
    host/sqltransaction.cpp
)
conflicts=(
    host/draftedit.cpp
    host/saveresult.cpp
    host/settingchange.cpp
    host/settingedit.cpp
    host/settingsdifference.cpp
    host/settingssession.cpp
)
conversions=(
    host/jsonmembers.cpp
    host/jsonsetting.cpp
    host/parameterdomain.cpp
    host/settingaddress.cpp
    host/settingvalue.cpp
    host/storedtext.cpp
    src/builders/jsonparambuilder.cpp
    src/dbsettingsgroup.cpp
    src/dbsettingsvalue.cpp
    src/widgets/dbbuttonwidget.cpp
    src/widgets/dbcheckboxwidget.cpp
    src/widgets/dbcomboboxwidget.cpp
    src/widgets/dblineeditwidget.cpp
    src/widgets/dbobjselectorwidget.cpp
    src/widgets/dbpasswordwidget.cpp
    src/widgets/dbspinboxwidget.cpp
)

# What is no branch of ours, or has no other side:
# - ways that only an exception takes, and what the compiler adds where nothing is written. The preset builds without
#   exceptions whatever has nothing to take back when one passes;
# - the other side of an assertion;
# - the lock of a static object, at which two threads would have to meet.
# A single line is excluded by GCOVR_EXCL_BR_LINE or between two such marks, with the reason beside it.
# Not counted at all are two programs that the build itself runs, before the tests look at what they have written.
exclusions=(
    --exclude-throw-branches
    --exclude-unreachable-branches
    --exclude-branches-by-pattern '^\s*(Q_ASSERT\(|static const )'
    --exclude apps/ctl/documents/
    --exclude apps/manager/desktop/
)

folders=(src platform host apps designer)

failures=0
# check TITLE ARGUMENTS...: prints what has been measured, and notes a bound that does not hold.
check() {
    printf '\n== %s\n' "$1"
    gcovr --root . --add-tracefile build/coverage/coverage.json --txt - "${@:2}" || failures=$((failures + 1))
}

if ((EUID != 0)); then
    echo "Two of the failures that are to be seen can only be caused by root; run this in a container." >&2
    exit 1
fi
cmake --preset coverage
cmake --build --preset coverage
find build/coverage -name '*.gcda' -delete
ctest --preset coverage

mkdir -p build/coverage/html
gcovr --root . "${exclusions[@]}" "${folders[@]/#/--filter=}" --json build/coverage/coverage.json \
    --html-details build/coverage/html/index.html "${folders[@]/#/build/coverage/}"

check "Store: every branch" --branches --fail-under-branch 100 "${store[@]/#/--filter=}"
check "Conflicts: every branch" --branches --fail-under-branch 100 "${conflicts[@]/#/--filter=}"
check "Conversions: every branch" --branches --fail-under-branch 100 "${conversions[@]/#/--filter=}"
for folder in "${folders[@]}"; do
    check "The rest of $folder: 95 % of the lines" --fail-under-line 95 "--filter=$folder/" \
        "${store[@]/#/--exclude=}" "${conflicts[@]/#/--exclude=}" "${conversions[@]/#/--exclude=}"
done
if [ "$failures" -gt 0 ]; then
    printf '\nToo little is covered in %d of these tables. build/coverage/html/index.html shows where.\n' "$failures" >&2
    exit 1
fi
