#!/bin/bash
# whole_table.sh WINE table_writer.exe: a writer on Windows that is killed, or that the disk has no room for, leaves a whole
# table.
set -u
wine=$1 writer=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
table=$folder/TABLE
head -c 300000 /dev/zero | tr '\0' a >"$folder/a"
head -c 500000 /dev/zero | tr '\0' b >"$folder/b"
fail() { echo "whole_table: $1" >&2; exit 1; }

unfinished=0
for round in {1..40}; do
    rm -f "$folder"/~*
    cp "$folder/a" "$table"
    "$wine" "$writer" "Z:$table" 2>/dev/null &
    pid=$!
    for ((i = 0; i < 4000000; ++i)); do [ -s "$folder/~TABLE" ] && break; done
    for ((i = RANDOM % 3000; i > 0; --i)); do [ -s "$folder/~TABLE" ]; done
    kill -9 $pid
    wait $pid 2>/dev/null
    [ $? = 137 ] || fail "round $round: the writer has ended by itself"
    [ -e "$folder/~TABLE" ] && ((++unfinished))
    cmp -s "$table" "$folder/a" || cmp -s "$table" "$folder/b" || fail "round $round: no table is whole"
done
echo "$unfinished of 40 writers were killed while they wrote"
((unfinished > 0)) || fail "the kills came between the writes"

# No file may become larger: what the system does when a disk is full.
for room in 1 100 480; do
    rm -f "$folder"/~*
    cp "$folder/a" "$table"
    (trap '' XFSZ; ulimit -f $room; exec "$wine" "$writer" "Z:$table" once 2>/dev/null)
    [ $? = 3 ] || fail "$room KB: the table is said to be written"
    cmp -s "$table" "$folder/a" || fail "$room KB: the old table is not there"
    [ -e "$folder/~TABLE" ] && fail "$room KB: the part that was written lies about"
done
"$wine" "$writer" "Z:$table" once 2>/dev/null && cmp -s "$table" "$folder/b" || fail "with room again it is not written"
