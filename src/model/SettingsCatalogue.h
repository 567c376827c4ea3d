#pragma once

#include <optional>
#include <string_view>
#include <variant>
#include <vector>

#include "model/Settings.h"
#include "platform/PropertyValue.h"
#include "platform/UserDefaults.h"

namespace tolv {

enum class SettingType { Bool, Int, Double, String, StringArray, StringDictionary, Data };

// Who writes a key.
enum class SettingWriter {
  PersistSettings,  // persistSettings, after any change from the settings surfaces
  QuickLaunch,      // persistQuickLaunchSettings
  OwnWriter,        // the operation that changes it, at once
  WriteOnly,        // persistSettings writes it; loading ignores it
  ReadWhereUsed,    // no model property: the view or feature that owns it reads it
};

using SettingField =
    std::variant<std::monostate, bool Settings::*, int64_t Settings::*, double Settings::*,
                 std::string Settings::*, std::vector<std::string> Settings::*,
                 std::set<std::string> Settings::*, StringMap Settings::*,
                 std::vector<StartFavorite> Settings::*,
                 std::vector<CustomWebLauncher> Settings::*>;

struct SettingDescriptor {
  std::string_view key;
  SettingType type;
  SettingField field;  // empty for keys read where they are used
  SettingWriter writer;
  std::string_view usedBy;  // the feature that reads it
  // The default of a key read where it is used; nothing when it starts absent.
  std::optional<PropertyValue> directDefault;
};

// Every key of the application's defaults domain, in catalogue order.
const std::vector<SettingDescriptor>& settingsCatalogue();
const SettingDescriptor* findSetting(std::string_view key);

// Reads every model key with its default, then applies the migrations of old
// values in their fixed order. A value of the wrong type counts as missing;
// nothing is clamped. Some migrations write their result back.
void loadSettings(Settings& settings, Defaults& defaults);

// Writes every key owned by persistSettings (and the write-only ones).
void persistSettings(const Settings& settings, Defaults& defaults);
// Writes the quick-launch keys.
void persistQuickLaunchSettings(const Settings& settings, Defaults& defaults);
// Writes one catalogue key from its property; for the keys with their own writers.
void persistSetting(const Settings& settings, Defaults& defaults, std::string_view key);

// A key read where it is used: the stored value when it has the catalogue's
// type, else the catalogue's default.
std::optional<PropertyValue> readWhereUsed(Defaults& defaults, std::string_view key);

}  // namespace tolv
