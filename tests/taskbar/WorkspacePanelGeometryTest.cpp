#include <gtest/gtest.h>

#include "taskbar/WorkspacePanelGeometry.h"

namespace tolv {
namespace {

Screen screen(Rect frame, Rect visible) {
  Screen result;
  result.frame = frame;
  result.visibleFrame = visible;
  return result;
}

const Screen kMain = screen({0, 0, 1440, 900}, {0, 0, 1440, 870});
const Screen kRight = screen({1440, 0, 1920, 1080}, {1440, 0, 1920, 1050});

TEST(WorkspacePanelSize, GrowsWithTheWorkspacesFromAFloorOf92) {
  EXPECT_EQ(workspacePanelSize(0, "bottomL"), (Size{270, 92}));
  EXPECT_EQ(workspacePanelSize(1, "bottomL"), (Size{270, 92}));
  EXPECT_EQ(workspacePanelSize(2, "bottomL"), (Size{270, 120}));
  EXPECT_EQ(workspacePanelSize(5, "topR"), (Size{270, 228}));
  EXPECT_EQ(workspacePanelSize(2, "leftSide"), (Size{120, 270}));
}

TEST(WorkspacePanelFrame, StandsByTheButtonForEachLocation) {
  Rect button{600, 3, 48, 28};
  std::vector<Screen> screens{kMain};
  EXPECT_EQ(workspacePanelFrame("bottomL", button, screens, 0, 2), (Rect{600, 34, 270, 120}));
  EXPECT_EQ(workspacePanelFrame("bottomR", button, screens, 0, 2), (Rect{378, 34, 270, 120}));
  Rect top{600, 839, 48, 28};
  EXPECT_EQ(workspacePanelFrame("topL", top, screens, 0, 2), (Rect{600, 716, 270, 120}));
  EXPECT_EQ(workspacePanelFrame("topR", top, screens, 0, 2), (Rect{378, 716, 270, 120}));
  Rect side{3, 400, 28, 48};
  EXPECT_EQ(workspacePanelFrame("leftSide", side, screens, 0, 2), (Rect{31, 630, 120, 270}));
  EXPECT_EQ(workspacePanelFrame("rightSide", Rect{1409, 400, 28, 48}, screens, 0, 2),
            (Rect{1286, 0, 120, 270}));
}

TEST(WorkspacePanelFrame, KeepsInsideTheVisibleFrameOfTheButtonsScreen) {
  std::vector<Screen> screens{kMain, kRight};
  // Near the right end of the second screen the list moves back left.
  EXPECT_EQ(workspacePanelFrame("bottomL", Rect{3300, 3, 48, 28}, screens, 0, 1),
            (Rect{3360 - 270, 34, 270, 92}));
  // Anchored right near the left end it moves right to the screen's start.
  EXPECT_EQ(workspacePanelFrame("bottomR", Rect{1450, 3, 48, 28}, screens, 0, 1),
            (Rect{1440, 34, 270, 92}));
  // A button on no screen uses the main screen.
  EXPECT_EQ(workspacePanelFrame("bottomL", Rect{-500, -500, 48, 28}, screens, 1, 1).x, 1440);
}

TEST(WorkspacePanelFrame, ATallListStandsAboveTheButtonWhenItWouldPassTheTop) {
  std::vector<Screen> screens{kMain};
  // Twenty-five workspaces: 948 high, more than the visible 870.
  Rect frame = workspacePanelFrame("bottomL", Rect{600, 3, 48, 28}, screens, 0, 25);
  EXPECT_EQ(frame.y, 0) << "no lower than the visible frame";
  // A top bar keeps its place below the menu bar whatever the height.
  EXPECT_EQ(workspacePanelFrame("topL", Rect{600, 839, 48, 28}, screens, 0, 25).y,
            900 - 30 - 34 - 948);
}

}  // namespace
}  // namespace tolv
