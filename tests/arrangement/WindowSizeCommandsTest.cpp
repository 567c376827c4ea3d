#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/CommandTesting.h"
#include "arrangement/WindowGeometry.h"
#include "platform/sim/SimScreens.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using testing::window;

// The main screen, and a taller one to its right whose top edge stands 100
// points above the main screen's.
Screen mainScreen() {
  return {"main", {0, 0, 1440, 900}, {0, 70, 1440, 805}, 2};
}
Screen tallScreen() {
  return {"tall", {1440, -200, 1920, 1200}, {1440, -200, 1920, 1175}, 1};
}

TEST(WindowGeometry, AWindowOnTheSecondScreenFillsThatScreensVisibleFrame) {
  const AXWindowFrame window{{1600, 300}, {800, 600}};
  auto target = frameOnVisibleFrame(window, {mainScreen(), tallScreen()}, 0, 1.0);
  ASSERT_TRUE(target);
  // Flipped against the highest top edge (1000): 1000 - 975.
  EXPECT_EQ(target->position, (AXPoint{1440, 25}));
  EXPECT_EQ(target->size, (AXSize{1920, 1175}));
}

TEST(WindowGeometry, TheFlipUsesTheHighestEdgeOfAllScreensEvenOnTheMainScreen) {
  // y 1000 - 100 - 300 = 600 on the main screen.
  const AXWindowFrame window{{100, 100}, {400, 300}};
  EXPECT_EQ(screenOfWindow(window, {mainScreen(), tallScreen()}, 0)->identifier, "main");
  auto target = frameOnVisibleFrame(window, {mainScreen(), tallScreen()}, 0, 1.0);
  EXPECT_EQ(target->position, (AXPoint{0, 1000 - 875}));
  // With the main screen alone its own top edge counts.
  target = frameOnVisibleFrame(window, {mainScreen()}, 0, 1.0);
  EXPECT_EQ(target->position, (AXPoint{0, 25}));
}

TEST(WindowGeometry, RestoringGivesThreeQuartersAtTheTopLeftWhateverTheSizeBefore) {
  for (AXSize before : {AXSize{200, 100}, AXSize{1440, 900}, AXSize{3000, 2000}}) {
    auto target = frameOnVisibleFrame({{50, 60}, before}, {mainScreen()}, 0, 0.75);
    ASSERT_TRUE(target);
    EXPECT_EQ(target->position, (AXPoint{0, 25}));
    EXPECT_EQ(target->size, (AXSize{1080, 603.75}));
  }
}

TEST(WindowGeometry, AWindowOffEveryScreenGoesToTheMainScreenElseTheFirst) {
  const AXWindowFrame lost{{-5000, -5000}, {100, 100}};
  EXPECT_EQ(screenOfWindow(lost, {mainScreen(), tallScreen()}, 1)->identifier, "tall");
  EXPECT_EQ(screenOfWindow(lost, {mainScreen(), tallScreen()}, 7)->identifier, "main");
  EXPECT_FALSE(screenOfWindow(lost, {}, 0));
  EXPECT_FALSE(frameOnVisibleFrame(lost, {}, 0, 1.0));
}

TEST(WindowGeometry, AWindowAcrossTwoScreensBelongsToTheFirstListed) {
  const AXWindowFrame straddling{{1300, 300}, {400, 300}};
  EXPECT_EQ(screenOfWindow(straddling, {tallScreen(), mainScreen()}, 1)->identifier, "tall");
  EXPECT_EQ(screenOfWindow(straddling, {mainScreen(), tallScreen()}, 1)->identifier, "main");
}

class WindowSizeCommands : public testing::CommandTest {
 protected:
  void SetUp() override {
    desktop.screens().setScreens({mainScreen(), tallScreen()});
    sim::WindowSetup two = window("Two");
    two.position = {1600, 300};
    sim::AppSetup editor = app(1, "Editor", {window("One"), two});
    editor.active = true;
    startOn({editor});
  }
};

TEST_F(WindowSizeCommands, MaximisingFillsTheVisibleFrameOfTheWindowsScreen) {
  model().maximizeTask(shown("Two"));
  EXPECT_THAT(actions(), ElementsAre("unhide 1", "activate 1 0", "AXRaise Two",
                                     R"(AXPosition={"x":1440.0,"y":25.0} Two)",
                                     R"(AXSize={"height":1175.0,"width":1920.0} Two)"));
  EXPECT_EQ(windowSetup(1, "Two").position, (AXPoint{1440, 25}));
  EXPECT_EQ(windowSetup(1, "Two").size, (AXSize{1920, 1175}));
  EXPECT_THAT(activeNames(), ElementsAre("Two"));
}

TEST_F(WindowSizeCommands, UnMaximisingGivesThreeQuartersOfTheVisibleFrame) {
  model().maximizeTask(shown("Two"));
  model().restoreTaskSize(shown("Two"));
  EXPECT_EQ(windowSetup(1, "Two").position, (AXPoint{1440, 25}));
  EXPECT_EQ(windowSetup(1, "Two").size, (AXSize{1440, 881.25}));
}

TEST_F(WindowSizeCommands, AMinimisedWindowIsRestoredFirst) {
  desktop.changeWindow(1, {.title = "Two"}, {.minimized = true});
  model().maximizeTask(shown("Two"));
  EXPECT_EQ(actions().front(), "AXMinimized=false Two");
  EXPECT_FALSE(windowSetup(1, "Two").minimized);
  EXPECT_EQ(windowSetup(1, "Two").size, (AXSize{1920, 1175}));

  desktop.changeWindow(1, {.title = "One"}, {.minimized = true});
  desktop.failAttributeWrite(1, {.title = "One"}, ax::Minimized, true);
  const size_t mark = logSize();
  model().maximizeTask(shown("One"));
  EXPECT_THAT(actions(mark), ElementsAre("AXMinimized=false One"));
  EXPECT_TRUE(windowSetup(1, "One").minimized);
}

TEST_F(WindowSizeCommands, AnUnreadableFrameEndsTheCommandAfterTheRaise) {
  desktop.failAttribute(1, {.title = "Two"}, ax::Size, true);
  model().maximizeTask(shown("Two"));
  EXPECT_THAT(actions(), ElementsAre("unhide 1", "activate 1 0", "AXRaise Two"));
  EXPECT_THAT(activeNames(), ElementsAre("One"));
}

TEST_F(WindowSizeCommands, AFailingWriteEndsTheCommandAndLeavesWhatWasDone) {
  desktop.failAttributeWrite(1, {.title = "Two"}, ax::Position, true);
  model().maximizeTask(shown("Two"));
  EXPECT_EQ(actions().back(), R"(AXPosition={"x":1440.0,"y":25.0} Two)") << "no size written";
  EXPECT_THAT(activeNames(), ElementsAre("One"));

  desktop.failAttributeWrite(1, {.title = "Two"}, ax::Position, false);
  desktop.failAttributeWrite(1, {.title = "Two"}, ax::Size, true);
  model().maximizeTask(shown("Two"));
  EXPECT_EQ(windowSetup(1, "Two").position, (AXPoint{1440, 25})) << "moved, not resized";
  EXPECT_EQ(windowSetup(1, "Two").size, (AXSize{800, 600}));
  EXPECT_THAT(activeNames(), ElementsAre("One"));
}

}  // namespace
}  // namespace tolv
