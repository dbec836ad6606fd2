// The Today item's tab bar: four built-in tabs and one subkey per tab hosted
// from another plug-in.
#include "base/text.h"
#include "settings/registry_values.h"
#include "settings/schema.h"
#include "settings/settings_io.h"

namespace tw {
namespace {

using S = SettingsStore;
using T = TabEntry;

constexpr const char16_t* kTabSettingsPath = u"Software\\Orvex\\Tidewell\\TabSettings";
// A subkey the save never removes, whether or not the record lists it. It is
// matched without regard to case, as the registry matches key names: a
// "contacts" subkey is the very key the Today item opens as "Contacts", and
// deleting it would lose what is kept there.
constexpr std::u16string_view kKeptSubkey = u"Contacts";
constexpr std::int32_t kFirstTab = 1;  // the calendar, always there
constexpr std::uint32_t kNameChars = 256;

constexpr ValueSpec kBuiltInTabs[] = {
    Dword(u"TasksTabEnabled", &S::TasksTabEnabled, 1),
    Dword(u"SEventsTabEnabled", &S::SEventsTabEnabled, 1),
    Dword(u"NotesTabEnabled", &S::NotesTabEnabled, 1),
    Dword(u"MailTabEnabled", &S::MailTabEnabled, 1),
    Dword(u"TasksTabOrder", &S::TasksTabOrder, 2),
    Dword(u"NotesTabOrder", &S::NotesTabOrder, 3),
    Dword(u"MailTabOrder", &S::MailTabOrder, 4),
    Dword(u"SEventsTabOrder", &S::SEventsTabOrder, 5),
};

constexpr TabValueSpec kHostedTab[] = {
    Dword(u"Enabled", &T::enabled, 0),
    Dword(u"Dynamic", &T::dynamic, 1),
    Dword(u"Order", &T::order, 9),
    Dword(u"Type", &T::type, 0),
    Text(u"DLL", &T::library, u""),
    Text(u"InstallPath", &T::installPath, u""),
    Text(u"CustomIconName", &T::customIconName, u""),
};

bool IsActiveBuiltInTab(const SettingsStore& s) {
  return (s.ActiveTab == s.TasksTabOrder && s.TasksTabEnabled) ||
         (s.ActiveTab == s.SEventsTabOrder && s.SEventsTabEnabled) ||
         (s.ActiveTab == s.MailTabOrder && s.MailTabEnabled) ||
         (s.ActiveTab == s.NotesTabOrder && s.NotesTabEnabled);
}

bool IsBuiltInOrder(const SettingsStore& s, std::int32_t order) {
  return order == s.TasksTabOrder || order == s.SEventsTabOrder || order == s.MailTabOrder ||
         order == s.NotesTabOrder;
}

// Reads the hosted tabs and validates the active tab and the orders. Notes
// and Messages orders are deliberately not checked, and a hosted tab never
// stays active through a load: the Today item expects both.
void LoadTabs(SettingsStore& store, const SettingsEnvironment& environment, RegKey key) {
  Registry& registry = environment.registry;
  store.tabs.clear();
  bool ordersValid = store.TasksTabOrder >= 2 && store.SEventsTabOrder >= 2;
  bool activeFound = IsActiveBuiltInTab(store);

  for (std::uint32_t index = 0; key != 0; ++index) {
    char16_t name[kNameChars];
    std::uint32_t chars = kNameChars;
    if (registry.EnumKey(key, index, name, chars) != kRegSuccess) break;
    TabEntry& entry = store.tabs.emplace_back();
    entry.name.Assign(std::u16string_view(name, chars));
    ScopedKey subkey(registry, key, entry.name.View(), false);
    LoadHostedTab(entry, registry, subkey.get());
    entry.library.Assign(TabEntry::Fit(entry.library.View()));
    entry.installPath.Assign(TabEntry::Fit(entry.installPath.View()));
    if (entry.order < 2) ordersValid = false;
    if (entry.order == store.ActiveTab && entry.enabled == 1) activeFound = true;
  }

  if (!activeFound) store.ActiveTab = kFirstTab;
  if (!IsBuiltInOrder(store, store.ActiveTab)) store.ActiveTab = kFirstTab;
  if (!ordersValid) {
    store.TasksTabOrder = 2;
    store.SEventsTabOrder = 3;
    std::int32_t order = 4;
    for (TabEntry& entry : store.tabs) entry.order = order++;
  }
}

// Deleting a subkey shifts the rest down, so the index only moves past a
// subkey that stays (or one that cannot be deleted).
void DeleteHostedTabKeys(SettingsStore&, const SettingsEnvironment& environment, RegKey key) {
  Registry& registry = environment.registry;
  for (std::uint32_t index = 0; key != 0;) {
    char16_t name[kNameChars];
    std::uint32_t chars = kNameChars;
    if (registry.EnumKey(key, index, name, chars) != kRegSuccess) break;
    std::u16string_view subkey(name, chars);
    if (EqualsIgnoreCase(subkey, kKeptSubkey) || registry.DeleteTree(key, subkey) != kRegSuccess) ++index;
  }
}

void SaveTabs(SettingsStore& store, const SettingsEnvironment& environment, RegKey) {
  for (const TabEntry& entry : store.tabs) {
    std::u16string path = FormatText(u"%s\\%s", {kTabSettingsPath, entry.name.View()}, 1023);
    ScopedKey subkey(environment.registry, kCurrentUser, path, true);
    SaveHostedTab(entry, environment.registry, subkey.get());
  }
}

}  // namespace

const KeySpec kTabSettingsKey = {kTabSettingsPath, kBuiltInTabs, {}, LoadTabs,
                                 DeleteHostedTabKeys, SaveTabs};

std::span<const TabValueSpec> HostedTabValues() { return kHostedTab; }

}  // namespace tw
