#!/usr/bin/env bash
# Makes a full medium for the wizard's tests without any privilege: in the
# removable drive's folder "full", the marker and the scheme file of the
# scheme "Full" are links to /dev/full, which takes no byte.
set -eu
full="${WINEPREFIX:?the tests run in a Wine prefix}/media/e/full"
mkdir -p "$full"
ln -sfn /dev/full "$full/importfde.key"
ln -sfn /dev/full "$full/Full.fde"
