#!/usr/bin/env bash
# The wizard tests' media beyond the prefix's own drives, made without any
# privilege before the tests run:
# - a full medium: in the removable drive's folder "full", the marker and the
#   scheme file of the scheme "Full" are links to /dev/full, which takes no byte;
# - eight more drive letters, F: to M:, so that the machine has more drives
#   than the wizard offers (letters linked once Wine runs are fixed disks).
set -eu
media="${WINEPREFIX:?the tests run in a Wine prefix}/media"
mkdir -p "$media/e/full" "$media/more"
ln -sfn /dev/full "$media/e/full/importfde.key"
ln -sfn /dev/full "$media/e/full/Full.fde"
for letter in f g h i j k l m; do ln -sfn ../media/more "$WINEPREFIX/dosdevices/$letter:"; done
