#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "model/Records.h"
#include "platform/PropertyValue.h"

namespace tolv {

// The name of a running application by process identifier, when one runs.
using ApplicationNameLookup = std::function<std::optional<std::string>(Pid)>;

// The spaces of one display of the window server's listing, as workspace
// tasks: the display called "Main", else the first. Nothing when the listing
// is missing, holds no display, or the display's "Spaces" isn't a list of
// dictionaries. A uuid listed a second time is passed over, so that ids stay
// unique.
std::optional<std::vector<ManagedWorkspaceTask>> managedSpacesFromListing(
    const std::optional<PropertyValue>& listing, const ApplicationNameLookup& applicationName);

// The task that stands in when the window server lists no spaces.
ManagedWorkspaceTask substituteDesktopTask();

// The name of a workspace that nobody named: base + " WS" + the lowest number
// that no other workspace has taken.
std::string assignedWorkspaceName(const std::string& base, const std::set<std::string>& taken);

}  // namespace tolv
