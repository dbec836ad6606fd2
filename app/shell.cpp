#include "app/shell.h"


#include "base/scaling.h"
#include "data/skin.h"
#include "platform/load_text.h"
#include "platform/win32/device.h"
#include "platform/win32/wide.h"
#include "platform/win32/win32_text_library.h"

namespace tw {

ShellState& Shell() {
  static ShellState state;
  return state;
}

SettingsStore& Settings() {
  static SettingsStore settings{};
  return settings;
}

CategoryData& Categories() {
  static CategoryData data;
  return data;
}

ShellPlatform& Platform() {
  static ShellPlatform platform;
  return platform;
}

SettingsEnvironment ShellPlatform::Environment() {
  return {ActiveRegistry(), locale, files, gScreen.dpiX, ReadSelectedSkin};
}

Registry& ShellPlatform::ActiveRegistry() {
  if (trace::On()) return tracedRegistry;
  return registry;
}

PreviewFontCache& PreviewFonts() {
  static PreviewFontCache cache(Settings());
  return cache;
}

PreviewImageSet& PreviewImages() {
  static PreviewImageSet images;
  return images;
}

WideString LanguageText(unsigned id) {
  WideString text;
  if (Shell().language == nullptr) return text;
  Win32TextLibrary library(Shell().language);
  LoadText(&library, id, text);
  return text;
}

int ShowMessage(HWND owner, MessagePair message, UINT buttons) {
  WideString body = LanguageText(message.text), title = LanguageText(message.caption);
  return device::ShowMessageBox(owner, AsWide(body.Text()), AsWide(title.Text()), buttons);
}

}  // namespace tw
