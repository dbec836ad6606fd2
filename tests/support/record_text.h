// A record as text, walked from the schema tables field by field (a font
// byte for byte), so two records compare with a readable difference.
#pragma once

#include <cstring>
#include <string>

#include "base/text.h"
#include "settings/schema.h"

namespace tw::test {

template <typename Record>
void DescribeValues(const Record& record, std::span<const FieldSpec<Record>> values, std::string& text) {
  for (const FieldSpec<Record>& value : values) {
    text += Utf16ToUtf8(value.name) + "=";
    if (value.kind == ValueKind::Text) text += Utf16ToUtf8((record.*value.string).View());
    else if (value.kind == ValueKind::Dword) text += std::to_string(record.*value.dword);
    else text += std::to_string((record.*value.item).value);
    text += "\n";
  }
}

inline std::string DescribeRecord(const SettingsStore& store) {
  std::string text;
  for (const KeySpec* key : ProductKeys()) {
    DescribeValues<SettingsStore>(store, key->values, text);
    for (const FontSpec& font : key->fonts) {
      const FontRecord& record = store.*font.field;
      unsigned char bytes[sizeof record.font];
      std::memcpy(bytes, &record.font, sizeof bytes);
      text += Utf16ToUtf8(font.name) + "=";
      for (unsigned char byte : bytes) text += std::to_string(byte) + ",";
      text += "color " + std::to_string(record.color) + "\n";
    }
  }
  for (const TabEntry& tab : store.tabs) {
    text += "tab " + Utf16ToUtf8(tab.name.View()) + "\n";
    DescribeValues(tab, HostedTabValues(), text);
  }
  return text;
}

}  // namespace tw::test
