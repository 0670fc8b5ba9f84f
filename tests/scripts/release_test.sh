#!/bin/bash
# A signed release, with a certificate of its own: release_test.sh INSTALLER
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    echo "release_test: $1" >&2
    exit 1
}

openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj "/CN=Throw-away" \
    -addext extendedKeyUsage=codeSigning -keyout "$work/key" -out "$work/certificate" 2>/dev/null
echo secret >"$work/password"
openssl pkcs12 -export -inkey "$work/key" -in "$work/certificate" -out "$work/certificate.p12" \
    -passout "file:$work/password"
export PASSWORD_FILE=$work/password
installer=$(realpath "$1")

# A folder that is no release is left alone; an earlier release is replaced.
unset CERTIFICATE TIMESTAMP_URL
if "$root/scripts/release.sh" "$work" "$installer" >/dev/null 2>&1 || [ ! -e "$work/key" ]; then
    fail "a folder of other files was replaced"
fi
"$root/scripts/release.sh" "$work/release" "$installer" >/dev/null
CERTIFICATE=$work/certificate.p12 "$root/scripts/release.sh" "$work/release" "$installer" >/dev/null
cd "$work/release"
sha256sum --check --strict --quiet SHA256SUMS
[ "$(grep -c 'Install.exe$' SHA256SUMS)" -eq 23 ] || fail "not 23 installers"

verify() {
    osslsigncode verify -CAfile "$work/certificate" -in "$1" >"$work/log" 2>&1
}
for signed in */Install.exe; do
    verify "$signed" || fail "$signed: $(cat "$work/log")"
done

# The signature covers the product's name.
sed 's/Tavlink Classic Analyzer/Tavlink Serial! Analyzer/' 04/Install.exe >"$work/forged.exe"
if cmp -s 04/Install.exe "$work/forged.exe" || verify "$work/forged.exe"; then
    fail "a change behind the signature's back was not noticed"
fi

if message=$("$root/build/tools/stamp" 04/Install.exe 07 "X" "$work/again.exe" 2>&1) ||
    [ -e "$work/again.exe" ] || [[ $message != *"is signed"* ]]; then
    fail "a signed executable was stamped: $message"
fi

# A release that fails leaves the earlier one as it was.
if CERTIFICATE=$work/none "$root/scripts/release.sh" "$work/release" "$installer" >/dev/null 2>&1; then
    fail "a missing certificate was not noticed"
fi
sha256sum --check --strict --quiet SHA256SUMS
