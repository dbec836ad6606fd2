#include "pages/pim_source_page.h"

namespace tw {
namespace {

using S = SettingsStore;

// Values of dUsedPIM.
constexpr std::int32_t kPocketInformant = 1, kCustomDatabases = 2, kAgendaFusion = 3;

bool UsesCustomDatabases(const SettingsStore& record) { return record.dUsedPIM == kCustomDatabases; }
bool UsesAgendaFusion(const SettingsStore& record) { return record.dUsedPIM == kAgendaFusion; }
// The outside PIM programs, which have categories and priorities of their own.
bool UsesPimProgram(const SettingsStore& record) {
  return record.dUsedPIM == kPocketInformant || record.dUsedPIM == kAgendaFusion;
}

constexpr unsigned kSourceTexts[] = {22, 23, 24, 82};

constexpr Row kSourceForm[] = {
    FormDropDown(40556, &S::dUsedPIM, TextList(kSourceTexts)),
    EnabledWhen(Heading(40557), UsesCustomDatabases),
    EnabledWhen(FormPath(40558, &S::dCustomPIMCalendar), UsesCustomDatabases),
    EnabledWhen(FormPath(40559, &S::dCustomPIMTasks), UsesCustomDatabases),
    EnabledWhen(FormPath(40560, &S::dCustomPIMContacts), UsesCustomDatabases),
};
constexpr Row kOptionsForm[] = {
    EnabledWhen(FormCheck(40561, &S::OverridePimCatIcons), UsesPimProgram),
    EnabledWhen(FormCheck(40562, &S::OverridePimCatColros), UsesPimProgram),
    EnabledWhen(FormCheck(40563, &S::LeaveAFRunning), UsesAgendaFusion),
    EnabledWhen(FormCheck(40564, &S::HideABCVals), UsesPimProgram),
};

constexpr RowTab kTabs[kPimSourceTabCount] = {{40554, {}, kSourceForm}, {40555, {}, kOptionsForm}};

}  // namespace

std::span<const RowTab> PimSourceTabs() { return kTabs; }

PimSourcePage::PimSourcePage(const PageContext& context) : RowListPage(context, kTabs, kPimSourcePageIds) {}

std::unique_ptr<SettingsPage> MakePimSourcePage(const PageContext& context) {
  return std::make_unique<PimSourcePage>(context);
}

}  // namespace tw
