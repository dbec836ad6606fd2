// Other Today plug-ins hosted as tabs of the Today item: which installed
// items can be hosted, switching one off on the Today screen, and adding and
// removing its tab record.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/registry.h"
#include "resources/string_ids.h"
#include "settings/settings_store.h"

namespace tw {

inline constexpr std::u16string_view kTodayItemsKey = u"SOFTWARE\\Microsoft\\Today\\Items";

struct PluginChoice {
  std::u16string name;
  std::int32_t itemData = 0;  // the item's enumeration index
};

// Items of type 4 (plug-in libraries) except this product's own, in
// enumeration order; empty when there is no items key.
std::vector<PluginChoice> ListTodayPlugins(Registry& registry);
// True when the item shows on the Today screen, so the user is asked to hide it.
bool IsPluginEnabled(Registry& registry, std::u16string_view name);
void DisablePlugin(Registry& registry, std::u16string_view name);

// Adds the item as a hosted tab after the others (kTabExists if a tab of that
// name is there already); its library comes from the item's "DLL" value.
MessagePair AddHostedTab(SettingsStore& record, Registry& registry, std::u16string_view name);
// Removes the first hosted tab of that name; built-in tabs are never removed,
// and the item stays switched off on the Today screen.
bool RemoveHostedTab(SettingsStore& record, std::u16string_view name);
// Before the first later entry whose order is not smaller; never before the
// first entry unless smaller than its order.
void InsertTab(std::vector<TabEntry>& tabs, TabEntry entry);

}  // namespace tw
