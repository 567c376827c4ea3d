#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "switcher/CaptureRules.h"
#include "switcher/OverlayLayout.h"
#include "switcher/SwitcherLists.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

RunningAppItem item(std::string id, Pid pid, std::string name = "", int64_t index = 0) {
  RunningAppItem task;
  task.id = std::move(id);
  task.processIdentifier = pid;
  task.name = name.empty() ? task.id : std::move(name);
  task.appName = "App" + std::to_string(pid);
  task.windowIndex = index;
  return task;
}

std::vector<std::string> groupIDs(const std::vector<RunningAppGroup>& groups) {
  std::vector<std::string> ids;
  for (const auto& group : groups)
    ids.push_back(group.id);
  return ids;
}

std::vector<std::string> windowIDs(const RunningAppGroup& group) {
  std::vector<std::string> ids;
  for (const auto& window : group.windows)
    ids.push_back(window.id);
  return ids;
}

RunningAppGroup group(std::string id, std::vector<RunningAppItem> windows) {
  RunningAppGroup made;
  made.id = std::move(id);
  made.appName = "Mine";
  made.windows = std::move(windows);
  return made;
}

TaskbarEntry customGroup(std::string id, std::vector<RunningAppItem> windows) {
  TaskbarEntry entry;
  entry.id = id;
  entry.group = group(id, std::move(windows));
  entry.group->isCustom = true;
  return entry;
}

// ---- the group lists ----

TEST(SwitcherGroups, OneGroupPerProcessInTheOrderProcessesFirstAppear) {
  std::vector<RunningAppItem> running{item("a1", 2), item("b1", 1), item("a2", 2)};
  LumoGroups groups = lumoSwitcherGroups({}, running, {});
  EXPECT_THAT(groups.priority, IsEmpty());
  ASSERT_THAT(groupIDs(groups.normal), ElementsAre("auto:2", "auto:1"));
  EXPECT_THAT(windowIDs(groups.normal[0]), ElementsAre("a1", "a2"));
  EXPECT_EQ(groups.normal[0].appName, "App2");
  EXPECT_FALSE(groups.normal[0].isCustom);
}

TEST(SwitcherGroups, APriorityWindowStandsOnceUnderPriorityAndItsApplicationKeepsTheRest) {
  std::vector<RunningAppItem> running{item("a1", 2), item("a2", 2), item("b1", 1)};
  LumoGroups groups = lumoSwitcherGroups({}, running, {"a2"});
  ASSERT_THAT(groupIDs(groups.priority), ElementsAre("lumo-priority:auto:2"));
  EXPECT_THAT(windowIDs(groups.priority[0]), ElementsAre("a2"));
  ASSERT_THAT(groupIDs(groups.normal), ElementsAre("auto:2", "auto:1"));
  EXPECT_THAT(windowIDs(groups.normal[0]), ElementsAre("a1"));
}

TEST(SwitcherGroups, APriorityApplicationGoesWholeToPriority) {
  std::vector<RunningAppItem> running{item("a1", 2), item("b1", 1), item("a2", 2)};
  LumoGroups groups = lumoSwitcherGroups({}, running, {"auto:2", "a1"});
  ASSERT_THAT(groupIDs(groups.priority), ElementsAre("auto:2"));
  EXPECT_THAT(windowIDs(groups.priority[0]), ElementsAre("a1", "a2"));
  EXPECT_THAT(groupIDs(groups.normal), ElementsAre("auto:1"));
}

TEST(SwitcherGroups, APriorityCustomGroupTakesItsWindowsFirstAndOthersNeverRepeatThem) {
  std::vector<RunningAppItem> running{item("a1", 2), item("b1", 1), item("a2", 2)};
  std::vector<TaskbarEntry> entries{customGroup("custom:K", {item("a2", 2), item("b1", 1)}),
                                    customGroup("custom:L", {item("a1", 2)})};
  LumoGroups groups = lumoSwitcherGroups(entries, running, {"custom:K", "auto:1"});
  ASSERT_THAT(groupIDs(groups.priority), ElementsAre("custom:K"));
  EXPECT_THAT(windowIDs(groups.priority[0]), ElementsAre("a2", "b1"));
  EXPECT_TRUE(groups.priority[0].isCustom);
  // Pid 1 is a priority application, but its only window is taken already.
  ASSERT_THAT(groupIDs(groups.normal), ElementsAre("auto:2"));
  EXPECT_THAT(windowIDs(groups.normal[0]), ElementsAre("a1"));
}

// ---- the order of the keyboard's stops ----

LumoSwitcherState listedState(LumoPreviewMode mode) {
  LumoSwitcherState state;
  state.previewMode = mode;
  state.previousStripWindows = {item("p", 1)};
  state.workspaces = {ManagedWorkspaceTask{}};
  state.workspaces[0].id = "S1";
  state.recentTabWindows = {item("r", 2)};
  state.priorityGroups = {group("lumo-priority:auto:3", {item("x", 3)})};
  state.normalGroups = {group("auto:1", {item("p", 1), item("q", 1)})};
  return state;
}

std::vector<std::string> scrollIDs(const std::vector<NavTarget>& navigation) {
  std::vector<std::string> ids;
  for (const auto& target : navigation)
    ids.push_back(target.scrollID);
  return ids;
}

TEST(SwitcherNavigation, ListsEverySectionInOrderWithGroupRowsOutsideTiles) {
  EXPECT_THAT(scrollIDs(buildNavigation(listedState(LumoPreviewMode::NoPreview))),
              ElementsAre("lumo-lock", "lumo-previous-window:p", "lumo-workspace:S1",
                          "lumo-recent-window:lumo-special:show-desktop", "lumo-recent-window:r",
                          "lumo-app:lumo-priority:auto:3", "lumo-window:x", "lumo-app:auto:1",
                          "lumo-window:p", "lumo-window:q"));
  auto tiles = buildNavigation(listedState(LumoPreviewMode::Tiles));
  EXPECT_THAT(scrollIDs(tiles),
              ElementsAre("lumo-lock", "lumo-previous-window:p", "lumo-workspace:S1",
                          "lumo-recent-window:lumo-special:show-desktop", "lumo-recent-window:r",
                          "lumo-window:x", "lumo-window:p", "lumo-window:q"));
  // A window in two sections is two stops, told apart by their sections.
  EXPECT_EQ(tiles[1].applicationID, "lumo-special:previous-strips");
  EXPECT_EQ(tiles[6].applicationID, "auto:1");
  EXPECT_EQ(navigationIndexOf(tiles, {"auto:1", "p"}), 6u);
  EXPECT_EQ(navigationIndexOf(tiles, {"auto:9", "p"}), 0u);
}

TEST(SwitcherNavigation, StepsWrapBothWaysThroughTheLockRow) {
  EXPECT_EQ(steppedIndex(0, 5, true), 4u);
  EXPECT_EQ(steppedIndex(4, 5, false), 0u);
  EXPECT_EQ(steppedIndex(2, 5, false), 3u);
  EXPECT_EQ(steppedIndex(0, 0, false), 0u);
}

TEST(SwitcherNavigation, ArrowsStopOnlyOnWindowRows) {
  auto navigation = buildNavigation(listedState(LumoPreviewMode::NoPreview));
  // From the lock row: down to the first window row, up to the last.
  EXPECT_EQ(navigation[*windowStepIndex(navigation, {}, 1)].scrollID, "lumo-previous-window:p");
  EXPECT_EQ(navigation[*windowStepIndex(navigation, {}, -1)].scrollID, "lumo-window:q");
  // From the recent tab r down: over the group row to window x.
  EXPECT_EQ(navigation[*windowStepIndex(navigation, {"lumo-special:recent-tabs", "r"}, 1)].scrollID,
            "lumo-window:x");
  // From the first window row up wraps to the last.
  EXPECT_EQ(
      navigation[*windowStepIndex(navigation, {"lumo-special:previous-strips", "p"}, -1)].scrollID,
      "lumo-window:q");
  EXPECT_FALSE(windowStepIndex({NavTarget{.scrollID = "lumo-lock"}}, {}, 1));
}

TEST(SwitcherNavigation, ASectionOpensWithItsSelectionUnlessSetByHand) {
  LumoSwitcherState state = listedState(LumoPreviewMode::NoPreview);
  state.selection = {"auto:1", "q"};
  EXPECT_TRUE(sectionExpanded(state, "auto:1"));
  EXPECT_FALSE(sectionExpanded(state, "lumo-priority:auto:3"));
  state.expansionOverrides = {{"auto:1", false}, {"lumo-priority:auto:3", true}};
  EXPECT_FALSE(sectionExpanded(state, "auto:1"));
  EXPECT_TRUE(sectionExpanded(state, "lumo-priority:auto:3"));
}

TEST(SwitcherSettings, UnknownModesAndSizesFallBack) {
  EXPECT_EQ(previewModeFromText("Focus Window"), LumoPreviewMode::FocusWindow);
  EXPECT_EQ(previewModeFromText("focus window"), LumoPreviewMode::Tiles);
  EXPECT_EQ(previewModeFromText(std::nullopt), LumoPreviewMode::Tiles);
  EXPECT_EQ(previewModeText(LumoPreviewMode::NoPreview), "No Preview");
  EXPECT_EQ(thumbnailSizeFromSetting(-3), 192);
  EXPECT_EQ(thumbnailSizeFromSetting(0), 192);
  EXPECT_EQ(thumbnailSizeFromSetting(96), 96);
}

// ---- capture sizes and windows ----

TEST(CaptureRules, SizesFollowTheWindowsShapeWithinTheirBounds) {
  using Size = std::pair<int, int>;
  EXPECT_EQ(captureSize({0, 0, 800, 600}, 192, true), Size(192, 144));
  EXPECT_EQ(captureSize({0, 0, 800, 600}, 192, false), Size(256, 192));
  // Very wide: the preview stops at two and a half times its height.
  EXPECT_EQ(captureSize({0, 0, 8000, 100}, 100, false), Size(250, 100));
  // Very tall: the preview is never narrower than its height.
  EXPECT_EQ(captureSize({0, 0, 100, 8000}, 100, false), Size(100, 100));
  // No area counts as one by one, and nothing is smaller than a pixel.
  EXPECT_EQ(captureSize({0, 0, 0, 0}, 192, true), Size(192, 192));
  EXPECT_EQ(captureSize({0, 0, 5000, 1}, 64, true), Size(64, 1));
  // An absurd shape is held to a size that can be drawn.
  EXPECT_EQ(captureSize({0, 0, 1, 1e9}, 192, true), Size(192, 8192));
}

ShareableWindow shared(uint32_t number, Pid pid, std::string title) {
  return {number, pid, std::move(title), Rect{0, 0, 400, 300}};
}

TEST(CaptureRules, WindowsResolveByNumberThenTitleThenPositionThenFirst) {
  ShareableContent content{{shared(10, 5, "Other"), shared(11, 5, "Report - Google Chrome"),
                            shared(12, 5, "Mail"), shared(13, 5, "Mail"), shared(20, 6, "Mail")},
                           {}};
  auto numberOf = [&](RunningAppItem task) {
    auto found = resolveShareableWindow(task, content);
    return found ? int(found->windowID) : -1;
  };
  EXPECT_EQ(numberOf(item("cg:5:13", 5, "Other")), 13);
  EXPECT_EQ(numberOf(item("cg:13", 5, "Other")), 13);
  EXPECT_EQ(numberOf(item("ax:5:hash:1", 5, "Mail")), 12) << "the first of two equal titles";
  EXPECT_EQ(numberOf(item("ax:5:hash:2", 5, "  Report \n")), 11) << "normalised titles";
  EXPECT_EQ(numberOf(item("ax:5:hash:3", 5, "Gone", 2)), 12) << "by position";
  EXPECT_EQ(numberOf(item("ax:5:hash:4", 5, "Gone", 9)), 10) << "the first as the last resort";
  EXPECT_EQ(numberOf(item("cg:5:99", 5, "Mail")), 12) << "an unknown number falls through";
  EXPECT_EQ(numberOf(item("ax:7:hash:1", 7, "Mail")), -1) << "no window of that process";
}

// ---- the card ----

TEST(OverlayCard, ItsSizeFollowsTheModeAndTheScreen) {
  LumoSwitcherState state;
  EXPECT_EQ(overlayCardSize(state, {1440, 900}), (Size{900, 620}));
  state.thumbnailSize = 256;
  EXPECT_EQ(overlayCardSize(state, {1440, 900}), (Size{1152, 620})) << "four tiles and margins";
  state.previewMode = LumoPreviewMode::NoPreview;
  EXPECT_EQ(overlayCardSize(state, {1440, 900}), (Size{720, 620}));
  EXPECT_EQ(overlayCardSize(state, {400, 300}), (Size{440, 360})) << "never below its least";
}

TEST(OverlayCard, TheSelectedTileIsKeptInSightAndTilesFlowAcrossGroups) {
  LumoSwitcherState state;
  std::vector<RunningAppItem> many;
  for (int i = 0; i < 40; ++i)
    many.push_back(item("w" + std::to_string(i), 1));
  state.normalGroups = {group("auto:1", {many.begin(), many.begin() + 2}),
                        group("auto:2", {many.begin() + 2, many.end()})};
  auto tiles = [](const OverlayLayout& layout) {
    std::vector<std::string> ids;
    for (const auto& row : layout.rows) {
      if (row.kind == OverlayRow::Kind::Tile) ids.push_back(row.item->id);
    }
    return ids;
  };
  OverlayLayout first = layoutOverlay(state, {1440, 900});
  ASSERT_GE(tiles(first).size(), 4u);
  EXPECT_EQ(tiles(first)[2], "w2") << "the second group's tiles go on in the same row";
  EXPECT_EQ(first.rows.front().kind, OverlayRow::Kind::Lock);

  state.selection = {"auto:2", "w39"};
  OverlayLayout last = layoutOverlay(state, {1440, 900});
  EXPECT_EQ(tiles(last).back(), "w39");
  EXPECT_TRUE(last.rows.back().selected);
  EXPECT_NE(tiles(last).front(), "w0") << "rows above moved out of sight";
  for (const auto& row : last.rows) {
    EXPECT_GE(row.frame.minY(), last.card.minY() + kOverlayTopBarHeight - 0.5);
    EXPECT_LE(row.frame.maxY(), last.card.maxY() - kOverlayFooterHeight + 0.5);
  }
}

}  // namespace
}  // namespace tolv
