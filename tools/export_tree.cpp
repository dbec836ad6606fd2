// Windows helper of tools/bench-export-wine.sh: fills a registry tree of
// 10,000 values below HKEY_CURRENT_USER, or exports it with the settings
// exporter to a file. The export prints its own time in milliseconds.
//   export_tree populate Software\TwBench
//   export_tree export Software\TwBench C:\out.txt
#include <windows.h>

#include <cstdio>
#include <string>

#include "data/settings_file.h"
#include "platform/win32/wide.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_registry.h"

namespace {

constexpr int kSubkeys = 100, kValuesPerKey = 100;

// Same shape as the native benchmark's tree: a third strings, the rest DWORDs.
void Populate(tw::Registry& registry, std::u16string_view root) {
  registry.DeleteTree(tw::kCurrentUser, root);
  for (int k = 0; k < kSubkeys; ++k) {
    tw::ScopedKey key(registry, tw::kCurrentUser, tw::FormatText(u"%s\\Key%d", {root, k}), true);
    for (int v = 0; v < kValuesPerKey; ++v) {
      std::u16string name = tw::FormatText(u"Value%dName", {v});
      if (v % 3 == 0) registry.SetString(key.get(), name, tw::FormatText(u"Text %d of key %d \u00e4\u0436", {v, k}));
      else registry.SetDword(key.get(), name, static_cast<std::uint32_t>(v * 7919 - k));
    }
  }
}

double Export(tw::Registry& registry, std::u16string_view root, std::u16string_view path) {
  LARGE_INTEGER start, end, frequency;
  QueryPerformanceCounter(&start);
  tw::SettingsTextOutput out;
  tw::ExportRegistryTree(registry, root, out);
  tw::Win32FileSystem files;
  bool written = files.WriteAll(path, out.Bytes().data(), out.Bytes().size());
  QueryPerformanceCounter(&end);
  QueryPerformanceFrequency(&frequency);
  return written ? 1000.0 * (end.QuadPart - start.QuadPart) / frequency.QuadPart : -1;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  tw::Win32Registry registry;
  std::wstring mode = argc > 1 ? argv[1] : L"";
  if (mode == L"populate" && argc == 3) {
    Populate(registry, tw::ToU16(argv[2]));
    return 0;
  }
  if (mode == L"export" && argc == 4) {
    double milliseconds = Export(registry, tw::ToU16(argv[2]), tw::ToU16(argv[3]));
    std::printf("%.2f\n", milliseconds);
    return milliseconds < 0 ? 1 : 0;
  }
  std::fprintf(stderr, "usage: export_tree populate <key> | export <key> <file>\n");
  return 2;
}
