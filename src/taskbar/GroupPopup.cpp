#include "taskbar/GroupPopup.h"

#include "model/AppModel.h"
#include "taskbar/TabFacts.h"
#include "taskbar/TaskbarLocation.h"

namespace tolv {

namespace {

constexpr Size kRowSize{kGroupPopupWidth, kTabHeight};
constexpr Rgba kBaseFallback{0x90 / 255.0, 0x91 / 255.0, 0x96 / 255.0, 1};

GroupPopupRow popupRow(const AppModel& model, const RunningAppItem& window) {
  GroupPopupRow row;
  row.window = window;
  if (model.settings.showTabCreationTimeInGroups) {
    row.time = model.tabTimeText(window);
    if (row.time) row.date = model.tabDateText(window);
  }
  TaskbarEntry entry;
  entry.id = window.id;
  entry.item = window;
  TabFacts facts = tabFacts(model, entry, false);
  row.look = tabAppearance(facts, kRowSize);
  auto color = colorFromName(facts.colorName);
  row.look.fill = color ? color->withAlpha(facts.colorOpacity) : Rgba{0, 0, 0, 0};
  return row;
}

// The interface base colour setting, "#RRGGBB".
Rgba baseColor(const std::string& setting) {
  if (setting.starts_with('#')) {
    if (auto color = colorFromName("Custom:" + setting)) return *color;
  }
  return kBaseFallback;
}

}  // namespace

PopoverEdge groupPopupArrowEdge(std::string_view location) {
  if (location == taskbar_location::RightSide) return PopoverEdge::Trailing;
  if (location == taskbar_location::LeftSide) return PopoverEdge::Leading;
  if (location == taskbar_location::TopLeft || location == taskbar_location::TopRight) {
    return PopoverEdge::Bottom;
  }
  return PopoverEdge::Top;
}

GroupPopupContent groupPopupContent(const AppModel& model, const RunningAppGroup& group) {
  const Settings& settings = model.settings;
  GroupPopupContent content;
  content.groupID = group.id;
  content.title = groupTitle(group);
  content.editableTitle = group.isCustom;
  bool top = settings.taskbarLocation == taskbar_location::TopLeft ||
             settings.taskbarLocation == taskbar_location::TopRight;
  content.chevron = top ? ChevronDirection::Down : ChevronDirection::Up;
  for (const auto& window : group.windows)
    content.rows.push_back(popupRow(model, window));
  content.scrolls = group.windows.size() > kGroupPopupPlainRowLimit;
  auto own = colorFromName(model.effectiveTabColor(group.id, groupBundle(group)));
  content.background =
      own.value_or(baseColor(settings.interfaceBaseColor)).withAlpha(settings.tabColorOpacity);
  content.windowAlpha = settings.groupPopupOpacity;
  content.arrowEdge = groupPopupArrowEdge(settings.taskbarLocation);
  return content;
}

}  // namespace tolv
