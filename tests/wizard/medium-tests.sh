#!/usr/bin/env bash
# The wizard's tests on a real small disk: once on a full one, once on a
# write-protected one holding a backup of the shipped schemes. Each runs
# beside a disk of its own (scripts/private-medium); where this machine
# refuses private mounts, the whole test is skipped (77), never passed.
#   medium-tests.sh TEST_PROGRAM
set -u
root=$(cd "$(dirname "$0")/../.." && pwd)
program=$1
seed=$(mktemp -d)
trap 'rm -rf "$seed"' EXIT
# Three schemes and the marker: each file takes a 4 KiB page of the 16 KiB disk.
cp "$root/data/schemes/Cool Fade.fde" "$root/data/schemes/Fire.fde" "$root/data/schemes/Ocean.fde" "$seed/"
printf 'Please do not delete this file as it is needed for restoring/importing Fade Scheme settings!\r\n' \
    >"$seed/importfde.key"

"$root/scripts/private-medium" "$root/scripts/wine-run" "$program" --gtest_filter='FullMedium.*'
full=$?
[ $full = 77 ] && exit 77
"$root/scripts/private-medium" --read-only --seed "$seed" "$root/scripts/wine-run" "$program" \
    --gtest_filter='ReadOnlyMedium.*'
readonly=$?
[ $full = 0 ] && [ $readonly = 0 ]
