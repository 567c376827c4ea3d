#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Geometry.h"

namespace tolv {

// One segment of the tab strip: its label and the list it selects.
struct StartMenuSegment {
  std::string label;
  std::string list;
  Rect frame;
};

// Where the parts of the start menu stand in the panel, in the panel's own
// coordinates with y running down from its top. On the placements whose
// content is mirrored the whole column is turned over vertically, so that the
// search box stays next to the bar and the list order runs away from it.
struct StartMenuLayout {
  Rect header;
  Rect leftColumn;
  Rect rightPane;
  std::array<StartMenuSegment, 3> segments;
  // As many rows as fit, in list order.
  std::vector<Rect> rows;
  Rect placeholder;
  std::optional<Rect> searchFilesRow;  // while it is shown
  Rect searchBox;
};

struct StartMenuLayoutInput {
  std::string_view location;
  Size panelSize;
  size_t rowCount = 0;
  // The row "Search Files & Folders" is shown.
  bool searching = false;
  // The trimmed search text isn't empty: the middle segment says "Searched".
  bool searched = false;
};

StartMenuLayout layoutStartMenu(const StartMenuLayoutInput& input);

}  // namespace tolv
