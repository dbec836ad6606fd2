#!/usr/bin/env bash
# Sourced: prepares the Wine prefix kept in the build tree and a persistent
# wineserver, so each test process starts fast. Exports WINEPREFIX and friends.
#   source tools/wine-prefix.sh [prefix-folder]
# Nothing Wine does here may reach the home folder: menu entries are not
# made, caches live in the prefix, and the user folders a new prefix links
# to $HOME become real folders of the prefix.
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
export WINEPREFIX=${1:-$top/build/wineprefix}
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
# A UTF-8 locale every Debian system has: without one Wine cannot make file
# names in other scripts. Every Wine command on a prefix must use the same.
export LC_ALL=C.UTF-8
export XDG_CACHE_HOME=$WINEPREFIX/.cache XDG_CONFIG_HOME=$WINEPREFIX/.config XDG_DATA_HOME=$WINEPREFIX/.local
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

# Checked on every use, since Wine relinks them when it updates a prefix.
# rm of a link removes the link, never what it points to.
for folder in "$WINEPREFIX"/drive_c/users/*/*; do
  if [ -L "$folder" ]; then
    rm -- "$folder"
    mkdir -- "$folder"
  fi
done

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
