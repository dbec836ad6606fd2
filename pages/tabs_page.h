// The Tabs page (slot 9): which tabs the Today item shows after the calendar
// and in which order, whether each is shown, and other Today plug-ins added
// and removed as tabs.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <array>
#include <memory>
#include <string_view>

#include "pages/settings_page.h"

namespace tw {

inline constexpr ControlIdRange kTabsPageIds{3800, 3999};

struct TabsLayout;

class TabsPage : public SettingsPage {
 public:
  // The tab's own settings (heading to drop-down) show once a row is chosen.
  enum Control { kTabList, kUp, kDown, kAdd, kRemove, kHeading, kShowTab, kOpenAsLabel, kOpenAs, kControlCount };

  explicit TabsPage(const PageContext& context);
  // Stores the chosen row, then numbers the tabs from the list's order.
  ~TabsPage() override;

  void Show(int showCommand, bool includeTabStrip) override;
  bool OnCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT OnNotify(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
  void Paint(HDC dc) override;

  HWND Window(Control control) const { return controls_[control]; }

 private:
  void CreateControls(const TabsLayout& layout);
  void FillList();
  void OnRowChanged(const NMLISTVIEW& change);
  void ShowTabSettings(std::u16string_view row);
  void StoreTabSettings(std::u16string_view row);
  void SetSettingsShown(Control control, bool shown);
  void LeaveRow();
  void UpdateRemoveButton();
  void Move(int step);
  void AddPlugin();
  void RemovePlugin();
  TabEntry* HostedTab(std::u16string_view name) const;

  std::array<HWND, kControlCount> controls_ = {};
  std::array<bool, kControlCount> settingsShown_ = {};
  bool quiet_ = false;  // the list's notices while the page itself changes rows
};

std::unique_ptr<SettingsPage> MakeTabsPage(const PageContext& context);

}  // namespace tw
