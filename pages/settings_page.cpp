#include "pages/settings_page.h"

#include "base/scaling.h"
#include "platform/load_text.h"
#include "platform/win32/device.h"
#include "platform/win32/wide.h"
#include "platform/win32/win32_text_library.h"

namespace tw {

SettingsPage::~SettingsPage() {
  for (HWND control : controls_) DestroyWindow(control);
}

HWND SettingsPage::AddControl(const wchar_t* className, const wchar_t* text, DWORD style, const RECT& area,
                              int id, HFONT font) {
  HWND control = CreateWindowExW(0, className, text, (style | WS_CHILD) & ~WS_VISIBLE, area.left, area.top,
                                 area.right - area.left, area.bottom - area.top, context_.window,
                                 reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), context_.instance, nullptr);
  if (control == nullptr) return nullptr;
  SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
  controls_.push_back(control);
  return control;
}

void SettingsPage::ShowControls(int showCommand) {
  for (HWND control : controls_) ShowWindow(control, showCommand);
}

RECT SettingsPage::PageArea() const {
  RECT client;
  GetClientRect(context_.window, &client);
  client.top = ScaleX(kHeaderBand) + ScaleX(1);
  return client;
}

WideString SettingsPage::Text(unsigned id) const {
  WideString text;
  if (context_.language == nullptr) return text;
  Win32TextLibrary library(context_.language);
  LoadText(&library, id, text);
  return text;
}

int SettingsPage::Tell(MessagePair message, UINT buttons) const {
  WideString text = Text(message.text), caption = Text(message.caption);
  return device::ShowMessageBox(context_.window, AsWide(text.Text()), AsWide(caption.Text()), buttons);
}

}  // namespace tw
