#pragma once

namespace tolv {

// Which slots taskbarEntries builds: `groupAll` groups every application with
// two or more windows whatever the grouping mode says; `includeWorkspaces`
// adds the hosted workspace tasks.
struct TaskbarEntryRequest {
  bool groupAll = false;
  bool includeWorkspaces = false;
};

}  // namespace tolv
