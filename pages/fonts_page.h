// The Fonts page (slot 6): two text sizes for the simple mode, the switch to
// the advanced mode, and the thirty font records with a preview of the
// chosen one.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <array>
#include <memory>
#include <span>

#include "pages/settings_page.h"
#include "settings/font_record.h"

namespace tw {

inline constexpr ControlIdRange kFontsPageIds{3200, 3399};

// A font row names its record, since the page's order is not the record's.
struct FontRow {
  const char16_t* record;
  unsigned name;
  unsigned heading;  // shown above the preview
};
std::span<const FontRow> FontRows();
// The record a row edits; FontGeneral for a name the settings do not know.
FontRecord& FontOf(SettingsStore& settings, const FontRow& row);

class FontsPage : public SettingsPage {
 public:
  enum Control { kTabs, kGeneralLabel, kGeneralSize, kTitleLabel, kTitleSize, kAdvanced, kExplanation,
                 kChangeFont, kFontList, kControlCount };
  enum Tab { kGeneralTab, kFontsTab };

  explicit FontsPage(const PageContext& context);
  // Stores the sizes and the switch.
  ~FontsPage() override;

  void Show(int showCommand, bool includeTabStrip) override;
  bool OnCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT OnNotify(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
  void Paint(HDC dc) override;

  HWND Window(Control control) const { return controls_[control]; }
  int SelectedFont() const { return selected_; }

 private:
  void CreateControls();
  void FillSize(HWND combo, std::int32_t size);
  void ApplyEnableRule();
  bool Advanced() const;
  void ChangeFont();
  void ApplyGeneralSize();
  void OnFontRowChanged(const NMLISTVIEW& change);
  void InvalidatePreview();
  void PaintPreview(HDC dc);

  std::array<HWND, kControlCount> controls_ = {};
  int selected_ = 0;
};

std::unique_ptr<SettingsPage> MakeFontsPage(const PageContext& context);

}  // namespace tw
