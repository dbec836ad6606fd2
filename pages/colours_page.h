// The Colours page (slot 7): the sixteen free-standing colours, each with a
// swatch and an explanation, and the colour-and-font schemes of the
// installation's Schemes folder.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <array>
#include <memory>
#include <span>
#include <string>

#include "pages/row_list_page.h"  // NumberField

namespace tw {

inline constexpr ControlIdRange kColoursPageIds{3400, 3599};

// A colour row names its setting; its swatch label and explanation follow
// from its position.
struct ColourRow {
  NumberField field;
  unsigned name;
};
std::span<const ColourRow> ColourRows();

class ColoursPage : public SettingsPage {
 public:
  enum Control { kTabs, kChangeColour, kColourList, kSchemeName, kSaveScheme, kSchemeList, kApplyScheme,
                 kDeleteScheme, kControlCount };
  enum Tab { kColoursTab, kSchemesTab };

  explicit ColoursPage(const PageContext& context);

  void Show(int showCommand, bool includeTabStrip) override;
  bool OnCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT OnNotify(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
  void Paint(HDC dc) override;

  HWND Window(Control control) const { return controls_[control]; }
  int SelectedColour() const { return selected_; }

 private:
  void CreateControls();
  void FillSchemeList();
  void PaintColour(HDC dc);
  void PaintSchemesNote(HDC dc);
  void ChangeColour();
  void SaveScheme();
  void ApplyScheme();
  void DeleteScheme();
  void OnColourRowChanged(const NMLISTVIEW& change);
  // The selected scheme's file name; empty (after telling the user) when none is.
  std::u16string SelectedScheme();

  std::array<HWND, kControlCount> controls_ = {};
  // Row 0's swatch shows before any row is chosen.
  int selected_ = 0;
};

std::unique_ptr<SettingsPage> MakeColoursPage(const PageContext& context);

}  // namespace tw
