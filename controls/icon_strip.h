// A row of small icons, each an item its owner switches on or off: a tap
// toggles the item under it and names it in a tip while the stylus stays
// down. Collapsed, the strip shows one icon (the first item that is off)
// and offers the items in a pop-up menu, where choosing one turns it off
// and every other item on. Every change reaches the owner as
// WM_COMMAND(kIconStripChanged, command value); the owner then asks for the
// states it needs.
//
//   HWND strip = CreateIconStrip(instance, page, {x, y}, L"MarkerStrip", kMarkersChanged, false, texts);
//   AddIconStripItem(strip, L"Note", !(flags & 1), std::move(noteImage), 1);
//   case WM_COMMAND: if (wParam == kIconStripChanged && lParam == kMarkersChanged) ...
//       IconStripItemState(strip, 1) == kIconStripOn
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/text_library.h"
#include "data/win32/skin_image.h"

namespace tw {

// Item states. A locked item is drawn greyed and no tap changes it.
inline constexpr int kIconStripOff = 0, kIconStripOn = 1, kIconStripLocked = 2;

// The notification's wParam, sent to the owner after every tap or menu choice.
inline constexpr WPARAM kIconStripChanged = 1788;
// Commands of the collapsed strip's menu: the first entry ("None"), then one
// per item, by its position. The menu holds positions 0 to 30 only.
inline constexpr UINT kIconStripNoneCommand = 0;
inline constexpr UINT kIconStripFirstItemCommand = 1144;
inline constexpr int kIconStripMenuItems = 31;

// Messages to the strip.
// wParam: the item's identifier; lParam: const IconStripItem*. The strip
// takes over the image when it returns TRUE. Items keep the order added.
inline constexpr UINT kIconStripAddItem = WM_USER + 110;
// wParam: identifier. Turns the item on (unlocking it); repaints.
inline constexpr UINT kIconStripSetOn = WM_USER + 111;
// wParam: identifier. Locks the item; repaints.
inline constexpr UINT kIconStripLock = WM_USER + 112;
// wParam: identifier. Returns its state; kIconStripOn for an unknown one.
inline constexpr UINT kIconStripGetState = WM_USER + 113;

struct IconStripItem {
  std::wstring_view name;  // shown in the tip and the menu
  bool off;                // starts off (else on)
  SkinImage* image;        // may be null
};

// Registers `className` (once per module) and creates a visible child of
// `owner` at `origin`, 17 high; each item added widens it by one 16-wide
// cell, unless collapsed (17 x 17). `texts` gives the menu's first entry.
// Null on failure.
HWND CreateIconStrip(HINSTANCE instance, HWND owner, POINT origin, const wchar_t* className, LPARAM commandValue,
                     bool collapsed, const TextLibrary* texts);

inline bool AddIconStripItem(HWND strip, std::wstring_view name, bool off, std::unique_ptr<SkinImage> image,
                             std::uint32_t identifier) {
  IconStripItem item = {name, off, image.get()};
  if (!SendMessageW(strip, kIconStripAddItem, identifier, reinterpret_cast<LPARAM>(&item))) return false;
  image.release();
  return true;
}
inline void SetIconStripItemOn(HWND strip, std::uint32_t identifier) {
  SendMessageW(strip, kIconStripSetOn, identifier, 0);
}
inline void LockIconStripItem(HWND strip, std::uint32_t identifier) {
  SendMessageW(strip, kIconStripLock, identifier, 0);
}
inline int IconStripItemState(HWND strip, std::uint32_t identifier) {
  return IsWindow(strip) ? static_cast<int>(SendMessageW(strip, kIconStripGetState, identifier, 0)) : kIconStripOn;
}

}  // namespace tw
