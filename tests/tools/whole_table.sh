#!/bin/bash
# whole_table.sh WINE table_writer.exe: a writer on Windows that is killed, or that the disk has no room for, leaves a whole
# table.
set -u
wine=$1 writer=$2
folder=$(mktemp -d)
pid=
trap '[ -z "$pid" ] || kill -9 $pid 2>/dev/null; rm -rf "$folder"' EXIT
table=$folder/TABLE
head -c 300000 /dev/zero | tr '\0' a >"$folder/a"
head -c 500000 /dev/zero | tr '\0' b >"$folder/b"
beside() { compgen -G "$folder/~kiro-*.tmp" >/dev/null; }  # while something is written, or was left
fail() { echo "whole_table: $1" >&2; exit 1; }

unfinished=0
echo mine >"$folder/~TABLE"
for round in {1..25}; do
    rm -f "$folder"/~kiro-*
    cp "$folder/a" "$table"
    "$wine" "$writer" "Z:$table" 2>/dev/null &
    pid=$!
    for ((i = 0; i < 400000; ++i)); do beside && break; done
    for ((i = RANDOM % 300; i > 0; --i)); do beside; done
    kill -9 $pid
    wait $pid 2>/dev/null
    [ $? = 137 ] || fail "round $round: the writer has ended by itself"
    beside && ((++unfinished))
    cmp -s "$table" "$folder/a" || cmp -s "$table" "$folder/b" || fail "round $round: no table is whole"
done
echo "$unfinished of 25 writers were killed while they wrote"
((unfinished > 0)) || fail "the kills came between the writes"

# The next writer removes what is left, but neither what another one is writing nor what is not a writer's.
echo left >"$folder/~kiro-00000001.tmp"
echo mine >"$folder/~kiro-0000000.tmp"
"$wine" "$writer" "Z:$table" once 2>/dev/null && cmp -s "$table" "$folder/b" || fail "the table is not written"
[ -e "$folder/~kiro-00000001.tmp" ] && fail "what was left is still there"
[ "$(cat "$folder/~TABLE" "$folder/~kiro-0000000.tmp")" = $'mine\nmine' ] || fail "the operator's own files are gone"
rm "$folder/~kiro-0000000.tmp"

# Two writers at once: the table is always whole, and neither removes what the other has not finished.
"$wine" "$writer" "Z:$table" 2>/dev/null &
pid=$!
written=0
for round in {1..10}; do
    "$wine" "$writer" "Z:$table" once 2>/dev/null && ((++written))
    cp "$table" "$folder/now"  # the other one goes on
    cmp -s "$folder/now" "$folder/a" || cmp -s "$folder/now" "$folder/b" || fail "two writers: no table is whole"
done
kill -9 $pid
wait $pid 2>/dev/null
pid=
echo "$written of 10 tables were written beside another writer"
((written > 0)) || fail "two writers: one always waits for the other"

# No file may become larger: what the system does when a disk is full.
for room in 1 100 480; do
    cp "$folder/a" "$table"
    (trap '' XFSZ; ulimit -f $room; exec "$wine" "$writer" "Z:$table" once 2>/dev/null)
    [ $? = 3 ] || fail "$room KB: the table is said to be written"
    cmp -s "$table" "$folder/a" || fail "$room KB: the old table is not there"
    beside && fail "$room KB: the part that was written lies about"
done
"$wine" "$writer" "Z:$table" once 2>/dev/null && cmp -s "$table" "$folder/b" || fail "with room again it is not written"
