#!/usr/bin/env bash
# Runs a program with a PostgreSQL server of its own, which is gone afterwards. The environment names the server, as
# PostgreSQL's own programs expect it.
#
#   tests/withserver.sh PROGRAM [ARGUMENT...]
set -euo pipefail

# Servers that start at the same time would all take the first free port. One from 32768 on may be taken by anybody who
# connects to something, even to this server while it is stopped.
port=$((20000 + $$ % 12000))
exec pg_virtualenv -t -c "--port=$port" -o fsync=off "$@"
