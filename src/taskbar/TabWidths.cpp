#include "taskbar/TabWidths.h"

#include <algorithm>
#include <cmath>

namespace tolv {

namespace {

constexpr double kItemChrome = 46;
constexpr double kGroupChrome = 66;
constexpr double kWorkspaceExtra = 32;
constexpr double kCustomGroupExtra = 16;

bool isCustomGroup(const TaskbarEntry& entry) {
  return entry.group && entry.group->isCustom;
}

}  // namespace

double naturalTabWidth(std::string_view title, bool isGroup, TextMeasurer& measurer) {
  double width = std::ceil(measurer.width(title, kTabTitleFontSize));
  width += isGroup ? kGroupChrome : kItemChrome;
  return std::clamp(width, kMinimumTabWidth, kMaximumTabWidth);
}

double preferredEntryWidth(const TaskbarEntry& entry, TextMeasurer& measurer,
                           const WorkspaceTitle& workspaceTitle) {
  if (entry.workspaceGroup) return kWorkspaceGroupTabWidth;
  std::string title = entry.workspace ? workspaceTitle(*entry.workspace)
                                      : entryTitle(entry).value_or(std::string());
  double width = naturalTabWidth(title, entry.group.has_value(), measurer);
  if (entry.workspace) return std::min(width + kWorkspaceExtra, kMaximumTabWidth);
  if (isCustomGroup(entry)) return std::min(width + kCustomGroupExtra, kMaximumTabWidth);
  return width;
}

double entryWidth(const TaskbarEntry& entry, const TaskWidthOverrides& overrides,
                  TextMeasurer& measurer, const WorkspaceTitle& workspaceTitle) {
  auto found = overrides.find(entry.id);
  if (found != overrides.end()) return found->second;
  return preferredEntryWidth(entry, measurer, workspaceTitle);
}

double minimumEntryWidth(const TaskbarEntry& entry, double width,
                         const TaskWidthOverrides& overrides) {
  auto found = overrides.find(entry.id);
  if (found != overrides.end()) return found->second;
  if (isCustomGroup(entry)) return width;
  return kMinimumTabWidth;
}

}  // namespace tolv
