#include "switcher/OverlayLayout.h"

#include <algorithm>
#include <cmath>

#include "switcher/SwitcherLists.h"

namespace tolv {

namespace {

constexpr double kPadding = 16;
constexpr double kLockRowHeight = 36;
constexpr double kSectionTitleHeight = 26;
constexpr double kRowHeight = 30;
constexpr double kTileGap = 12;
constexpr double kTileLabelHeight = 20;

class Builder {
 public:
  Builder(const LumoSwitcherState& state, Rect content) : state_(state), content_(content) {
    y_ = content.y;
  }

  void add(OverlayRow row, double height, double x, double width) {
    row.frame = Rect{x, y_, width, height};
    row.selected = row.kind != OverlayRow::Kind::SectionTitle &&
                   row.kind != OverlayRow::Kind::Empty && row.target == state_.selection;
    rows_.push_back(std::move(row));
  }
  void line(OverlayRow row, double height) {
    add(std::move(row), height, content_.x, content_.width);
    y_ += height;
  }
  void section(const std::string& title) {
    line({.kind = OverlayRow::Kind::SectionTitle, .title = title}, kSectionTitleHeight);
  }
  void none() { line({.kind = OverlayRow::Kind::Empty, .title = "None"}, kRowHeight); }

  OverlayRow windowRow(const RunningAppItem& item, Selection target) {
    return {.kind = OverlayRow::Kind::Window,
            .title = item.name,
            .note = item.appName,
            .target = std::move(target),
            .item = item,
            .closed = state_.closedWindowIDs.count(item.id) > 0,
            .activeStrip = state_.frozenActiveStripWindowIDs.count(item.id) > 0,
            .previousStrip = state_.frozenPreviousStripWindowIDs.count(item.id) > 0};
  }

  // Tiles flow on across the groups of a section, row after row.
  void tiles(const RunningAppGroup& group) {
    const double tileWidth = state_.thumbnailSize;
    const int perRow = std::max(1, int((content_.width + kTileGap) / (tileWidth + kTileGap)));
    for (const auto& window : group.windows) {
      OverlayRow tile = windowRow(window, {group.id, window.id});
      tile.kind = OverlayRow::Kind::Tile;
      add(std::move(tile), tileHeight(), content_.x + tileColumn_ * (tileWidth + kTileGap),
          tileWidth);
      if (++tileColumn_ == perRow) endTileRow();
    }
  }
  void endTileRow() {
    if (tileColumn_ == 0) return;
    tileColumn_ = 0;
    y_ += tileHeight() + kTileGap;
  }
  double tileHeight() const { return std::round(state_.thumbnailSize * 0.625) + kTileLabelHeight; }

  void groups(const std::string& title, const std::vector<RunningAppGroup>& list) {
    section(title);
    if (list.empty()) none();
    const bool tileMode = state_.previewMode == LumoPreviewMode::Tiles;
    for (const auto& group : list) {
      if (tileMode) {
        tiles(group);
        continue;
      }
      line({.kind = OverlayRow::Kind::Group,
            .title = groupTitle(group),
            .note = std::to_string(group.windows.size()),
            .target = {group.id, std::nullopt}},
           kRowHeight);
      if (!sectionExpanded(state_, group.id)) continue;
      for (const auto& window : group.windows) {
        OverlayRow row = windowRow(window, {group.id, window.id});
        line(std::move(row), kRowHeight);
      }
    }
    endTileRow();
  }

  std::vector<OverlayRow> finish() {
    // Keep the selection in sight: move everything up until its row ends
    // inside the content, then drop what lies outside.
    double shift = 0;
    for (const auto& row : rows_) {
      if (row.selected) shift = std::max(0.0, row.frame.maxY() - content_.maxY());
    }
    std::vector<OverlayRow> shown;
    for (auto& row : rows_) {
      row.frame.y -= shift;
      if (row.frame.y >= content_.y - 0.5 && row.frame.maxY() <= content_.maxY() + 0.5) {
        shown.push_back(std::move(row));
      }
    }
    return shown;
  }

 private:
  const LumoSwitcherState& state_;
  Rect content_;
  double y_ = 0;
  int tileColumn_ = 0;
  std::vector<OverlayRow> rows_;
};

}  // namespace

Size overlayCardSize(const LumoSwitcherState& state, Size screen) {
  const double widest = std::max(screen.width - 80, 440.0);
  double width = 0;
  if (state.previewMode == LumoPreviewMode::Tiles) {
    width = std::min(std::max(900.0, (state.thumbnailSize + 12) * 4 + 80), widest);
  } else {
    width = std::min(widest, 720.0);
  }
  const double height = std::min(std::max(screen.height - 100, 360.0), 620.0);
  return {width, height};
}

OverlayLayout layoutOverlay(const LumoSwitcherState& state, Size screen) {
  OverlayLayout layout;
  const Size card = overlayCardSize(state, screen);
  layout.card = Rect{std::round((screen.width - card.width) / 2),
                     std::round((screen.height - card.height) / 2), card.width, card.height};
  layout.title =
      state.screenCaptureTrusted ? "Lumo Switcher" : "Lumo Switcher — Screen permission required";
  layout.hint =
      "Hold Control • Ctrl-Tab: next • Ctrl-Shift-Tab: previous • ↑/↓: windows • Return, "
      "Space, or click: open • Esc: close";

  Rect content{layout.card.x + kPadding, layout.card.y + kOverlayTopBarHeight,
               layout.card.width - 2 * kPadding,
               layout.card.height - kOverlayTopBarHeight - kOverlayFooterHeight};
  // In mode thumbnails the preview takes the right two fifths.
  if (state.previewMode == LumoPreviewMode::Thumbnails) content.width = content.width * 0.6;
  Builder rows(state, content);
  rows.line({.kind = OverlayRow::Kind::Lock,
             .title = "Lock Lumo Open",
             .note = state.lockOpen ? "Locked" : "Control escape closes",
             .target = {}},
            kLockRowHeight);

  const bool noWindows = state.priorityGroups.empty() && state.normalGroups.empty();
  rows.section("Previous Strips");
  if (state.previousStripWindows.empty()) rows.none();
  for (const auto& window : state.previousStripWindows) {
    rows.line(rows.windowRow(window, {lumo_id::PreviousStrips, window.id}), kRowHeight);
  }
  rows.section("Workspaces");
  if (state.workspaces.empty()) rows.none();
  for (const auto& workspace : state.workspaces) {
    rows.line({.kind = OverlayRow::Kind::Workspace,
               .title = workspace.name,
               .note = workspace.isCurrent ? "Current Workspace" : "macOS Workspace",
               .target = {lumo_id::Workspaces, workspace.id}},
              kRowHeight);
  }
  rows.section("Recent Tabs");
  rows.line({.kind = OverlayRow::Kind::Desktop,
             .title = "Show Desktop",
             .note = "macOS Desktop",
             .target = {lumo_id::RecentTabs, lumo_id::ShowDesktop}},
            kRowHeight);
  for (const auto& window : state.recentTabWindows) {
    rows.line(rows.windowRow(window, {lumo_id::RecentTabs, window.id}), kRowHeight);
  }
  if (noWindows) {
    rows.line({.kind = OverlayRow::Kind::Empty, .title = "No running application windows"},
              kRowHeight);
  } else {
    rows.groups("Priority", state.priorityGroups);
    rows.groups("Windows", state.normalGroups);
  }
  layout.rows = rows.finish();
  return layout;
}

}  // namespace tolv
