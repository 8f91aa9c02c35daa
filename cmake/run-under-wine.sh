#!/usr/bin/env bash
# Runs one Windows executable under Wine, in a Wine prefix of the build tree (made on first use), without
# Wine's debug chatter. DISPLAY should name a running X server (the dev script starts Xvfb).
set -euo pipefail
export WINEDEBUG=${WINEDEBUG:--all}
export WINEPREFIX=${WINEPREFIX:-${OSTREL_WINEPREFIX:-$PWD/wineprefix}}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
if [ ! -f "$WINEPREFIX/system.reg" ]; then
  mkdir -p "$WINEPREFIX"
  wineboot --init >/dev/null 2>&1 || true
  wineserver -w || true
fi
exec wine "$@"
