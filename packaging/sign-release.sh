#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Usage: sign-release.sh KEY VERSION PACKAGE ADDRESS < NOTES
# Signs the package as this version with the private key in the file KEY and prints the item that
# offers it, to be downloaded from ADDRESS, in the update feed. NOTES is plain text.
set -euo pipefail

if [ $# -ne 4 ]; then
    sed -n '3,5s/^# //p' "$0" >&2
    exit 2
fi
key="$1" version="$2" package="$3" address="$4"
fail() {
    echo "$1" >&2
    exit 1
}
[[ "$version" =~ ^[0-9]{1,9}(\.[0-9]{1,9}){0,4}$ ]] || fail "A version is numbers with dots between them."
[[ "$address" =~ ^https://[^[:space:]]+$ ]] || fail "The address of a package begins with https:// and has no blanks."

length="$(stat --format=%s "$package")"
((length > 0 && length <= 200000000)) || fail "Programs refuse packages of nothing or more than 200 MB."
digest="$(sha512sum <"$package")"

# In a file, since the key signs nothing of which it does not know the end.
statement="$(mktemp)"
trap 'rm -f "$statement"' EXIT
printf 'hearthmark-release:%s:%s:%s' "$version" "$length" "${digest%% *}" >"$statement"
signature="$(openssl pkeyutl -sign -rawin -inkey "$key" -in "$statement" | base64 --wrap=0)"
[ "${#signature}" -eq 88 ] || fail "The key is not one of Ed25519."

escaped() { sed -e 's/&/\&amp;/g' -e 's/</\&lt;/g' -e 's/>/\&gt;/g' -e 's/"/\&quot;/g'; }

cat <<END
    <item>
      <title>Hearthmark $version</title>
      <description>$(escaped)</description>
      <enclosure url="$(escaped <<<"$address")" length="$length" type="application/vnd.debian.binary-package"/>
      <hearthmark:release version="$version" signature="$signature"/>
    </item>
END
