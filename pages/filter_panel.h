// Slot 11, the category filter panel: the 32 filters, one chosen at the top,
// its title, sensitivity, visibility and uncategorized rule under one tab
// and the categories it holds under the other. Edits stay in the panel until
// Commit writes them into the filter and category lists; Done then saves
// those, so Cancel loses them.
#pragma once

#include <windows.h>

#include <array>
#include <cstdint>
#include <vector>

#include "data/categories.h"
#include "pages/settings_page.h"

namespace tw {

inline constexpr ControlIdRange kFilterPanelIds = {4200, 4399};

class FilterPanel : public SettingsPage {
 public:
  enum Control {
    kFilterChoice, kTabs, kTitleLabel, kTitle, kSensitivityLabel, kSensitivity, kVisible, kUncategorized,
    kMembersLabel, kMembers, kControlCount
  };
  enum Tab { kFilterTab, kCategoriesTab };

  FilterPanel(const PageContext& context, CategoryData& data);

  void Show(int showCommand, bool includeTabStrip) override;
  // Lays the controls out on the window as it is now: the panel is made
  // before the window has its final size.
  void Place();
  // The panel's own controls, routed by the shell: the filter choice and
  // the tab strip change what is shown; the rest keep their state until stored.
  void OnCommand(int id, int code);
  LRESULT OnNotify(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
  HBRUSH ControlColour(HDC dc, HWND control) override;
  void Paint(HDC dc) override;
  // Writes every filter's edits into the filter list and the memberships
  // into the categories' masks (bit n for the n-th filter).
  void Commit();

  HWND Window(Control control) const { return controls_[control]; }
  static constexpr int IdOf(Control control) { return kFilterPanelIds.first + control; }
  int CurrentFilter() const { return current_; }

 private:
  void CreateControls();
  void FillFilterChoice();
  void ShowFilter(int filter);
  void StoreFilter();
  void ShowTab(int showCommand);

  CategoryData& data_;
  std::vector<FilterEntry> filters_;
  std::vector<std::uint32_t> masks_;  // by category, in list order
  int current_ = 0;
  bool shown_ = false;
  std::array<HWND, kControlCount> controls_ = {};
};

}  // namespace tw
