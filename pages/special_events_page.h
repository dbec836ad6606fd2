// The Special events page (slot 5): how the Today item shows birthdays,
// anniversaries and like dated entries: how far ahead, how early to warn,
// how dates and names are written, and four category filters, each with its
// own warning period.
#pragma once

#include <array>
#include <memory>
#include <span>

#include "pages/row_list_page.h"

namespace tw {

inline constexpr ControlIdRange kSpecialEventsPageIds{3000, 3199};

inline constexpr int kSpecialEventsTabCount = 2;
inline constexpr int kEventFilterCount = 4;

// The page's tabs and forms, for tests that walk them.
std::span<const RowTab> SpecialEventsTabs();

class SpecialEventsPage : public RowListPage {
 public:
  explicit SpecialEventsPage(const PageContext& context);
  // Stores the filters' categories; their warning days are stored as they change.
  ~SpecialEventsPage() override;

  bool OnCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT OnNotify(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

  HWND FilterList() const { return filterList_; }
  HWND CategoryChoice(int filter) const { return categories_[filter]; }
  HWND WarningDays() const { return warningDays_; }
  int SelectedFilter() const { return selectedFilter_; }

 protected:
  void ShowOwnTab(int tab, int showCommand) override;

 private:
  void CreateFilters();
  int CreateFilterGrid(int left, int top, int right, int& id);
  void CreateWarningDays(int left, int top, int width, int& id);
  void NarrowDaySpan(int width);
  void FillCategories();
  void OnFilterSelected(int filter);

  HWND filterList_ = nullptr, categoryLabel_ = nullptr, warningLabel_ = nullptr, warningDays_ = nullptr;
  std::array<HWND, kEventFilterCount> categories_ = {};
  int selectedFilter_ = 0;
};

std::unique_ptr<SettingsPage> MakeSpecialEventsPage(const PageContext& context);

}  // namespace tw
