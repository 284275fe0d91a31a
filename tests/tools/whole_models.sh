#!/bin/bash
# whole_models.sh WINE batch_host.exe [ROUNDS]: a batch whose program is killed, or that the disk has no room for, leaves whole
# models, and nothing beside them that the next batch does not remove.
set -u
wine=$1 host=$2 rounds=${3:-4}
home=$(mktemp -d)
models=$home/MODEL
pid=
trap '[ -z "$pid" ] || kill -9 $pid 2>/dev/null; rm -rf "$home"' EXIT
fail() { echo "whole_models: $1" >&2; exit 1; }
beside() { compgen -G "$models/~kiro-*.tmp" >/dev/null; }  # while a model is written, or was left
batch() { "$wine" "$host" "Z:$home" >"$home/out" 2>/dev/null; }
told() { grep -qF "$1" "$home/out" || fail "the batch does not say: $1; but: $(cat "$home/out")"; }
whole() { "$wine" "$host" "Z:$home" check || fail "$1: a model is not whole"; }

mkdir -p "$home/DXF" "$models"
for number in 1 2 3 4 5 6; do
    {
        printf '  0\nSECTION\n  2\nENTITIES\n'
        for ((i = number % 2 ? 15000 : 100; i > 0; --i)); do printf '  0\nLINE\n  8\nWALLS\n 10\n0.0\n 20\n0.0\n'; done
        printf '  0\nENDSEC\n  0\nEOF\n'
    } >"$home/DXF/d$number.dxf"
done
batch
told '6 件中 6 件を変換しました。結果'

killed=0 unfinished=0
for ((round = 1; round <= rounds || (unfinished == 0 && round <= 20); ++round)); do
    ((round % 3)) || rm -f "$models"/*.mdl  # otherwise they are replaced
    "$wine" "$host" "Z:$home" >"$home/out" 2>/dev/null &
    pid=$!
    for ((i = 0; i < 10000; ++i)); do grep -q start "$home/out" && break; done
    # Any time, and in turn with that while a model is written.
    for ((i = RANDOM % (round % 2 ? 3000 : 1500); i > 0; --i)); do beside; done
    if ((round % 2 == 0)); then for ((i = 0; i < 100000; ++i)); do beside && break; done; fi
    kill -9 $pid 2>/dev/null
    wait $pid 2>/dev/null
    [ $? = 137 ] && ((++killed))
    pid=
    beside && ((++unfinished))
    whole "round $round"
done
echo "$killed of $((round - 1)) batches were killed, $unfinished of them while they wrote a model"
((unfinished > 0)) || fail "the kills came between the models"
batch
told '6 件中 6 件を変換しました。結果'
beside && fail "what was left is still there"
whole "the next batch"

# No file may become larger: what the system does when a disk is full. The others are converted, and told apart.
rm "$models"/*
(trap '' XFSZ; ulimit -f 400; batch)
told '6 件中 3 件を変換しました。（失敗 3 件）結果'
told 'd3.dxf: ファイルに書き込むことができません。'
[ "$(cd "$models" && echo *)" = "DXF_Batch.lis d2.mdl d4.mdl d6.mdl" ] || fail "no room: there is $(ls "$models")"
whole "no room"
