#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/Records.h"
#include "taskbar/TabAppearance.h"

namespace tolv {

class AppModel;

// The edge of the tab the popover's arrow points from.
enum class PopoverEdge { Top, Bottom, Leading, Trailing };
PopoverEdge groupPopupArrowEdge(std::string_view location);

inline constexpr double kGroupPopupWidth = 440;
inline constexpr double kGroupPopupScrollHeight = 420;
// Up to this many windows the rows stand in a plain stack, beyond it they scroll.
inline constexpr size_t kGroupPopupPlainRowLimit = 20;

struct GroupPopupRow {
  RunningAppItem window;
  std::optional<std::string> time;  // with showTabCreationTimeInGroups
  std::optional<std::string> date;
  TabAppearance look;  // the fill is clear unless the window has a colour
};

// What a group's popup shows.
struct GroupPopupContent {
  std::string groupID;
  std::string title;
  bool editableTitle = false;  // a custom group's name is a text field
  ChevronDirection chevron = ChevronDirection::Up;
  std::vector<GroupPopupRow> rows;
  bool scrolls = false;
  Rgba background;
  double windowAlpha = 1;  // groupPopupOpacity
  PopoverEdge arrowEdge = PopoverEdge::Top;
};

GroupPopupContent groupPopupContent(const AppModel& model, const RunningAppGroup& group);

}  // namespace tolv
