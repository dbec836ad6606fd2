#include "pages/notes_page.h"

namespace tw {
namespace {

using S = SettingsStore;

constexpr unsigned kLineStyleTexts[] = {25, 26, 27, 40944};

// Counters are a check box here and a three-way choice on the Messages
// page: the Today item reads the two values that way.
constexpr Row kNotesForm[] = {
    ItemDropDown(40769, &S::NotesBreakLineStyle, TextList(kLineStyleTexts)),
    ItemCheck(40770, &S::NotesIncldFoldBttns),
    ItemCheck(40979, &S::NotesIncldCounters),
};

// The second tab is empty, as on the device.
constexpr RowTab kTabs[] = {{40240, {}, kNotesForm}, {40763, {}}};

}  // namespace

std::span<const RowTab> NotesTabs() { return kTabs; }

std::unique_ptr<SettingsPage> MakeNotesPage(const PageContext& context) {
  return std::make_unique<RowListPage>(context, kTabs, kNotesPageIds);
}

}  // namespace tw
