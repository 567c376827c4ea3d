#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "model/Records.h"
#include "taskbar/TextMeasurer.h"

namespace tolv {

// Lengths of a tab, in points.
inline constexpr double kTabHeight = 28;
inline constexpr double kTabSpacing = 4;
inline constexpr double kMinimumTabWidth = 64;
inline constexpr double kMaximumTabWidth = 280;
inline constexpr double kWorkspaceGroupTabWidth = 48;
inline constexpr double kTabTitleFontSize = 12;

using TaskWidthOverrides = std::map<std::string, double>;
// The title a workspace task shows on its tab.
using WorkspaceTitle = std::function<std::string(const ManagedWorkspaceTask&)>;

// The title's width in the tab font, rounded up, plus the icon and paddings
// (more for a group, which also shows its count), kept between 64 and 280.
double naturalTabWidth(std::string_view title, bool isGroup, TextMeasurer& measurer);

// The width an entry asks for when nobody has resized it.
double preferredEntryWidth(const TaskbarEntry& entry, TextMeasurer& measurer,
                           const WorkspaceTitle& workspaceTitle);

// The width of an entry: the user's override when there is one, else the preferred width.
double entryWidth(const TaskbarEntry& entry, const TaskWidthOverrides& overrides,
                  TextMeasurer& measurer, const WorkspaceTitle& workspaceTitle);

// How far the primary row may squeeze an entry of `width`. A resized entry and a
// custom group keep their width; everything else may go down to 64.
double minimumEntryWidth(const TaskbarEntry& entry, double width,
                         const TaskWidthOverrides& overrides);

}  // namespace tolv
