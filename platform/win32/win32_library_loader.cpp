#include "platform/win32/win32_library_loader.h"

#include "platform/win32/wide.h"
#include "platform/win32/win32_text_library.h"

namespace tw {
namespace {

class OwnedLibrary : public Win32TextLibrary {
 public:
  explicit OwnedLibrary(HINSTANCE module) : Win32TextLibrary(module) {}
  ~OwnedLibrary() override { FreeLibrary(Module()); }
};

}  // namespace

std::unique_ptr<TextLibrary> Win32LibraryLoader::Load(std::u16string_view path) {
  std::wstring file = ToWide(path);
  HINSTANCE module = LoadLibraryW(file.c_str());
  return module ? std::make_unique<OwnedLibrary>(module) : nullptr;
}

}  // namespace tw
