#include "model/SettingsCatalogue.h"

#include <algorithm>

#include "model/RecordsJson.h"

namespace tolv {

namespace {

using W = SettingWriter;
using T = SettingType;

template <class Value>
constexpr SettingType typeFor() {
  if constexpr (std::is_same_v<Value, bool>) return T::Bool;
  if constexpr (std::is_same_v<Value, int64_t>) return T::Int;
  if constexpr (std::is_same_v<Value, double>) return T::Double;
  if constexpr (std::is_same_v<Value, std::string>) return T::String;
  if constexpr (std::is_same_v<Value, std::vector<std::string>> ||
                std::is_same_v<Value, std::set<std::string>>) {
    return T::StringArray;
  }
  if constexpr (std::is_same_v<Value, StringMap>) return T::StringDictionary;
  return T::Data;
}

template <class Value>
SettingDescriptor setting(std::string_view key, Value Settings::*field, SettingWriter writer,
                          std::string_view usedBy) {
  return SettingDescriptor{key, typeFor<Value>(), field, writer, usedBy, std::nullopt};
}

SettingDescriptor direct(std::string_view key, SettingType type,
                         std::optional<PropertyValue> defaultValue, std::string_view usedBy) {
  return SettingDescriptor{
      key, type, std::monostate{}, W::ReadWhereUsed, usedBy, std::move(defaultValue)};
}

std::vector<SettingDescriptor> makeCatalogue() {
  using S = Settings;
  const auto P = W::PersistSettings;
  const auto Q = W::QuickLaunch;
  const auto O = W::OwnWriter;
  return {
      // Taskbar behaviour and refresh
      setting("taskbarLocation", &S::taskbarLocation, P, "panels"),
      setting("autoHideDelayMS", &S::autoHideDelayMS, P, "auto-hide"),
      setting("topMacOSShowWaitMS", &S::topMacOSShowWaitMS, P, "auto-hide"),
      setting("topMacOSRehideDelayMS", &S::topMacOSRehideDelayMS, P, "auto-hide"),
      setting("topMacOSReshowWaitMS", &S::topMacOSReshowWaitMS, P, "auto-hide"),
      setting("topMacOSReshowMouseMovePixels", &S::topMacOSReshowMouseMovePixels, P, "auto-hide"),
      setting("appRefreshRate", &S::appRefreshRate, P, "panels"),
      setting("appMonitorRefreshRate", &S::appMonitorRefreshRate, P, "tray"),
      setting("taskbarRefreshSeconds", &S::taskbarRefreshSeconds, P, "refresh"),
      setting("windowCheckScanSeconds", &S::windowCheckScanSeconds, P, "refresh"),
      setting("backgroundTaskbarRefreshSeconds", &S::backgroundTaskbarRefreshSeconds, P, "refresh"),
      setting("backgroundTaskbarRefreshMode", &S::backgroundTaskbarRefreshMode, P, "refresh"),
      setting("staggerWindowAndTaskbarRefreshes", &S::staggerWindowAndTaskbarRefreshes, P,
              "refresh"),
      setting("taskbarShowConfirmRefreshMS", &S::taskbarShowConfirmRefreshMS, P, "refresh"),
      setting("taskbarShowPrimaryScan", &S::taskbarShowPrimaryScan, P, "refresh"),
      setting("taskbarShowBadgeScan", &S::taskbarShowBadgeScan, P, "refresh"),
      setting("actionRefreshMode", &S::actionRefreshMode, P, "refresh"),
      setting("actionRefreshDelayMS", &S::actionRefreshDelayMS, P, "refresh"),
      setting("expertCoalesceActionRefreshes", &S::expertCoalesceActionRefreshes, P, "refresh"),
      setting("expertSkipUnchangedRefreshes", &S::expertSkipUnchangedRefreshes, P,
              "window scan, refresh"),
      setting("expertPauseWhenDisplaySleeps", &S::expertPauseWhenDisplaySleeps, P, "refresh"),
      setting("expertAttemptCompleteScansWhenSwitchingToWS",
              &S::expertAttemptCompleteScansWhenSwitchingToWS, P, "refresh, spaces"),
      setting("expertAvoidRedundantPanelWrites", &S::expertAvoidRedundantPanelWrites, P, "panels"),
      setting("useAlternateAXIdentifiers", &S::useAlternateAXIdentifiers, P, "window scan"),
      setting("alternateAXIdentifierApps", &S::alternateAXIdentifierApps, P, "window scan"),
      setting("expertCacheNotificationBadges", &S::expertCacheNotificationBadges, P, "badges"),
      setting("expertBadgeScanSeconds", &S::expertBadgeScanSeconds, P, "badges"),
      setting("restartDockOnStartup", &S::restartDockOnStartup, P, "launch"),
      setting("disableFrontmostAttribute", &S::disableFrontmostAttribute, P, "window commands"),
      setting("artificialTabActivation", &S::artificialTabActivation, P, "window commands"),

      // Tasks, groups and workspaces
      setting("groupingMode", &S::groupingMode, P, "grouping"),
      setting("specificGroupingPolicy", &S::specificGroupingPolicy, P, "grouping"),
      setting("specificGroupingApps", &S::specificGroupingApps, P, "grouping"),
      setting("showTabCreationTimeInGroups", &S::showTabCreationTimeInGroups, P, "grouping"),
      setting("newWindowsGo", &S::newWindowsGo, P, "task order"),
      setting("taskbarBlacklist", &S::blacklist, O, "window scan"),
      setting("taskOrder", &S::taskOrder, O, "task order"),
      setting("recentWindowIDs", &S::recentWindowIDs, O, "strips and recents"),
      setting("includeSingleAppWindowsInPreviousStrips",
              &S::includeSingleAppWindowsInPreviousStrips, P, "strips and recents"),
      setting("customGroupNames", &S::customGroupNames, O, "grouping"),
      setting("customGroupIcons", &S::customGroupIcons, O, "grouping"),
      setting("customGroupMembers", &S::customGroupMembers, O, "grouping"),
      setting("forcedUngroupedWindows", &S::forcedUngroupedWindows, O, "grouping"),
      setting("workspaceTaskbarBehavior", &S::workspaceTaskbarBehavior, P, "workspace state"),
      setting("workspaceChildAutoRefresh", &S::workspaceChildAutoRefresh, P, "workspace state"),
      setting("workspaceChildAutoRefreshDelayMS", &S::workspaceChildAutoRefreshDelayMS, P,
              "workspace state"),
      setting("workspaceGroupDefaultColor", &S::workspaceGroupDefaultColor, P, "colours"),
      setting("workspaceDefaultColors", &S::workspaceDefaultColors, P, "colours"),
      setting("forcedDesktopWorkspaceIDs", &S::forcedDesktopWorkspaceIDs, O,
              "task order, spaces, workspace commands"),
      setting("forcedWorkspacePlacementHosts", &S::forcedWorkspacePlacementHosts, O,
              "task order, spaces, workspace commands"),
      direct("restartWorkspaceBackup", T::Data, std::nullopt, "workspace state"),

      // Appearance
      setting("blueStripsEnabled", &S::blueStripsEnabled, P, "strips and recents"),
      setting("activeWindowStripColor", &S::activeWindowStripColor, P, "strips and recents"),
      setting("lastWindowStripColor", &S::lastWindowStripColor, P, "strips and recents"),
      setting("notificationBadgeStyle", &S::notificationBadgeStyle, P, "badges, task buttons"),
      setting("notificationBadgeFull", &S::notificationBadgeFull, P, "task buttons"),
      setting("notificationBadgeColor", &S::notificationBadgeColor, P, "task buttons"),
      setting("overflowBackgroundEnabled", &S::overflowBackgroundEnabled, P, "row layout"),
      setting("tuckAwayOverflowPixels", &S::tuckAwayOverflowPixels, P, "row layout"),
      setting("overflowCardOverlapPixels", &S::overflowCardOverlapPixels, P, "row layout"),
      setting("topOverflowBorderHeight", &S::topOverflowBorderHeight, P, "row layout"),
      setting("glassEffectEnabled", &S::glassEffectEnabled, P, "panels"),
      setting("glassEffectStyle", &S::glassEffectStyle, P, "panels"),
      setting("glassEffectStrength", &S::glassEffectStrength, P, "panels"),
      setting("menuGlassEffectStrength", &S::menuGlassEffectStrength, P, "start menu"),
      setting("menuGlassTintStrength", &S::menuGlassTintStrength, P, "start menu"),
      setting("taskGlassTintStrength", &S::taskGlassTintStrength, P, "task buttons"),
      setting("topBufferShadowEnabled", &S::topBufferShadowEnabled, P, "panels"),
      setting("topBufferShadowOpacity", &S::topBufferShadowOpacity, P, "panels"),
      setting("topBufferShadowBlur", &S::topBufferShadowBlur, P, "panels"),
      setting("topBufferShadowHeight", &S::topBufferShadowHeight, P, "panels"),
      setting("appContainerBumpWidth", &S::appContainerBumpWidth, P, "start menu"),
      setting("appContainerIconSize", &S::appContainerIconSize, P, "favourites"),
      setting("appContainerFadeInMS", &S::appContainerFadeInMS, P, "start menu"),
      setting("menuOpacity", &S::menuOpacity, P, "start menu"),
      setting("barOpacity", &S::barOpacity, P, "panels"),
      setting("groupPopupOpacity", &S::groupPopupOpacity, P, "task buttons"),
      setting("tabColorOpacity", &S::tabColorOpacity, P, "colours"),
      setting("animationDurationMS", &S::animationDurationMS, P, "auto-hide"),
      setting("animationStyle", &S::animationStyle, P, "auto-hide"),
      setting("interfaceBaseColorMode", &S::interfaceBaseColorMode, P, "settings window"),
      setting("interfaceBaseColor", &S::interfaceBaseColor, P, "settings window"),
      setting("edgeColorMode", &S::edgeColorMode, P, "settings window"),
      setting("edgeColor", &S::edgeColor, P, "settings window"),
      setting("defaultAppColors", &S::defaultAppColors, P, "colours"),
      setting("didSeedDefaultAppColors", &S::didSeedDefaultAppColors, P, "colours"),

      // Tray, start menu and input
      setting("showTimeAndDate", &S::showTimeAndDate, P, "tray"),
      setting("showAttentionApps", &S::showAttentionApps, P, "badges"),
      setting("attentionListMode", &S::attentionListMode, P, "badges"),
      setting("attentionIndicatorPolicy", &S::attentionIndicatorPolicy, P, "badges"),
      setting("attentionIndicatorApps", &S::attentionIndicatorApps, P, "badges"),
      setting("volumeScrollRate", &S::volumeScrollRate, P, "tray"),
      setting("brightnessScrollRate", &S::brightnessScrollRate, P, "tray"),
      setting("mediaSliderDisplay", &S::mediaSliderDisplay, P, "tray"),
      setting("hideAllUsing", &S::hideAllUsing, P, "window commands"),
      setting("simulateNoBatteryInformation", &S::simulateNoBatteryInformation, P, "tray"),
      setting("startMenuRightPaneVisible", &S::startMenuRightPaneVisible, P, "start menu"),
      setting("lockApplicationsContainerToTaskbar", &S::lockApplicationsContainerToTaskbar, P,
              "start menu"),
      setting("hoverOpensApplicationContainer", &S::hoverOpensApplicationContainer, P,
              "start menu"),
      setting("enableTaskbarCornerActions", &S::enableTaskbarCornerActions, P, "auto-hide"),
      setting("invertTaskbarButtonHighlight", &S::invertTaskbarButtonHighlight, P, "task buttons"),
      setting("doubleClickTabToMinimize", &S::doubleClickTabToMinimize, P, "task buttons"),
      setting("controlTabLumoSwitcherEnabled", &S::controlTabLumoSwitcherEnabled, P,
              "switcher keys"),
      setting("controlEscapeHotKeysEnabled", &S::controlEscapeHotKeysEnabled, P, "launch"),
      setting("startIconChoice", &S::startIconChoice, P, "custom image"),
      setting("customStartIcon", &S::customStartIcon, P, "custom image"),
      setting("customStartImagePath", &S::customStartImagePath, P, "custom image"),
      setting("startFavorites", &S::startFavorites, O, "favourites"),

      // Quick launch
      setting("quickLaunchSafari", &S::quicklyLaunchSafari, Q, "quick launch"),
      setting("quickLaunchFinder", &S::quicklyLaunchFinder, Q, "quick launch"),
      setting("quickLaunchPhotos", &S::quicklyLaunchPhotos, Q, "quick launch"),
      setting("quickLaunchTextEdit", &S::quicklyLaunchTextEdit, Q, "quick launch"),
      setting("quickLaunchTerminal", &S::quicklyLaunchTerminal, Q, "quick launch"),
      setting("quickLaunchLumo", &S::quicklyLaunchLumo, Q, "quick launch"),
      setting("quickLaunchDesktop", &S::quicklyLaunchDesktop, Q, "quick launch"),
      setting("quickLaunchIconSize", &S::quicklyLaunchIconSize, Q, "quick launch"),
      setting("customQuickLaunchPaths", &S::customQuicklyLaunchPaths, Q, "quick launch"),
      setting("customQuickLaunchIconPaths", &S::customQuicklyLaunchIconPaths, Q, "quick launch"),
      setting("customWebLaunchers", &S::customWebLaunchers, Q, "quick launch"),
      setting("quicklyLaunchOrder", &S::quicklyLaunchOrder, Q, "quick launch"),

      // Written and never read back
      setting("autoHideEnabled", &S::autoHideEnabled, W::WriteOnly, "auto-hide"),
      setting("autoHideOverflow", &S::autoHideOverflow, W::WriteOnly, "auto-hide"),

      // Read where they are used
      direct("useTaskbarGradient", T::Bool, true, "panels"),
      direct("reverseMediaScroll", T::Bool, false, "tray"),
      direct("batteryHighColor", T::String, "#33FF59", "tray"),
      direct("batteryMidColor", T::String, "#FFFF00", "tray"),
      direct("batteryLowColor", T::String, "#FF0000", "tray"),
      direct("batteryHighThreshold", T::Int, 60, "tray"),
      direct("batteryMidThreshold", T::Int, 20, "tray"),
      direct("macOSDockPosition", T::String, "Default", "launch"),
      direct("TolvOriginalMacOSDockPosition", T::String, std::nullopt, "launch"),
      direct("topContextMenuDetectionMode", T::String, "Auto Detect", "launch"),
      direct("topContextMenuManualMode", T::String, "Use Buffer", "launch"),
      direct("interfaceTextBoxColor", T::String, std::nullopt, "presets"),
      direct("installedTaskbarProfile", T::String, std::nullopt, "presets"),
      direct("installedTolvBuild", T::String, std::nullopt, "installation"),
      direct("registeredTolvBundlePath", T::String, std::nullopt, "installation"),
      direct("showInitialTaskbarAfterAccessibility", T::Bool, false, "launch"),
      direct("lastAutomaticRuntimeRestart", T::Double, 0.0, "recovery"),
      direct("pendingRuntimeIssueMessage", T::String, std::nullopt, "recovery"),
      direct("pendingRuntimeIssueRequestsRestart", T::Bool, false, "recovery"),
      direct("lumoPreviewMode", T::String, std::nullopt, "switcher"),
      direct("lumoThumbnailSize", T::Double, 192.0, "previews"),
      direct("startMenuCustomActionType", T::String, std::nullopt, "custom button"),
      direct("startMenuCustomActionValue", T::String, std::nullopt, "custom button"),
      direct("startMenuCustomURLScheme", T::String, std::nullopt, "custom button"),
      direct("startMenuCustomIconMode", T::String, std::nullopt, "custom button"),
      direct("startMenuCustomIconValue", T::String, std::nullopt, "custom button"),
      direct("startMenuCustomShortcutKey", T::String, std::nullopt, "custom button"),
      direct("startMenuCustomShortcutModifiers", T::Int, std::nullopt, "custom button"),
  };
}

// ---- reading and writing one field --------------------------------------------

struct FieldReader {
  Settings& settings;
  const std::optional<PropertyValue>& stored;

  void operator()(std::monostate) const {}
  void operator()(bool Settings::*field) const {
    if (auto value = boolValue(stored)) settings.*field = *value;
  }
  void operator()(int64_t Settings::*field) const {
    if (auto value = intValue(stored)) settings.*field = *value;
  }
  void operator()(double Settings::*field) const {
    if (auto value = doubleValue(stored)) settings.*field = *value;
  }
  void operator()(std::string Settings::*field) const {
    if (auto value = stringValue(stored)) settings.*field = *value;
  }
  void operator()(std::vector<std::string> Settings::*field) const {
    if (auto value = stringArrayValue(stored)) settings.*field = *value;
  }
  void operator()(std::set<std::string> Settings::*field) const {
    if (auto value = stringArrayValue(stored)) {
      settings.*field = std::set<std::string>(value->begin(), value->end());
    }
  }
  void operator()(StringMap Settings::*field) const {
    if (auto value = stringDictionaryValue(stored)) settings.*field = *value;
  }
  void operator()(std::vector<StartFavorite> Settings::*field) const {
    if (auto data = dataValue(stored)) {
      if (auto favorites = decodeStartFavorites(*data)) settings.*field = *favorites;
    }
  }
  void operator()(std::vector<CustomWebLauncher> Settings::*field) const {
    if (auto data = dataValue(stored)) {
      if (auto launchers = decodeCustomWebLaunchers(*data)) settings.*field = *launchers;
    }
  }
};

struct FieldWriter {
  const Settings& settings;

  std::optional<PropertyValue> operator()(std::monostate) const { return std::nullopt; }
  template <class Value>
  std::optional<PropertyValue> operator()(Value Settings::*field) const {
    const Value& value = settings.*field;
    if constexpr (std::is_same_v<Value, std::set<std::string>>) {
      return PropertyValue(std::vector<std::string>(value.begin(), value.end()));
    } else if constexpr (std::is_same_v<Value, std::vector<StartFavorite>>) {
      return PropertyValue(encodeStartFavorites(value));
    } else if constexpr (std::is_same_v<Value, std::vector<CustomWebLauncher>>) {
      return PropertyValue(encodeCustomWebLaunchers(value));
    } else {
      return PropertyValue(value);
    }
  }
};

void write(const Settings& settings, Defaults& defaults, const SettingDescriptor& descriptor) {
  if (auto value = std::visit(FieldWriter{settings}, descriptor.field)) {
    defaults.set(descriptor.key, std::move(*value));
  }
}

bool isModelProperty(const SettingDescriptor& descriptor) {
  return descriptor.writer != W::ReadWhereUsed && descriptor.writer != W::WriteOnly;
}

// ---- migrations of old values, in their order ----------------------------------

void migrateNotificationBadgeColor(Settings& settings, Defaults& defaults) {
  auto stored = stringValue(defaults.value("notificationBadgeColor"));
  if (!stored || *stored == "SystemRed") {
    settings.notificationBadgeColor = "#FF3B30";
    defaults.set("notificationBadgeColor", settings.notificationBadgeColor);
  }
}

void migrateDefaultAppColors(Settings& settings, Defaults& defaults) {
  // A usable stored table was read already; anything else leaves the table empty
  // unless the seed was never given.
  if (stringDictionaryValue(defaults.value("defaultAppColors"))) return;
  settings.defaultAppColors.clear();
  if (!settings.didSeedDefaultAppColors) {
    settings.defaultAppColors = seedDefaultAppColors();
    defaults.set("defaultAppColors", settings.defaultAppColors);
    settings.didSeedDefaultAppColors = true;
    defaults.set("didSeedDefaultAppColors", true);
  }
}

void migrateGroupingMode(Settings& settings, Defaults& defaults) {
  if (stringValue(defaults.value("groupingMode"))) return;
  auto grouped = boolValue(defaults.value("groupTabsEnabled"));
  settings.groupingMode = grouped.value_or(true) ? "always" : "never";
}

void migrateNotificationBadgeStyle(Settings& settings, Defaults& defaults) {
  auto stored = stringValue(defaults.value("notificationBadgeStyle"));
  if (stored) {
    if (*stored == "full" || *stored == "line") {
      settings.notificationBadgeStyle = "dot";
      settings.notificationBadgeFull = true;
    }
    return;
  }
  auto enabled = boolValue(defaults.value("notificationIndicatorsEnabled"));
  settings.notificationBadgeStyle = enabled.value_or(true) ? "dot" : "none";
}

void migrateAttentionIndicatorPolicy(Settings& settings, Defaults& defaults) {
  if (settings.attentionIndicatorApps.empty()) {
    settings.attentionIndicatorPolicy = "blacklist";
    return;
  }
  settings.attentionIndicatorPolicy =
      stringValue(defaults.value("attentionIndicatorPolicy")).value_or("blacklist");
}

void migrateTaskbarLocation(Settings& settings) {
  if (settings.taskbarLocation == "top") settings.taskbarLocation = "topL";
  if (settings.taskbarLocation == "left") settings.taskbarLocation = "leftSide";
  if (settings.taskbarLocation == "right") settings.taskbarLocation = "rightSide";
}

void migrateStartIconChoice(Settings& settings) {
  static const std::vector<std::string> choices = {"App Icon", "Ⓣ", "𝙩", "Custom", "Custom Image"};
  if (std::find(choices.begin(), choices.end(), settings.startIconChoice) == choices.end()) {
    settings.startIconChoice = "App Icon";
  }
}

void migrateTaskbarBlacklist(Settings& settings, Defaults& defaults) {
  if (!stringArrayValue(defaults.value("taskbarBlacklist"))) {
    defaults.set("taskbarBlacklist", settings.blacklist);
  }
}

}  // namespace

std::vector<StartFavorite> seedStartFavorites() {
  const std::pair<const char*, const char*> apps[] = {
      {"Mail", "com.apple.mail"},
      {"Calendar", "com.apple.iCal"},
      {"Notes", "com.apple.Notes"},
      {"FaceTime", "com.apple.FaceTime"},
      {"Messages", "com.apple.MobileSMS"},
      {"Photos", "com.apple.Photos"},
      {"Finder", "com.apple.finder"},
      {"Safari", "com.apple.Safari"},
      {"Calculator", "com.apple.calculator"},
      {"Shortcuts", "com.apple.shortcuts"},
  };
  std::vector<StartFavorite> favorites;
  for (const auto& [name, bundle] : apps) {
    favorites.push_back(StartFavorite{std::string("app:") + bundle, name, "app", bundle, bundle});
  }
  return favorites;
}

StringMap seedDefaultAppColors() {
  return {{"com.apple.finder", "Custom:#0D1F36"}, {"com.apple.Safari", "Custom:#183965"}};
}

const std::vector<SettingDescriptor>& settingsCatalogue() {
  static const std::vector<SettingDescriptor> catalogue = makeCatalogue();
  return catalogue;
}

const SettingDescriptor* findSetting(std::string_view key) {
  for (const auto& descriptor : settingsCatalogue()) {
    if (descriptor.key == key) return &descriptor;
  }
  return nullptr;
}

void loadSettings(Settings& settings, Defaults& defaults) {
  for (const auto& descriptor : settingsCatalogue()) {
    if (!isModelProperty(descriptor)) continue;
    std::visit(FieldReader{settings, defaults.value(descriptor.key)}, descriptor.field);
  }
  migrateNotificationBadgeColor(settings, defaults);
  migrateDefaultAppColors(settings, defaults);
  // Favourites and web launchers were decoded above: undecodable data leaves
  // the seed and the empty list, and nothing is written back.
  migrateGroupingMode(settings, defaults);
  migrateNotificationBadgeStyle(settings, defaults);
  migrateAttentionIndicatorPolicy(settings, defaults);
  migrateTaskbarLocation(settings);
  migrateStartIconChoice(settings);
  migrateTaskbarBlacklist(settings, defaults);
}

void persistSettings(const Settings& settings, Defaults& defaults) {
  for (const auto& descriptor : settingsCatalogue()) {
    if (descriptor.writer == W::PersistSettings || descriptor.writer == W::WriteOnly) {
      write(settings, defaults, descriptor);
    }
  }
}

void persistQuickLaunchSettings(const Settings& settings, Defaults& defaults) {
  for (const auto& descriptor : settingsCatalogue()) {
    if (descriptor.writer == W::QuickLaunch) write(settings, defaults, descriptor);
  }
}

void persistSetting(const Settings& settings, Defaults& defaults, std::string_view key) {
  if (const SettingDescriptor* descriptor = findSetting(key))
    write(settings, defaults, *descriptor);
}

std::optional<PropertyValue> readWhereUsed(Defaults& defaults, std::string_view key) {
  const SettingDescriptor* descriptor = findSetting(key);
  if (!descriptor) return std::nullopt;
  auto stored = defaults.value(key);
  bool fits = false;
  switch (descriptor->type) {
    case T::Bool:
      fits = boolValue(stored).has_value();
      break;
    case T::Int:
      fits = intValue(stored).has_value();
      break;
    case T::Double:
      fits = doubleValue(stored).has_value();
      break;
    case T::String:
      fits = stringValue(stored).has_value();
      break;
    case T::StringArray:
      fits = stringArrayValue(stored).has_value();
      break;
    case T::StringDictionary:
      fits = stringDictionaryValue(stored).has_value();
      break;
    case T::Data:
      fits = dataValue(stored).has_value();
      break;
  }
  return fits ? stored : descriptor->directDefault;
}

}  // namespace tolv
