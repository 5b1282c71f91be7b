#!/usr/bin/env bash
# Runs a program with a PostgreSQL server of its own, which is gone afterwards. The environment names the server, as
# PostgreSQL's own programs expect it.
#
#   tests/withserver.sh PROGRAM [ARGUMENT...]
set -euo pipefail

# Servers that start at the same time would all take the first free port.
port=$((20000 + $$ % 20000))
exec pg_virtualenv -t -c "--port=$port" -o fsync=off "$@"
