#include "pages/messages_page.h"

namespace tw {
namespace {

using S = SettingsStore;

constexpr unsigned kLineStyleTexts[] = {25, 26, 27, 40944};

// None, unread, unread and total: a check box would lose the third.
constexpr Row kMessagesForm[] = {
    ItemCheck(40974, &S::MsgsMrkReadOnPrev),
    ItemDropDown(40769, &S::MsgsBreakLineStyle, TextList(kLineStyleTexts)),
    ItemDropDown(40975, &S::MsgsIncldCounters, TextRange(40976, 3)),
    ItemCheck(40770, &S::MsgsIncldFoldBttns),
};

// The second tab is empty, as on the device.
constexpr RowTab kTabs[] = {{40240, {}, kMessagesForm}, {40763, {}}};

}  // namespace

std::span<const RowTab> MessagesTabs() { return kTabs; }

std::unique_ptr<SettingsPage> MakeMessagesPage(const PageContext& context) {
  return std::make_unique<RowListPage>(context, kTabs, kMessagesPageIds);
}

}  // namespace tw
