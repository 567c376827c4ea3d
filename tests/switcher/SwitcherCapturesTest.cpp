#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "switcher/SwitcherTesting.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
using testing::window;

class Captures : public testing::SwitcherTest {
 protected:
  void SetUp() override {
    sim::AppSetup editor =
        app(1, "Editor", {window("One"), window("Two"), window("Three"), window("Four")});
    editor.active = true;
    startOn({editor, app(2, "Mail", {window("Inbox"), window("Sent")})});
  }
  sim::SimScreenCapture& capture() { return desktop.screenCapture(); }
  RunningAppItem task(const std::string& name) {
    for (const auto& item : model().runningApps.get()) {
      if (item.name == name) return item;
    }
    ADD_FAILURE() << "no task " << name;
    return {};
  }
  void showTiles(const std::vector<std::string>& names) {
    for (const auto& name : names)
      switcher->setTileVisible(task(name), true);
  }
  std::vector<std::string> publishedNames() {
    std::vector<std::string> names;
    for (const auto& [id, image] : switcher->state().thumbnailImages)
      names.push_back(nameOf(id));
    return names;
  }
};

TEST_F(Captures, TilesInSightAreCapturedAtMostFourAtATime) {
  switcher->open(true);
  showTiles({"One", "Two", "Three", "Four", "Inbox", "Sent"});
  advance(0.01);  // the list of windows arrives
  EXPECT_EQ(desktop.calls()["screenCapture.fetchShareableContent"], 1);
  EXPECT_EQ(switcher->captureInFlightCount(), 4);
  EXPECT_EQ(captures(), 4);
  EXPECT_EQ(desktop.calls()["screenCapture.captureDesktop"], 0) << "no slot left for it";
  advance(0.1);  // four answers, and each starts the next
  EXPECT_EQ(switcher->captureInFlightCount(), 2);
  advance(0.1);
  EXPECT_EQ(switcher->captureInFlightCount(), 0);
  EXPECT_EQ(captures(), 6);
  EXPECT_THAT(publishedNames(),
              UnorderedElementsAre("One", "Two", "Three", "Four", "Inbox", "Sent"));
  EXPECT_EQ(desktop.calls()["screenCapture.fetchShareableContent"], 1) << "once per opening";

  // A reload keeps the images: the same tiles come back from the cache.
  switcher->refreshList();
  showTiles({"One", "Two"});
  advance(0.5);
  EXPECT_EQ(captures(), 6);
  // Closing drops them all.
  switcher->close();
  EXPECT_THAT(switcher->state().thumbnailImages, IsEmpty());
}

TEST_F(Captures, TilesOutOfSightAreNeverCapturedAndATileInTwoPlacesOnce) {
  switcher->open(true);
  showTiles({"One", "Two", "One"});
  switcher->setTileVisible(task("One"), false);  // one of its two views went
  advance(1.0);
  EXPECT_EQ(captures(), 2);
  // With slots to spare, the desktop row's picture comes along.
  EXPECT_THAT(publishedNames(), UnorderedElementsAre("One", "Two", "lumo-special:show-desktop"));
}

TEST_F(Captures, AnAnswerAfterTheListChangedOrTheOverlayClosedChangesNothing) {
  capture().setDelay("Two", 1.0);
  switcher->open(true);
  showTiles({"Two"});
  advance(0.01);
  ASSERT_THAT(switcher->activeCaptureIDs(),
              UnorderedElementsAre(task("Two").id, "lumo-special:show-desktop"));
  switcher->refreshList();  // a new generation; the view shows no tile yet
  EXPECT_EQ(switcher->captureInFlightCount(), 0);
  advance(1.0);
  EXPECT_THAT(publishedNames(), IsEmpty()) << "the stale answers are dropped";
  EXPECT_EQ(switcher->captureInFlightCount(), 0);
  EXPECT_THAT(switcher->activeCaptureIDs(), IsEmpty());

  // Shown again, the tile is captured again, since nothing was cached.
  showTiles({"Two"});
  advance(0.01);
  EXPECT_EQ(captures(), 2);
  switcher->close();
  advance(2.0);
  EXPECT_THAT(publishedNames(), IsEmpty());
  EXPECT_EQ(switcher->captureInFlightCount(), 0);
}

TEST_F(Captures, ACaptureThatNeverAnswersHoldsOnlyItsOwnSlot) {
  capture().setDelay("One", std::nullopt);
  switcher->open(true);
  showTiles({"One", "Two"});
  advance(5.0);
  EXPECT_THAT(publishedNames(), ElementsAre("Two", "lumo-special:show-desktop"));
  EXPECT_EQ(switcher->captureInFlightCount(), 1);
  press(key_code::Escape);
  EXPECT_FALSE(switcher->panelIsVisible()) << "the overlay still closes";
  EXPECT_EQ(switcher->captureInFlightCount(), 0);
}

TEST_F(Captures, FailedEmptyAndAbsurdImagesLeaveTheFallbackAndAreNotRetried) {
  capture().setFailing("One", true);
  capture().setAnswerSize("Two", 0, 0);
  capture().setAnswerSize("Three", 9000, 2);
  switcher->open(true);
  showTiles({"One", "Two", "Three", "Four"});
  advance(1.0);
  EXPECT_THAT(publishedNames(), ElementsAre("Four"));
  switcher->requestThumbnail(task("One"));
  advance(1.0);
  EXPECT_EQ(captures(), 4) << "a failed capture is not tried again while the overlay stays";
}

TEST_F(Captures, WithoutPermissionTheListHasNoPreviewsAndThePromptComesOnce) {
  capture().setAccessGranted(false);
  sim.defaults().set("lumoPreviewMode", "Thumbnails");
  switcher->open(true);
  EXPECT_EQ(switcher->state().previewMode, LumoPreviewMode::NoPreview);
  showTiles({"One", "Two"});
  advance(1.0);
  EXPECT_EQ(captures(), 0);
  EXPECT_EQ(desktop.calls()["screenCapture.fetchShareableContent"], 0);
  switcher->close();
  switcher->open(true);
  EXPECT_EQ(desktop.calls()["screenCapture.requestAccess"], 1);
  EXPECT_EQ(stringValue(sim.defaults().value("lumoPreviewMode")), "Thumbnails")
      << "the user's choice stays stored";

  // Granted later: the next opening takes the stored mode again.
  switcher->close();
  capture().setAccessGranted(true);
  switcher->open(true);
  EXPECT_EQ(switcher->state().previewMode, LumoPreviewMode::Thumbnails);
}

TEST_F(Captures, InThumbnailsModeOnlyTheRowWhereSteppingStopsIsCaptured) {
  sim.defaults().set("lumoPreviewMode", "Thumbnails");
  controlDown();
  controlTab();
  for (int step = 0; step < 6; ++step)
    controlTab();  // 0.25 s apart: the preview's 0.3 s never pass
  EXPECT_EQ(captures(), 0);
  EXPECT_FALSE(switcher->state().thumbnailImage);
  advance(0.5);
  ASSERT_EQ(captures(), 1);
  EXPECT_EQ(desktop.actionLog().back()["title"], nameOf(selectedWindow()));
  EXPECT_TRUE(switcher->state().thumbnailImage);
  // The preview is as high as the thumbnail size and wider for a wide window.
  EXPECT_EQ(desktop.actionLog().back()["height"], 192);
  EXPECT_EQ(desktop.actionLog().back()["width"], 256);
  controlUp();
}

TEST_F(Captures, APreviewForARowLeftBeforeItsAnswerIsNotShown) {
  sim.defaults().set("lumoPreviewMode", "Thumbnails");
  capture().setDefaultDelay(1.0);
  controlDown();
  controlTab();
  for (int step = 0; step < 4; ++step)
    controlTab();  // past the group row to the window One
  advance(0.5);
  ASSERT_EQ(captures(), 1);
  controlTab();  // moves on while the capture is under way
  advance(1.0);
  EXPECT_FALSE(switcher->state().thumbnailImage);
  controlUp();
}

}  // namespace
}  // namespace tolv
