#include "data/hosted_tabs.h"

#include <algorithm>

#include "settings/registry_values.h"

namespace tw {
namespace {

constexpr std::u16string_view kOwnItem = u"Tidewell";
constexpr std::u16string_view kType = u"Type", kEnabled = u"Enabled", kLibrary = u"DLL";
constexpr std::int32_t kPluginLibraryType = 4;
constexpr std::uint32_t kNameChars = 256;

std::u16string ItemPath(std::u16string_view name) {
  return FormatText(u"%s\\%s", {kTodayItemsKey, name}, WideString::kMaxLength);
}

std::int32_t NextOrder(const SettingsStore& record) {
  std::int32_t last = std::max({record.TasksTabOrder, record.NotesTabOrder, record.MailTabOrder,
                                record.SEventsTabOrder});
  for (const TabEntry& tab : record.tabs) last = std::max(last, tab.order);
  return last + 1;
}

}  // namespace

std::vector<PluginChoice> ListTodayPlugins(Registry& registry) {
  std::vector<PluginChoice> plugins;
  ScopedKey items(registry, kLocalMachine, kTodayItemsKey, false);
  if (!items) return plugins;
  for (std::uint32_t index = 0;; ++index) {
    char16_t name[kNameChars];
    std::uint32_t chars = kNameChars;
    if (registry.EnumKey(items.get(), index, name, chars) != kRegSuccess) break;
    std::u16string_view itemName(name, chars);
    ScopedKey item(registry, items.get(), itemName, false);
    if (ReadDword(registry, kType, 0, item.get()) == kPluginLibraryType && itemName != kOwnItem)
      plugins.push_back({std::u16string(itemName), static_cast<std::int32_t>(index)});
  }
  return plugins;
}

bool IsPluginEnabled(Registry& registry, std::u16string_view name) {
  ScopedKey item(registry, kLocalMachine, ItemPath(name), false);
  return ReadDword(registry, kEnabled, 0, item.get()) == 1;
}

void DisablePlugin(Registry& registry, std::u16string_view name) {
  ScopedKey item(registry, kLocalMachine, ItemPath(name), false);
  if (item) registry.SetDword(item.get(), kEnabled, 0);
}

MessagePair AddHostedTab(SettingsStore& record, Registry& registry, std::u16string_view name) {
  for (const TabEntry& tab : record.tabs)
    if (tab.name == name) return kTabExists;
  TabEntry entry;
  entry.name.Assign(TabEntry::Fit(name));
  {
    ScopedKey item(registry, kLocalMachine, ItemPath(name), false);
    ReadString(registry, kLibrary, entry.library, u"", item.get());
    entry.library.Assign(TabEntry::Fit(entry.library.View()));
  }
  // Shown, opened as the Tabs page's choice 1, and removable.
  entry.enabled = 1;
  entry.type = 1;
  entry.dynamic = 1;
  entry.order = NextOrder(record);
  InsertTab(record.tabs, std::move(entry));
  return kNoMessage;
}

bool RemoveHostedTab(SettingsStore& record, std::u16string_view name) {
  auto found = std::find_if(record.tabs.begin(), record.tabs.end(),
                            [&](const TabEntry& tab) { return tab.dynamic == 1 && tab.name == name; });
  if (found == record.tabs.end()) return false;
  record.tabs.erase(found);
  return true;
}

void InsertTab(std::vector<TabEntry>& tabs, TabEntry entry) {
  auto at = tabs.begin();
  if (at != tabs.end() && entry.order >= at->order) {
    ++at;
    while (at != tabs.end() && at->order < entry.order) ++at;
  }
  tabs.insert(at, std::move(entry));
}

}  // namespace tw
