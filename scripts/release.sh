#!/bin/bash
# Makes the installer of every product: FOLDER/CODE/Install.exe, and FOLDER/SHA256SUMS.
#
#   release.sh FOLDER [INSTALLER]    INSTALLER: an executable that belongs to no product yet;
#                                    without it, one is built
#
# With a certificate the executables are signed, from the environment:
#   CERTIFICATE     PKCS #12 file
#   PASSWORD_FILE   file with its password
#   TIMESTAMP_URL   service for the time stamp (RFC 3161); without it there is none, and the
#                   signatures end with the certificate
# FOLDER is replaced as a whole, once all is done; it must be new, empty or an earlier release.
set -eu
. "$(dirname "$0")/usage.sh"
[ $# -gt 0 ] || wrong_usage "no folder is named"
no_more "${@:3}"
root=$(cd "$(dirname "$0")/.." && pwd)
folder=${1%/}
installer=${2-$root/build/release/installer.exe}
stamp=$root/build/tools/stamp

fail() {
    echo "release: FAILED: $1" >&2
    exit 1
}

if [ -e "$folder" ] && [ ! -e "$folder/SHA256SUMS" ] && ! rmdir "$folder" 2>/dev/null; then
    fail "$folder holds something else than a release"
fi
[ -z "${CERTIFICATE-}" ] || [ -n "${PASSWORD_FILE-}" ] || fail "PASSWORD_FILE is not set"
[ $# -eq 2 ] || "$root/scripts/build.sh" release tools

new=$folder.new.$$
mkdir -p "$new"
trap 'rm -rf "$new"' EXIT

products=$("$stamp" --list)
while read -r code name; do
    out=$new/$code/Install.exe
    mkdir "$new/$code"
    "$stamp" "$installer" "$code" "$name" "$out"
    if [ -n "${CERTIFICATE-}" ]; then
        # Signed last: the signature covers the stamp.
        osslsigncode sign -pkcs12 "$CERTIFICATE" -readpass "$PASSWORD_FILE" -h sha256 \
            -n "$name Installation" ${TIMESTAMP_URL:+-ts "$TIMESTAMP_URL"} \
            -in "$out" -out "$out.signed" >"$new/signing.log" 2>&1 ||
            fail "signing $code: $(cat "$new/signing.log")"
        mv "$out.signed" "$out"
        rm "$new/signing.log"
    fi
    echo "$code/Install.exe  $name"
done <<<"$products"
(cd "$new" && LC_ALL=C && sha256sum -- */Install.exe >SHA256SUMS)
# The same release again stays where it is: another run may be using it.
if cmp -s "$new/SHA256SUMS" "$folder/SHA256SUMS" &&
    (cd "$folder" && sha256sum --check --status --strict SHA256SUMS); then
    exit
fi
rm -rf "$folder"
mv "$new" "$folder"
