#include "startmenu/StartMenuLayout.h"

#include "startmenu/StartMenuPlacement.h"

namespace tolv {

namespace {
constexpr double kHeaderHeight = 52;
constexpr double kRightPaneWidth = 165;
constexpr double kPadding = 8;
constexpr double kSegmentHeight = 24;
constexpr double kRowHeight = 30;
constexpr double kRowSpacing = 3;
constexpr double kSearchBoxHeight = 29;
constexpr double kSearchBoxPadding = 6;
constexpr double kSearchFilesRowHeight = 17;
constexpr double kPlaceholderHeight = 70;
}  // namespace

StartMenuLayout layoutStartMenu(const StartMenuLayoutInput& input) {
  const double width = input.panelSize.width;
  const double height = input.panelSize.height;
  const bool mirrored = startMenuContentMirrored(input.location);
  const bool paneFirst = startMenuContentRight(input.location);
  // Laid out top down, then turned over when mirrored.
  auto place = [&](double x, double y, double w, double h) -> Rect {
    return {x, mirrored ? height - y - h : y, w, h};
  };

  StartMenuLayout layout;
  layout.header = place(0, 0, width, kHeaderHeight);
  double columnWidth = width - kRightPaneWidth;
  double columnX = paneFirst ? kRightPaneWidth : 0;
  layout.leftColumn = place(columnX, kHeaderHeight, columnWidth, height - kHeaderHeight);
  layout.rightPane =
      place(paneFirst ? 0 : columnWidth, kHeaderHeight, kRightPaneWidth, height - kHeaderHeight);

  std::array<std::pair<std::string, std::string>, 3> segments{{
      {"⏳", "Running"},
      {input.searched ? "Searched" : "Favorites", "Favorites"},
      {"Recent Tabs", "Recents"},
  }};
  if (paneFirst) std::swap(segments[0], segments[2]);
  double innerX = columnX + kPadding;
  double innerWidth = columnWidth - 2 * kPadding;
  double segmentY = kHeaderHeight + kPadding;
  // The outer segments share what the middle one leaves.
  std::array<double, 3> widths{innerWidth * 0.22, innerWidth * 0.38, innerWidth * 0.40};
  if (paneFirst) std::swap(widths[0], widths[2]);
  double x = innerX;
  for (size_t i = 0; i < 3; ++i) {
    layout.segments[i] = {segments[i].first, segments[i].second,
                          place(x, segmentY, widths[i], kSegmentHeight)};
    x += widths[i];
  }

  double searchY = height - kSearchBoxPadding - kSearchBoxHeight;
  layout.searchBox = place(innerX, searchY, innerWidth, kSearchBoxHeight);
  double listBottom = searchY - kPadding;
  if (input.searching) {
    double rowY = searchY - kRowSpacing - kSearchFilesRowHeight;
    layout.searchFilesRow = place(innerX, rowY, innerWidth, kSearchFilesRowHeight);
    listBottom = rowY - kRowSpacing;
  }
  double listTop = segmentY + kSegmentHeight + kPadding;
  layout.placeholder = place(innerX, listTop, innerWidth, kPlaceholderHeight);
  double y = listTop;
  for (size_t i = 0; i < input.rowCount && y + kRowHeight <= listBottom; ++i) {
    layout.rows.push_back(place(innerX, y, innerWidth, kRowHeight));
    y += kRowHeight + kRowSpacing;
  }
  return layout;
}

}  // namespace tolv
