#include "taskbar/TabFacts.h"

#include <algorithm>

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"
#include "taskbar/TabWidths.h"
#include "taskbar/TaskbarLocation.h"

namespace tolv {

namespace {

constexpr double kWorkspaceGroupFallbackOpacity = 0.5;

void addCommonFacts(const AppModel& model, TabFacts& facts, bool stripAtTop) {
  const Settings& settings = model.settings;
  facts.location = settings.taskbarLocation;
  facts.inverted = settings.invertTaskbarButtonHighlight;
  facts.colorOpacity = settings.tabColorOpacity;
  facts.stripAtTop = stripAtTop;
  facts.activeStripColor = settings.activeWindowStripColor;
  facts.previousStripColor = settings.lastWindowStripColor;
  facts.badgeColorSetting = settings.notificationBadgeColor;
}

// A full badge colour takes the place of the tab's own colour.
void applyBadgeColor(const AppModel& model, TabFacts& facts, bool badgeShows) {
  if (badgeShows && model.settings.notificationBadgeFull) {
    facts.colorName = badgeColorName(model.settings.notificationBadgeColor);
  }
}

// A workspace's item takes the colour of its workspace and its application.
std::optional<std::string> tabColor(const AppModel& model, const RunningAppItem& item) {
  if (startsWith(item.id, id_prefix::Workspace)) {
    for (const auto& workspace : model.managedWorkspaceTasks.get()) {
      if (workspaceTaskID(workspace.id) == item.id) return model.workspaceEffectiveColor(workspace);
    }
  }
  return model.effectiveTabColor(item.id, item.bundleIdentifier);
}

TabFacts itemFacts(const AppModel& model, const RunningAppItem& item, bool stripAtTop) {
  TabFacts facts;
  addCommonFacts(model, facts, stripAtTop);
  const Settings& settings = model.settings;
  facts.isActive = item.isActive;
  facts.colorName = tabColor(model, item);
  if (settings.blueStripsEnabled) {
    if (model.showsActiveStrip(item)) {
      facts.strip = TabStripKind::Active;
    } else if (model.showsPreviousStrip(item)) {
      facts.strip = TabStripKind::Previous;
    }
  }
  bool allowed = model.badgeAllowed(item);
  facts.hasBadge = item.hasNotificationBadge;
  facts.badgeStyle = allowed ? settings.notificationBadgeStyle : "";
  applyBadgeColor(model, facts, item.hasNotificationBadge && allowed);
  return facts;
}

TabFacts groupFacts(const AppModel& model, const RunningAppGroup& group, bool stripAtTop) {
  TabFacts facts;
  addCommonFacts(model, facts, stripAtTop);
  const Settings& settings = model.settings;
  const auto& windows = group.windows;
  auto anyWindow = [&](auto predicate) {
    return std::any_of(windows.begin(), windows.end(), predicate);
  };
  facts.isActive = anyWindow([](const RunningAppItem& w) { return w.isActive; }) &&
                   !model.isOffDesktopWorkspace();
  facts.colorName = model.effectiveTabColor(group.id, groupBundle(group));
  if (settings.blueStripsEnabled) {
    bool previous = settings.includeSingleAppWindowsInPreviousStrips
                        ? anyWindow([&](const RunningAppItem& w) {
                            return model.singleAppPreviousWindowID == w.id;
                          })
                        : windows.size() == 1 && model.showsPreviousStrip(windows.front());
    if (anyWindow([&](const RunningAppItem& w) { return model.showsActiveStrip(w); })) {
      facts.strip = TabStripKind::Active;
    } else if (previous) {
      facts.strip = TabStripKind::Previous;
    }
  }
  bool allowed = model.groupBadgeAllowed(group);
  facts.hasBadge = anyWindow([](const RunningAppItem& w) { return w.hasNotificationBadge; });
  facts.badgeStyle = allowed ? settings.notificationBadgeStyle : "";
  applyBadgeColor(model, facts, allowed);
  facts.chevron = group.isCustom || windows.size() >= 2;
  return facts;
}

TabFacts workspaceGroupFacts(const AppModel& model) {
  TabFacts facts;
  addCommonFacts(model, facts, false);
  bool live = model.liveTabColors.count(std::string(kWorkspaceGroupID)) > 0;
  facts.colorName = model.workspaceGroupColor();
  facts.colorOpacity = live ? model.settings.tabColorOpacity : kWorkspaceGroupFallbackOpacity;
  return facts;
}

}  // namespace

std::optional<std::string> groupBundle(const RunningAppGroup& group) {
  // A custom group never takes an application's colour.
  if (group.isCustom || group.windows.empty()) return std::nullopt;
  return group.windows.front().bundleIdentifier;
}

std::optional<RunningAppItem> entryTask(const AppModel& model, const TaskbarEntry& entry) {
  if (entry.item) return entry.item;
  if (entry.workspace) return model.workspaceItem(*entry.workspace);
  return std::nullopt;
}

TabFacts tabFacts(const AppModel& model, const TaskbarEntry& entry, bool stripAtTop) {
  if (entry.group) return groupFacts(model, *entry.group, stripAtTop);
  if (auto task = entryTask(model, entry)) return itemFacts(model, *task, stripAtTop);
  return workspaceGroupFacts(model);
}

void decorateTabs(const AppModel& model, const TaskRowLayout& layout, TaskbarDrawing& drawing) {
  const std::string& location = model.settings.taskbarLocation;
  drawing.accessibilityNotice.reset();
  for (auto& tab : drawing.tabs) {
    const TaskbarEntry& entry = layout.entries[tab.entryIndex];
    bool stripAtTop = tab.row != 0 && isTopEdge(location);
    tab.look =
        tabAppearance(tabFacts(model, entry, stripAtTop), {tab.frame.width, tab.frame.height});
    if (tab.id == kSettingsTabID && !model.accessibilityTrusted.get() && tab.row == 0) {
      const Rect& frame = tab.frame;
      double after = isRightAnchored(location) ? 0 : frame.maxX() + kTabSpacing;
      double width = isRightAnchored(location) ? frame.minX() - kTabSpacing
                                               : std::max(drawing.length - after, 0.0);
      drawing.accessibilityNotice = Rect{after, frame.y, std::max(width, 0.0), frame.height};
    }
  }
}

bool AppModel::badgeAllowed(const RunningAppItem& item) const {
  return showsAttentionIndicator(item.appName);
}

bool AppModel::groupBadgeAllowed(const RunningAppGroup& group) const {
  return hasVisibleBadge(group.windows);
}

}  // namespace tolv
