// A skin's skin.ini, 8-bit or UTF-16 LE, read line by line into the colours.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "data/skin.h"
#include "platform/memory/memory_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tw::MemoryFile file(data, size);
  tw::SkinColors skin;
  tw::ApplySkinFile(skin, file);
  for (int i = 0; i < tw::SkinColors::kTextStyles; ++i) {
    std::int32_t effect = skin.textEffect[i];
    if (effect != tw::SkinColors::kEffectNone && effect != tw::SkinColors::kEffectShadow &&
        effect != tw::SkinColors::kEffectGlow)
      std::abort();
  }
  std::u16string text(reinterpret_cast<const char*>(data), reinterpret_cast<const char*>(data) + size);
  if (tw::ParseSkinColor(text) > 0xFFFFFF) std::abort();
  return 0;
}
