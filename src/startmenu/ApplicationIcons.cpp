// Where application icons come from: every icon goes through appIconCache.

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"

namespace tolv {

Image AppModel::runningApplicationIcon(const RunningApplication& app) {
  if (!app.icon) return platform_.images->systemSymbol("app");
  std::string key = "running:" + app.bundleIdentifier.value_or(app.localizedName.value_or(
                                     std::to_string(app.processIdentifier)));
  return appIconCache.try_emplace(key, app.icon).first->second;
}

}  // namespace tolv
