// The base of every page object in a slot of the main window, and the thin
// layer through which the main window talks to it.
//
// How a page is added
// -------------------
// 1. Write pages/<area>_page.h/.cpp with a class derived from SettingsPage.
//    Its header declares the page's block of control ids (ControlIdRange);
//    its constructor takes the PageContext, creates the page's controls with
//    AddControl (hidden: the shell shows the page right after creating it)
//    and fills them from context.settings. Controls lie in PageArea().
// 2. Override Show(). The usual body is ShowControls(showCommand); a page
//    with a tab strip shows its strip and the current sub-area only.
// 3. Override only the entry points the page needs: OnCommand (WM_COMMAND;
//    true stops it there, false lets the shell go on), OnNotify (WM_NOTIFY),
//    Paint (after the header band, into the window's DC), OnTap
//    (WM_LBUTTONDOWN in client coordinates) and ControlColour (static and
//    button colours of the page's controls).
// 4. The destructor of the derived class stores the controls' states into
//    the record; the base destructor then destroys the controls. Never write
//    the registry from a page: Done saves the record.
// 5. Give the page its row in app/page_table.cpp, with its id block: the
//    table refuses, at compile time, blocks that meet another page's or the
//    shell's commands.
// 6. Run the layout check (tests/ui/layout_check.h) on the page and each of
//    its sub-areas at the three screen geometries.
#pragma once

#include <windows.h>

#include <memory>
#include <string_view>
#include <vector>

#include "base/wide_string.h"
#include "data/categories.h"
#include "pages/preview_cache.h"
#include "platform/registry.h"
#include "resources/string_ids.h"
#include "settings/settings_store.h"

namespace tw {

// The header band above every page, in 96-dpi units; a 1-unit line follows it.
inline constexpr int kHeaderBand = 27;

// The control ids a page may use, first to last. Controls are children of
// the main window, so blocks must meet neither each other nor the shell's
// commands.
struct ControlIdRange {
  int first;
  int last;

  constexpr bool Holds(int id) const { return id >= first && id <= last; }
  constexpr bool Meets(const ControlIdRange& other) const { return first <= other.last && other.first <= last; }
};

// The scheme commands reach the registry and the category list and may end
// the program, which only the shell may do; the page hands them over
// through these two functions instead of including the shell.
struct SchemeHooks {
  // Writes "name.scm" from the registry; returns the message to show.
  MessagePair (*save)(std::u16string_view name);
  // Rewrites the registry from the scheme and reports a failure itself. On
  // success the program ends: the page is destroyed before this returns.
  void (*apply)(HWND window, std::u16string_view fileName);
};

// What a page is made with: the window it lives in, the record it edits, the
// language library its texts come from, the page fonts, the preview's fonts
// and pictures, and the PIM categories.
struct PageContext {
  HWND window;
  HINSTANCE instance;
  HMODULE language;
  HFONT normalFont;
  HFONT boldFont;
  SettingsStore& settings;
  PreviewFontCache& previewFonts;
  PreviewImageSet& previewImages;
  const SchemeHooks* schemes = nullptr;
  // The registry itself, for the Today screen's own items (the Tabs page
  // lists them and switches one off); the settings go through the record.
  Registry* registry = nullptr;
  const CategoryList* categories = nullptr;
};

class SettingsPage {
 public:
  explicit SettingsPage(const PageContext& context) : context_(context) {}
  SettingsPage(const SettingsPage&) = delete;
  SettingsPage& operator=(const SettingsPage&) = delete;
  // Destroys the controls; derived destructors store them into the record first.
  virtual ~SettingsPage();

  // SW_SHOW (5) to show, 0 to hide; includeTabStrip is 1 from the shell.
  virtual void Show(int showCommand, bool includeTabStrip) = 0;
  // True when the page has taken the command: the shell then does nothing more.
  virtual bool OnCommand(HWND, UINT, WPARAM, LPARAM) { return false; }
  virtual LRESULT OnNotify(HWND, UINT, WPARAM, LPARAM) { return 0; }
  virtual void Paint(HDC) {}
  virtual void OnTap(int /*x*/, int /*y*/) {}
  // Null leaves the shell's colours: black text on white, as on the device.
  virtual HBRUSH ControlColour(HDC, HWND /*control*/) { return nullptr; }

  const std::vector<HWND>& Controls() const { return controls_; }

 protected:
  const PageContext& context() const { return context_; }
  SettingsStore& settings() const { return context_.settings; }
  // A child control of the main window in the page's font, hidden, kept for
  // showing, hiding and destruction. Null if it cannot be created.
  HWND AddControl(const wchar_t* className, const wchar_t* text, DWORD style, const RECT& area, int id,
                  HFONT font);
  void ShowControls(int showCommand);
  // The part of the main window's client area below the header band.
  RECT PageArea() const;
  // A text of the language library (empty without one).
  WideString Text(unsigned id) const;
  // A message box of the language library's text and caption; the button chosen.
  int Tell(MessagePair message, UINT buttons = MB_OK) const;

 private:
  PageContext context_;
  std::vector<HWND> controls_;
};

using PageFactory = std::unique_ptr<SettingsPage> (*)(const PageContext&);

}  // namespace tw
