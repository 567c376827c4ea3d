// Which colour a tab shows, and the operations through which the menus and the
// colour panel change the colours of windows, applications and workspaces.

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"
#include "model/Text.h"
#include "taskbar/TabColors.h"

namespace tolv {

namespace {

// The colour the panel asks for when a stored string can't be read.
std::optional<PanelColor> panelColor(const std::optional<std::string>& name) {
  auto color = colorFromName(name);
  if (!color) return std::nullopt;
  return PanelColor{color->red, color->green, color->blue};
}

bool isNoColor(const std::string& color) {
  return color == liveTabColorName(LiveTabColor::defaultColor);
}

}  // namespace

std::string customColorString(const PanelColor& color) {
  auto component = [](double value) {
    return static_cast<int>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
  };
  char text[16];
  std::snprintf(text, sizeof text, "Custom:#%02X%02X%02X", component(color.red),
                component(color.green), component(color.blue));
  return text;
}

std::optional<std::string> AppModel::effectiveTabColor(
    const std::string& key, const std::optional<std::string>& bundleIdentifier) const {
  if (auto live = liveTabColors.find(key); live != liveTabColors.end()) return live->second;
  if (isOffDesktopWorkspace()) {
    if (auto current = currentWorkspaceTask()) {
      auto table = workspaces.workspaceTemporaryColorTables.find(current->id);
      if (table != workspaces.workspaceTemporaryColorTables.end()) {
        if (auto saved = table->second.find(key); saved != table->second.end()) {
          return saved->second;
        }
      }
    }
  }
  const StringMap& lasting =
      bundleIdentifier ? settings.defaultAppColors : settings.workspaceDefaultColors;
  if (!bundleIdentifier && !startsWith(key, id_prefix::Workspace)) return std::nullopt;
  auto found = lasting.find(bundleIdentifier ? *bundleIdentifier : key);
  if (found == lasting.end()) return std::nullopt;
  return found->second;
}

std::optional<std::string> AppModel::workspaceEffectiveColor(
    const ManagedWorkspaceTask& task) const {
  std::optional<std::string> bundle;
  if (auto application = workspaceApplication(task)) bundle = application->bundleIdentifier;
  return effectiveTabColor(workspaceTaskID(task.id), bundle);
}

std::string AppModel::workspaceGroupColor() const {
  auto live = liveTabColors.find(std::string(kWorkspaceGroupID));
  return live != liveTabColors.end() ? live->second : settings.workspaceGroupDefaultColor;
}

void AppModel::setLiveTabColor(const std::optional<std::string>& color, const std::string& key) {
  auto before = liveTabColors.find(key);
  bool changed = color ? before == liveTabColors.end() || before->second != *color
                       : before != liveTabColors.end();
  if (color) {
    liveTabColors[key] = *color;
    manualLiveColorIDs.insert(key);
  } else {
    liveTabColors.erase(key);
    manualLiveColorIDs.erase(key);
  }
  // The table isn't observable: this is what redraws the tabs.
  if (changed) modelChanged.emit();
}

void AppModel::setApplicationLiveColor(const std::optional<std::string>& color,
                                       const std::string& bundleIdentifier) {
  std::set<Pid> processes;
  for (const auto& item : runningApps.get()) {
    if (item.bundleIdentifier != bundleIdentifier) continue;
    setLiveTabColor(color, item.id);
    processes.insert(item.processIdentifier);
  }
  for (Pid pid : processes)
    setLiveTabColor(color, autoGroupID(pid));
}

void AppModel::setDefaultAppColor(const std::optional<std::string>& color,
                                  const std::string& bundleIdentifier,
                                  const std::vector<std::string>& keys) {
  if (color) {
    settings.defaultAppColors[bundleIdentifier] = *color;
  } else {
    settings.defaultAppColors.erase(bundleIdentifier);
  }
  persistSetting("defaultAppColors");
  for (const auto& key : keys)
    manualLiveColorIDs.erase(key);
  resyncTaskbarOnDesktop();
  modelChanged.emit();
}

void AppModel::setWorkspaceDefaultColor(const std::optional<std::string>& color,
                                        const ManagedWorkspaceTask& task) {
  if (auto application = workspaceApplication(task); application && application->bundleIdentifier) {
    setDefaultAppColor(color, *application->bundleIdentifier, {});
    return;
  }
  std::string key = workspaceTaskID(task.id);
  if (color) {
    settings.workspaceDefaultColors[key] = *color;
  } else {
    settings.workspaceDefaultColors.erase(key);
  }
  persistSettings();
  modelChanged.emit();
}

void AppModel::setWorkspaceGroupDefaultColor(const std::optional<std::string>& color) {
  // The group's lasting colour is a plain string: no colour is stored as "Default".
  settings.workspaceGroupDefaultColor =
      color.value_or(std::string(liveTabColorName(LiveTabColor::defaultColor)));
  persistSettings();
  modelChanged.emit();
}

std::optional<std::string> AppModel::workspaceApplicationDefaultColor(
    const ManagedWorkspaceTask& task) const {
  if (task.isDesktopSpace || task.name.find(" + ") != std::string::npos) return std::nullopt;
  for (const auto& app : platform_.workspace->runningApplications()) {
    if (!app.localizedName || !equalsIgnoringCase(*app.localizedName, task.name)) continue;
    if (!app.bundleIdentifier) return std::nullopt;
    auto found = settings.defaultAppColors.find(*app.bundleIdentifier);
    if (found == settings.defaultAppColors.end()) return std::nullopt;
    return found->second;
  }
  return std::nullopt;
}

std::vector<std::pair<RunningAppItem, std::string>> AppModel::manualColorItems() const {
  std::vector<std::pair<RunningAppItem, std::string>> items;
  for (const auto& item : runningApps.get()) {
    if (!manualLiveColorIDs.count(item.id)) continue;
    if (auto color = liveTabColors.find(item.id); color != liveTabColors.end()) {
      items.emplace_back(item, color->second);
    }
  }
  return items;
}

void AppModel::restoreDefaultColors() {
  settings.defaultAppColors = seedDefaultAppColors();
  manualLiveColorIDs.clear();
  liveTabColors.clear();
  settings.workspaceDefaultColors.clear();
  persistSettings();
  workspaces.workspaceTemporaryColorTables.clear();
  workspaces.pendingWorkspaceColorRestoreID.reset();
  persistSetting("defaultAppColors");
  settings.didSeedDefaultAppColors = true;
  persistSetting("didSeedDefaultAppColors");
  resyncTaskbarOnDesktop();
  modelChanged.emit();
}

void AppModel::reapplyDefaultColors() {
  auto lastingColor = [&](const std::optional<std::string>& bundle) -> const std::string* {
    if (!bundle) return nullptr;
    auto found = settings.defaultAppColors.find(*bundle);
    if (found == settings.defaultAppColors.end() || isNoColor(found->second)) return nullptr;
    return &found->second;
  };
  std::set<Pid> groupsSeen;
  for (const auto& item : runningApps.get()) {
    const std::string* color = lastingColor(item.bundleIdentifier);
    if (!color) continue;
    if (!manualLiveColorIDs.count(item.id)) liveTabColors[item.id] = *color;
    // An automatic group takes the colour of its first window's application.
    if (!groupsSeen.insert(item.processIdentifier).second) continue;
    std::string group = autoGroupID(item.processIdentifier);
    if (!manualLiveColorIDs.count(group)) liveTabColors[group] = *color;
  }
  modelChanged.emit();
}

void AppModel::presentColorPicker(const std::optional<std::string>& current,
                                  std::function<void(const std::string&)> apply) {
  tabSystemColorPicker.apply = std::move(apply);
  tabSystemColorPicker.initialColor = panelColor(current);
  std::weak_ptr<AppModel> weak = weak_from_this();
  postAfter(0, [weak](AppModel& model) {
    ColorPanelRequest request;
    request.initial = model.tabSystemColorPicker.initialColor;
    request.colorChanged = [weak](std::optional<PanelColor> color) {
      auto alive = weak.lock();
      // A colour without an sRGB form is passed over.
      if (!alive || !color || !alive->tabSystemColorPicker.apply) return;
      alive->tabSystemColorPicker.apply(customColorString(*color));
    };
    model.platform().alerts->showColorPanel(std::move(request));
  });
}

}  // namespace tolv
