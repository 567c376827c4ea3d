// The taskbar's slots.

#include "model/AppModel.h"

namespace tolv {

std::vector<TaskbarEntry> AppModel::taskbarEntries(bool /*groupAll*/,
                                                   bool /*includeWorkspaces*/) const {
  std::vector<TaskbarEntry> entries;
  for (const auto& item : runningApps.get()) {
    TaskbarEntry entry;
    entry.id = item.id;
    entry.item = item;
    entries.push_back(std::move(entry));
  }
  return entries;
}

}  // namespace tolv
