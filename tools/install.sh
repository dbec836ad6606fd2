#!/usr/bin/env bash
# Installs the built program into a Wine prefix as on the device: the product
# folder "\Program Files\Orvex\Tidewell" on drive C with the program, the
# picture and language libraries, skins, schemes, category icons and icon
# sets; the demo "\Categories Database" at the root of drive C; the Today item
# keys. Running it again brings the prefix back to the same state.
#   bash tools/install.sh <prefix> [build folder, default build/mingw]
# The prefix is created when missing. The build must have been made first.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
if [ $# -lt 1 ]; then
  echo "usage: tools/install.sh <wine prefix> [build folder]" >&2
  exit 2
fi
prefix=$(mkdir -p "$1" && cd "$1" && pwd)
build=$(cd "${2:-$top/build/mingw}" && pwd)

# The build lays the program and its libraries out in bin/ as installed.
libraries="$build/bin"
program="$libraries/TidewellSettings.exe"
missing=0
for file in "$program" "$libraries/LowDpiRes.dll" "$libraries/HighDpiRes.dll" \
            "$libraries/LangRes/CPEngRc.dll" "$libraries/LangRes/CPDeuRc.dll"; do
  if [ ! -f "$file" ]; then
    echo "install: missing $file (build the mingw preset first)" >&2
    missing=1
  fi
done
[ "$missing" -eq 0 ] || exit 1

# shellcheck source=tools/wine-prefix.sh
source "$top/tools/wine-prefix.sh" "$prefix"

drive_c="$prefix/drive_c"
product="$drive_c/Program Files/Orvex/Tidewell"
mkdir -p "$product/LangRes"
cp "$program" "$product/TidewellSettings.exe"
cp "$libraries/LowDpiRes.dll" "$libraries/HighDpiRes.dll" "$product/"
cp "$libraries"/LangRes/*.dll "$product/LangRes/"

# Data folders are replaced whole, so files dropped from the source go too;
# Schemes and CategoryIcons are the user's as well, so only ours are rewritten.
device="$top/device"
rm -rf "$product/Skins" "$product/Icons"
cp -r "$device/Skins" "$device/Icons" "$product/"
mkdir -p "$product/Schemes" "$product/CategoryIcons"
cp "$device"/Schemes/*.scm "$product/Schemes/"
cp "$device"/CategoryIcons/*.bmp "$product/CategoryIcons/"
cp "$device/Categories Database" "$drive_c/Categories Database"

# regedit wants a Windows path; the build tree is on drive Z:.
"$WINE" regedit /S "Z:${device//\//\\}\\device.reg" >/dev/null 2>&1
echo "Installed into $product"
