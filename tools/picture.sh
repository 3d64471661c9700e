#!/usr/bin/env bash
# Starts the editor on the current display, waits until it is up and takes a picture of the screen.
# Usage: picture.sh PICTURE PROGRAM [OBJECT]
set -eu
picture=$1 program=$2
shift
log=$(dirname "$program")/Korvane.log
rm -f "$log"
"$@" &
editor=$!
trap 'kill $editor 2>/dev/null || true' EXIT
for _ in $(seq 300); do
    kill -0 $editor 2>/dev/null || { echo "The editor ended at start-up." >&2; exit 1; }
    grep -qs ALL_SYSTEMS_GO "$log" && break
    sleep 0.1
done
grep -qs ALL_SYSTEMS_GO "$log" || { echo "The editor did not come up." >&2; exit 1; }
sleep 2
import -window root "$picture"
