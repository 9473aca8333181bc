#!/usr/bin/env bash
# Makes the Debian package from the build, unpacks it under a temporary root and runs the
# unpacked programs from there: the version, a demonstration season and a race report made with
# the shipped style sheets, and a first start of the desktop program on a fresh account.
# Usage: installed-copy.sh BUILD_DIR
set -euo pipefail
build_dir=$1
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT

cpack --config "$build_dir/CPackConfig.cmake" -B "$root/package" >/dev/null
deb=$(ls "$root"/package/tallyboard_*.deb)
dpkg-deb -x "$deb" "$root/tree"
bin="$root/tree/usr/bin"

"$bin/tallyboard-cli" --version | grep -qx "tallyboard-cli [0-9.]*"
"$bin/tallyboard" --version | grep -qx "tallyboard [0-9.]*"
"$bin/tallyboard-cli" demo "$root/season.db" --boats 12 --races 3 >/dev/null
cp -r "$root/tree/usr/share/tallyboard/Reports" "$root/reports"
page=$("$bin/tallyboard-cli" report --data "$root/season.db" --reports "$root/reports" \
    --race 3 --kind R)
grep -q "Race 3" "$page"

# A fresh account: the desktop program makes its database and report folder in the user's data
# folder, since the unpacked program folder is an installed one.
export HOME="$root/home" XDG_CONFIG_HOME="$root/home/.config" XDG_DATA_HOME="$root/home/data"
export XDG_RUNTIME_DIR="$root/run" QT_QPA_PLATFORM=offscreen
mkdir -p "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"
timeout 3 "$bin/tallyboard" || [ $? -eq 124 ]
test -s "$XDG_DATA_HOME/Tallyboard/Tallyboard.db"
test -f "$XDG_DATA_HOME/Tallyboard/Reports/results.xsl"
grep -q "^DataFile=.*/home/data/Tallyboard/Tallyboard.db" "$XDG_CONFIG_HOME/Tallyboard/Tallyboard.conf"
echo "The unpacked package works: $deb"
