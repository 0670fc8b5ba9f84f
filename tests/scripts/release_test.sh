#!/bin/bash
# A signed release, with a certificate of its own: release_test.sh INSTALLER
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
. "$root/scripts/usage.sh"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj "/CN=Throw-away" \
    -addext extendedKeyUsage=codeSigning -keyout "$work/key" -out "$work/certificate" 2>/dev/null
echo secret >"$work/password"
openssl pkcs12 -export -inkey "$work/key" -in "$work/certificate" -out "$work/certificate.p12" \
    -passout "file:$work/password"
export PASSWORD_FILE=$work/password
installer=$(realpath "$1")

# An earlier release is replaced.
unset CERTIFICATE TIMESTAMP_URL
"$root/scripts/release.sh" "$work/release" "$installer" >/dev/null
CERTIFICATE=$work/certificate.p12 "$root/scripts/release.sh" "$work/release" "$installer" >/dev/null
cd "$work/release"
sha256sum --check --strict --quiet SHA256SUMS
[ "$(grep -c 'Install.exe$' SHA256SUMS)" -eq 23 ] || fail "not 23 installers"

for signed in */Install.exe; do
    osslsigncode verify -CAfile "$work/certificate" -in "$signed" >"$work/log" 2>&1 ||
        fail "$signed: $(cat "$work/log")"
done

# A release that fails leaves the earlier one as it was.
if CERTIFICATE=$work/none "$root/scripts/release.sh" "$work/release" "$installer" >/dev/null 2>&1; then
    fail "a missing certificate was not noticed"
fi
sha256sum --check --strict --quiet SHA256SUMS
