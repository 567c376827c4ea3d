#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "model/Records.h"

namespace tolv {

using StringMap = std::map<std::string, std::string>;

// The start menu's favourites before the user changes them.
std::vector<StartFavorite> seedStartFavorites();
// The colours given to well-known applications on first launch.
StringMap seedDefaultAppColors();

// Every persisted setting that the model holds as a property, with its default.
// The key of each is its name unless the catalogue says otherwise; the catalogue
// (SettingsCatalogue.h) maps keys to these fields.
struct Settings {
  // Taskbar behaviour and refresh
  std::string taskbarLocation = "topL";
  int64_t autoHideDelayMS = 400;
  int64_t topMacOSShowWaitMS = 0;
  int64_t topMacOSRehideDelayMS = 1500;
  int64_t topMacOSReshowWaitMS = 200;
  double topMacOSReshowMouseMovePixels = 2.0;
  int64_t appRefreshRate = 30;
  int64_t appMonitorRefreshRate = 6;
  double taskbarRefreshSeconds = 0.5;
  double windowCheckScanSeconds = 1.0;
  double backgroundTaskbarRefreshSeconds = 0;  // 0: off
  std::string backgroundTaskbarRefreshMode = "Scan Only";
  bool staggerWindowAndTaskbarRefreshes = true;
  int64_t taskbarShowConfirmRefreshMS = -1;  // -1: off
  bool taskbarShowPrimaryScan = true;
  bool taskbarShowBadgeScan = false;
  std::string actionRefreshMode = "Scan & Publish";
  int64_t actionRefreshDelayMS = 0;
  bool expertCoalesceActionRefreshes = true;
  bool expertSkipUnchangedRefreshes = true;
  bool expertPauseWhenDisplaySleeps = true;
  bool expertAttemptCompleteScansWhenSwitchingToWS = true;
  bool expertAvoidRedundantPanelWrites = true;
  bool useAlternateAXIdentifiers = true;
  std::vector<std::string> alternateAXIdentifierApps = {"com.apple.Safari"};
  bool expertCacheNotificationBadges = true;
  double expertBadgeScanSeconds = 4.0;
  bool restartDockOnStartup = true;
  bool disableFrontmostAttribute = true;
  bool artificialTabActivation = true;

  // Tasks, groups and workspaces
  std::string groupingMode = "always";
  std::string specificGroupingPolicy = "whitelist";
  std::vector<std::string> specificGroupingApps;
  bool showTabCreationTimeInGroups = true;
  std::string newWindowsGo = "last";
  std::vector<std::string> blacklist = {"Finder"};  // key "taskbarBlacklist"
  std::vector<std::string> taskOrder;
  std::vector<std::string> recentWindowIDs;
  bool includeSingleAppWindowsInPreviousStrips = true;
  StringMap customGroupNames;
  StringMap customGroupIcons;
  StringMap customGroupMembers;
  std::set<std::string> forcedUngroupedWindows;
  std::string workspaceTaskbarBehavior = "desktop";
  bool workspaceChildAutoRefresh = true;
  int64_t workspaceChildAutoRefreshDelayMS = 0;
  std::string workspaceGroupDefaultColor = "Custom:#2061F7";
  StringMap workspaceDefaultColors;
  std::set<std::string> forcedDesktopWorkspaceIDs;
  StringMap forcedWorkspacePlacementHosts;

  // Appearance
  bool blueStripsEnabled = true;
  std::string activeWindowStripColor = "Custom:#093D91";
  std::string lastWindowStripColor = "Custom:#76115C";
  std::string notificationBadgeStyle = "dot";
  bool notificationBadgeFull = false;
  std::string notificationBadgeColor = "#FF3B30";
  bool overflowBackgroundEnabled = false;
  double tuckAwayOverflowPixels = 7;
  double overflowCardOverlapPixels = 2;
  double topOverflowBorderHeight = 2;
  bool glassEffectEnabled = true;
  std::string glassEffectStyle = "Untinted";
  double glassEffectStrength = 0.5;
  double menuGlassEffectStrength = 0.5;
  double menuGlassTintStrength = 0.3;
  double taskGlassTintStrength = 0.3;
  bool topBufferShadowEnabled = true;
  double topBufferShadowOpacity = 0.2;
  double topBufferShadowBlur = 1.0;
  double topBufferShadowHeight = 2.0;
  double appContainerBumpWidth = 59;
  double appContainerIconSize = 33;
  int64_t appContainerFadeInMS = 200;
  double menuOpacity = 0.85;
  double barOpacity = 0.97;
  double groupPopupOpacity = 0.94;
  double tabColorOpacity = 0.5;
  int64_t animationDurationMS = 300;
  std::string animationStyle = "Ease-Out Fade";
  std::string interfaceBaseColorMode = "Light";
  std::string interfaceBaseColor = "#909196";
  std::string edgeColorMode = "Gray";
  std::string edgeColor = "#808080";
  StringMap defaultAppColors;  // seeded once on first launch
  bool didSeedDefaultAppColors = false;

  // Tray, start menu and input
  bool showTimeAndDate = false;
  bool showAttentionApps = true;
  std::string attentionListMode = "Always";
  std::string attentionIndicatorPolicy = "blacklist";
  std::vector<std::string> attentionIndicatorApps;
  double volumeScrollRate = 5.0;
  double brightnessScrollRate = 5.0;
  std::string mediaSliderDisplay = "Overflow";
  std::string hideAllUsing = "Minimize";
  bool simulateNoBatteryInformation = false;
  bool startMenuRightPaneVisible = false;
  bool lockApplicationsContainerToTaskbar = false;
  bool hoverOpensApplicationContainer = false;
  bool enableTaskbarCornerActions = true;
  bool invertTaskbarButtonHighlight = false;
  bool doubleClickTabToMinimize = false;
  bool controlTabLumoSwitcherEnabled = true;
  bool controlEscapeHotKeysEnabled = true;
  std::string startIconChoice = "App Icon";
  std::string customStartIcon = "ⓣ";
  std::string customStartImagePath;
  std::vector<StartFavorite> startFavorites = seedStartFavorites();

  // Quick launch (keys spell "quickLaunch")
  bool quicklyLaunchSafari = true;
  bool quicklyLaunchFinder = true;
  bool quicklyLaunchPhotos = false;
  bool quicklyLaunchTextEdit = true;
  bool quicklyLaunchTerminal = false;
  bool quicklyLaunchLumo = true;
  bool quicklyLaunchDesktop = true;
  double quicklyLaunchIconSize = 22;
  std::vector<std::string> customQuicklyLaunchPaths;
  StringMap customQuicklyLaunchIconPaths;
  std::vector<CustomWebLauncher> customWebLaunchers;
  std::vector<std::string> quicklyLaunchOrder = {"lumo", "safari", "finder", "textEdit", "desktop"};

  // Written for the record and never read back: each run starts with them on.
  bool autoHideEnabled = true;
  bool autoHideOverflow = true;
};

}  // namespace tolv
