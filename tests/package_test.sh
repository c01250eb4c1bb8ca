#!/usr/bin/env bash
# The Debian package of this build, unpacked into a scratch root: its files and dependencies, and its kestrane
# designing an example with a fresh HOME as the build tree's program does, seeding the user's data folder.
# Usage: package_test.sh BUILD_DIR
set -euo pipefail
build=$1
example=SOLVENT-LOADS-THREE-STAGE.JET
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }

# The package, made from the build tree's install rules into the scratch folder.
cpack --config "$build/CPackConfig.cmake" -G DEB -B "$tmp/out" >"$tmp/cpack.log" 2>&1 || { cat "$tmp/cpack.log"; fail "cpack"; }
version=$("$build/bin/kestrane" --version | awk '{print $2}')
deb="$tmp/out/kestrane_${version}_amd64.deb"
[ -f "$deb" ] || fail "no $deb among: $(ls "$tmp/out")"

# Run-time dependencies only: Qt's libraries and the report font, no development package.
depends=$(dpkg-deb -f "$deb" Depends)
for needed in libqt6widgets6 libqt6charts6 libqt6printsupport6 libqt6svg6 fonts-liberation2; do
  [[ $depends == *"$needed"* ]] || fail "Depends lacks $needed: $depends"
done
[[ $depends != *-dev* ]] || fail "Depends names a development package: $depends"

root="$tmp/root"
dpkg-deb -x "$deb" "$root"
for file in usr/bin/kestrane usr/bin/kestrane-gui usr/share/kestrane/PSAT.DTA usr/share/kestrane/UDV.DTA \
            usr/share/kestrane/NJET.CAD "usr/share/doc/kestrane/examples/$example" \
            usr/share/applications/kestrane.desktop usr/share/icons/hicolor/scalable/apps/kestrane.svg; do
  [ -f "$root/$file" ] || fail "the package lacks /$file"
done
for program in kestrane kestrane-gui; do
  zcat "$root/usr/share/man/man1/$program.1.gz" | grep -q "^\.SH OPTIONS" || fail "the man page of $program has no options"
done
zcat "$root/usr/share/man/man1/kestrane.1.gz" | grep -q "design" || fail "the man page of kestrane names no design command"

# The same design by the installed program and by the build tree's, each with an empty home and no XDG settings,
# started from an empty folder.
run() {  # HOME PROGRAM CASE
  mkdir -p "$1" "$tmp/cwd"
  (cd "$tmp/cwd" && env -i PATH=/usr/bin:/bin HOME="$1" "$2" --date 2024-06-03 design "$3")
}
listing_before=$(cd "$root" && find . | sort)
run "$tmp/home" "$root/usr/bin/kestrane" "$root/usr/share/doc/kestrane/examples/$example" >"$tmp/installed.txt" \
  || fail "the installed program's design failed"
run "$tmp/build-home" "$build/bin/kestrane" "$build/bin/usrfiles/$example" >"$tmp/built.txt" \
  || fail "the build tree's design failed"
[ -s "$tmp/installed.txt" ] || fail "the installed program printed nothing"
diff "$tmp/built.txt" "$tmp/installed.txt" || fail "the installed program's results differ from the build tree's"

# The user's data folder was seeded from the shipped copy; the installed files stayed as they were.
seeded="$tmp/home/.local/share/kestrane/UDV.DTA"
[ -f "$seeded" ] || fail "the user's data folder was not seeded: $(find "$tmp/home")"
cmp "$seeded" "$root/usr/share/kestrane/UDV.DTA" || fail "the seeded UDV.DTA differs from the shipped one"
[ "$listing_before" = "$(cd "$root" && find . | sort)" ] || fail "the installed program wrote into its own folders"
echo "package $(basename "$deb") ($(stat -c %s "$deb") bytes): installed design matches the build tree's"
