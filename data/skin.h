// A skin's definition file, skin.ini, read into the skin colours of the
// settings record.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/file_system.h"
#include "settings/settings_store.h"

namespace tw {

// Sets the name, folder and defaults, then reads folder\skin.ini; a skin
// without one takes the text colour from the top-left pixel of
// folder\text_color.bmp. Anything missing or malformed leaves the defaults.
void ReadSkin(SkinColors& skin, std::u16string_view name, std::u16string_view skinsFolder,
              FileSystem& files);

// The record's selected skin from its skins folder: the reader the settings
// load is handed.
void ReadSelectedSkin(SettingsStore& store, FileSystem& files);

// The lines of an opened skin.ini applied to skin (defaults are not reset).
void ApplySkinFile(SkinColors& skin, File& file);

// "r,g,b" with each number taken modulo 256; red in the low byte. Without a
// first comma the colour is black; without a second, green and blue are 0.
std::uint32_t ParseSkinColor(std::u16string_view text);

}  // namespace tw
