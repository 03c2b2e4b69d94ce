#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Usage: release-key.sh FILE
# Makes the key that releases are signed with, in FILE and under a passphrase that is asked for, unless
# it is there already. Then prints its public half, as the build takes it.
set -euo pipefail

if [ $# -ne 1 ]; then
    sed -n '3,5s/^# //p' "$0" >&2
    exit 2
fi
if [ ! -e "$1" ]; then
    umask 077
    # Without a passphrase it fails and leaves an empty file.
    openssl genpkey -algorithm ed25519 -aes-256-cbc -out "$1" || { rm -f "$1" && exit 1; }
    echo "The passphrase once more, for the public half:" >&2
fi
public="$(openssl pkey -in "$1" -pubout -outform DER | base64)"
kind=MCowBQYDK2VwAyEA # with which every Ed25519 key begins in that encoding
if [[ "$public" != "$kind"* ]]; then
    echo "$1 holds no Ed25519 key." >&2
    exit 1
fi
echo "${public#"$kind"}"
