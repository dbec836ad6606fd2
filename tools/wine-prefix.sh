#!/usr/bin/env bash
# Sourced: prepares the Wine prefix kept in the build tree and a persistent
# wineserver, so each test process starts fast. Exports WINEPREFIX and friends.
#   source tools/wine-prefix.sh [prefix-folder]
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
export WINEPREFIX=${1:-$top/build/wineprefix}
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml="
export LC_ALL=en_US.UTF-8
WINE=$(command -v wine64 || echo /usr/lib/wine/wine64)
[ -x "$WINE" ] || WINE=$(command -v wine)
export WINE

if [ ! -f "$WINEPREFIX/system.reg" ]; then
  mkdir -p "$WINEPREFIX"
  "$WINE" wineboot -i >/dev/null 2>&1
  wineserver -w
  # Without a window manager, unmanaged windows hide and close without a 2 s wait.
  "$WINE" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /t REG_SZ /d N /f >/dev/null 2>&1
  wineserver -w
fi

# Debian's Wine does not load its own fonts: without these there is no Tahoma
# (a request for it silently gives another face). Checked on every use, since
# a prefix can lose them.
fonts="$WINEPREFIX/drive_c/windows/Fonts"
if [ ! -f "$fonts/tahoma.ttf" ]; then
  mkdir -p "$fonts"
  cp /usr/share/wine/fonts/*.ttf /usr/share/wine/fonts/*.fon "$fonts/"
fi

# A persistent server, warmed by one command whose output goes nowhere, so
# Wine's background services do not hold the output of the first test.
wineserver -p >/dev/null 2>&1 || true
"$WINE" cmd /c exit >/dev/null 2>&1 || true
