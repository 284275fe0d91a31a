#!/bin/bash
# whole_models.sh WINE batch_host.exe [ROUNDS]: a batch whose program is killed, or that the disk has no room for, leaves whole
# models, and nothing beside them that the next run does not remove.
set -u
wine=$1 host=$2 rounds=${3:-4}
home=$(mktemp -d)
models=$home/MODEL
pid=
trap '[ -z "$pid" ] || kill -9 $pid 2>/dev/null; rm -rf "$home"' EXIT
fail() { echo "whole_models: $1" >&2; exit 1; }
beside() { compgen -G "$models/~kiro-*.tmp" >/dev/null; }  # while a model is written, or was left
whole() { "$wine" "$host" "Z:$home" check || fail "$1"; }
mkdir -p "$home/DXF" "$models"
for number in 1 2 3 4 5 6; do
    {
        printf '  0\nSECTION\n  2\nENTITIES\n'
        for ((i = 0; i < 50; ++i)); do printf '  0\nLINE\n  8\nWALLS\n 10\n0.0\n 20\n0.0\n'; done >"$home/lines"
        for ((i = number % 2 * 400; i >= 0; --i)); do cat "$home/lines"; done
        printf '  0\nENDSEC\n  0\nEOF\n'
    } >"$home/DXF/d$number.dxf"
done

killed=0 unfinished=0 made=0
for ((round = 1; round <= rounds || (unfinished == 0 && round <= 20); ++round)); do
    ((round % 3)) || rm -f "$models"/*.mdl  # otherwise they are replaced
    "$wine" "$host" "Z:$home" >"$home/out" 2>/dev/null &
    pid=$!
    for ((i = 0; i < 10000; ++i)); do grep -q start "$home/out" && break; done
    # Any time, and in turn with that while a model is written.
    for ((i = RANDOM % (round % 2 ? 3000 : 1500); i > 0; --i)); do beside; done
    if ((round % 2 == 0)); then for ((i = 0; i < 100000; ++i)); do beside && break; done; fi
    kill -9 $pid
    wait $pid 2>/dev/null
    [ $? = 137 ] && ((++killed))
    pid=
    beside && ((++unfinished))
    whole "round $round: a model is not whole"
    ((made += $(compgen -G "$models/*.mdl" | wc -l)))
done
echo "$killed of $rounds batches were killed, $unfinished while they wrote a model; $made models were looked at"
((unfinished > 0)) || fail "the kills came between the models"

"$wine" "$host" "Z:$home" >"$home/out" 2>/dev/null
grep -q '6 件中 6 件を変換しました' "$home/out" || fail "the next batch does not convert everything: $(cat "$home/out")"
beside && fail "what was left is still there"
whole "a model of the next batch is not whole"
