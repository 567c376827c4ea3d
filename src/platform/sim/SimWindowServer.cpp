#include "platform/sim/SimWindowServer.h"

#include "platform/sim/SimDesktop.h"

namespace tolv::sim {

std::optional<std::vector<WindowServerEntry>> SimWindowServer::copyWindowList(
    uint32_t options, uint32_t /*relativeToWindow*/) {
  calls_.count("windowServer.copyWindowList");
  bool onScreenOnly = options & window_list_option::OnScreenOnly;
  std::vector<WindowServerEntry> entries;
  for (uint64_t id : desktop_.stacking()) {
    const SimWindow* window = desktop_.window(id);
    if (!window || (onScreenOnly && !desktop_.isOnScreen(*window))) continue;
    WindowServerEntry entry;
    entry.layer = window->setup.layer;
    entry.ownerPID = window->pid;
    if (window->number != 0) entry.number = window->number;
    entry.name = window->setup.title;
    // A window listed twice shows twice in the window server's list as well.
    if (window->listedTwice) entries.push_back(entry);
    entries.push_back(std::move(entry));
  }
  return entries;
}

}  // namespace tolv::sim
