#!/bin/bash
# Makes the installer of every product: FOLDER/CODE/Install.exe, FOLDER/SHA256SUMS, and the bill of
# materials FOLDER/installers.cdx.json.
#
#   release.sh FOLDER [INSTALLER]    INSTALLER: an executable that belongs to no product yet;
#                                    without it, one is built
#
# With a certificate the executables are signed, from the environment:
#   CERTIFICATE     PKCS #12 file
#   PASSWORD_FILE   file with its password
#   TIMESTAMP_URL   service for the time stamp (RFC 3161); without it there is none, and the
#                   signatures end with the certificate
#   CA_FILE         certificates that the signatures are verified against; without it, those in
#                   CERTIFICATE and of the system
# Keys on tokens and in signing services: `build/tools/installer-tool release --help`.
# FOLDER is replaced as a whole, once all is done; it must be new, empty or an earlier release.
set -eu
. "$(dirname "$0")/usage.sh"
[ $# -gt 0 ] || wrong_usage "no folder is named"
no_more "${@:3}"
root=$(cd "$(dirname "$0")/.." && pwd)
installer=${2-$root/build/release/installer.exe}

[ -z "${CERTIFICATE-}" ] || [ -n "${PASSWORD_FILE-}" ] || fail "PASSWORD_FILE is not set"
[ $# -eq 2 ] || "$root/scripts/build.sh" release tools

signing=()
if [ -n "${CERTIFICATE-}" ]; then
    if [ -z "${CA_FILE-}" ]; then
        CA_FILE=$(mktemp)
        trap 'rm -f "$CA_FILE"' EXIT
        openssl pkcs12 -in "$CERTIFICATE" -passin "file:$PASSWORD_FILE" -nokeys -out "$CA_FILE" ||
            fail "the certificate \"$CERTIFICATE\" cannot be read"
        cat /etc/ssl/certs/ca-certificates.crt >>"$CA_FILE" 2>/dev/null || true
    fi
    # The shell that signs finds them in its environment too, whatever characters they hold.
    # shellcheck disable=SC2016
    signing=(
        --ca-file "$CA_FILE" --require-signature
        --sign-command 'osslsigncode sign -pkcs12 "$CERTIFICATE" -readpass "$PASSWORD_FILE" \
            -h sha256 -n {name} -in {in} -out {out}'
    )
    if [ -n "${TIMESTAMP_URL-}" ]; then
        # shellcheck disable=SC2016
        signing+=(--timestamp-command 'osslsigncode add -ts "$TIMESTAMP_URL" -in {in} -out {out}')
    fi
else
    echo "release: CERTIFICATE is not set: the installers stay unsigned" >&2
fi
"$root/build/tools/installer-tool" release "$1" --installer "$installer" "${signing[@]}"
