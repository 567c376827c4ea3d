#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/Pid.h"

namespace tolv {

// The arrangement of one workspace's taskbar, as it is saved while the
// workspace is on screen and brought back when it returns.
struct WorkspaceTaskbarState {
  std::vector<std::string> taskOrder;
  std::map<std::string, std::string> customGroupMembers;
  std::set<std::string> forcedUngroupedWindows;
  std::set<Pid> forcedParentGroupPIDs;
  std::map<std::string, double> taskWidthOverrides;
  bool overflowReturnLocked = false;
  std::set<std::string> lockedMainWindowIDs;

  bool operator==(const WorkspaceTaskbarState&) const = default;
};

// Manual tab colours by task id.
using WorkspaceColorTable = std::map<std::string, std::string>;

// What a controlled restart carries over: both tables, by workspace id.
struct RestartWorkspaceBackup {
  std::map<std::string, WorkspaceColorTable> colorTables;
  std::map<std::string, WorkspaceTaskbarState> taskbarTables;

  bool operator==(const RestartWorkspaceBackup&) const = default;
};

// What the model keeps per workspace, keyed by workspace id, and the steps
// under way between spaces.
struct WorkspaceState {
  std::map<std::string, std::string> workspaceCustomTitles;
  // "Desktop WS1", "Safari WS2": stable names for as long as the workspace lives.
  std::map<std::string, std::string> workspaceAssignedDisplayNames;
  std::map<std::string, WorkspaceColorTable> workspaceTemporaryColorTables;
  std::map<std::string, WorkspaceTaskbarState> workspaceTaskbarStateTables;
  // The workspace whose arrangement or colours the next publishing refresh restores.
  std::optional<std::string> pendingWorkspaceTaskbarRestoreID;
  std::optional<std::string> pendingWorkspaceColorRestoreID;
  // A backup was read at this start and the first workspace pass hasn't used it yet.
  bool restoredRestartWorkspaceBackup = false;
  // The hop through the desktop between two full-screen spaces is under way.
  bool workspaceSnapshotSwitchRefreshInProgress = false;
  // The listing generation the last workspace pass read.
  std::optional<uint64_t> readListingGeneration;
};

}  // namespace tolv
