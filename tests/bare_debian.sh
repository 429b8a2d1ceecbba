#!/bin/sh
# SPDX-License-Identifier: MIT
# bare_debian.sh FILE: makes an archive of a Debian that has only what every Debian has, unless it is there. Needs root.
set -eu
[ ! -e "$1" ] || exit 0
mmdebstrap --quiet --variant=minbase --format=tar --aptopt='APT::Sandbox::User "root"' bookworm "$1.new" \
  "$(find /etc/apt/sources.list /etc/apt/sources.list.d -name '*.sources' -o -name '*.list' 2>/dev/null | head -n 1)"
mv "$1.new" "$1"
