#include "model/AppModel.h"

#include "model/SettingsCatalogue.h"

namespace tolv {

std::shared_ptr<AppModel> AppModel::make(const Platform& platform) {
  return std::shared_ptr<AppModel>(new AppModel(platform));
}

AppModel::AppModel(const Platform& platform)
    : platform_(platform), defaults_(*platform.userDefaults, kTolvBundleIdentifier) {
  accessibilityTrusted.set(platform_.accessibility->isProcessTrusted());
  loadSettings(settings, defaults_);
  readRestartWorkspaceBackup();
  loadIconCache();
  ownApplicationIcon();
}

AppModel::~AppModel() = default;

void AppModel::persistSettings() {
  tolv::persistSettings(settings, defaults_);
}

void AppModel::persistQuickLaunchSettings() {
  tolv::persistQuickLaunchSettings(settings, defaults_);
  modelChanged.emit();
}

void AppModel::persistSetting(std::string_view key) {
  tolv::persistSetting(settings, defaults_, key);
}

void AppModel::recordRuntimeIssue(const RuntimeIssue& issue) {
  // A platform given no log (a benchmark's) keeps no record.
  if (platform_.runtimeIssueLog) platform_.runtimeIssueLog->record(issue);
}

void AppModel::postAfter(double delay, std::function<void(AppModel&)> work) {
  std::weak_ptr<AppModel> weak = weak_from_this();
  platform_.runLoop->postAfter(delay, [weak, work = std::move(work)] {
    if (auto model = weak.lock()) work(*model);
  });
}

}  // namespace tolv
