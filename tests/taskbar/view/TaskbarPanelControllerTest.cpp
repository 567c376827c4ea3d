#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>

#include <filesystem>

#include "platform/sim/SimPointer.h"
#include "platform/sim/SimScreens.h"
#include "support/SimModel.h"
#include "support/TestApplication.h"
#include "taskbar/FixedTextMeasurer.h"
#include "taskbar/view/TaskbarPanelController.h"

namespace tolv {
namespace {

using testing::app;
using testing::window;

const QColor kDesktop(40, 44, 52);
const QColor kBase(0x90, 0x91, 0x96);

// The bar's colour at 0.97 over the plain desktop.
QColor barOverDesktop() {
  auto mix = [](int bar, int desk) { return qRound(0.97 * bar + 0.03 * desk); };
  return QColor(mix(kBase.red(), kDesktop.red()), mix(kBase.green(), kDesktop.green()),
                mix(kBase.blue(), kDesktop.blue()));
}

bool near(const QColor& a, const QColor& b, int tolerance = 2) {
  return std::abs(a.red() - b.red()) <= tolerance && std::abs(a.green() - b.green()) <= tolerance &&
         std::abs(a.blue() - b.blue()) <= tolerance;
}

std::string describe(const QColor& color) {
  return color.name().toStdString();
}

std::string title(int n) {
  return "Window " + std::string(13, static_cast<char>('A' + n));
}

class TaskbarPanelsOnScreen : public ::testing::Test {
 protected:
  testing::SimModel sim;
  AppModel& model = sim.model();
  FixedTextMeasurer measure;
  std::filesystem::path directory;

  static void SetUpTestSuite() { tolv::testing::ensureTestApplication(); }

  TaskbarPanelsOnScreen() {
    directory =
        std::filesystem::path(sim.desktop.applicationSupportFolder()).parent_path() / "shots";
    model.settings.groupingMode = "never";
  }

  // Eight windows of twenty letters: tabs of 190 points, five in the primary
  // row of a 1440 wide bottom bar and three on one overflow card.
  void openWindows(int count = 8) {
    std::vector<sim::WindowSetup> windows;
    for (int i = 0; i < count; ++i)
      windows.push_back(window(title(i)));
    sim.desktop.populate({app(10, "Mail", windows)});
    model.start();
    sim.desktop.runLoop().advance(3.0);
    ASSERT_EQ(model.runningApps->size(), static_cast<size_t>(count));
  }

  // A pixel of a snapshot at a point in the design's coordinates of its screen.
  static QColor pixel(const QImage& image, const Screen& screen, double x, double y) {
    return image.pixelColor(qFloor(x - screen.frame.x), qFloor(screen.frame.maxY() - y - 1));
  }
};

// A picture of a checkpoint shows the desktop's windows behind the bar, in
// the screen's coordinates, the bar in front of any window it overlaps.
TEST_F(TaskbarPanelsOnScreen, ASnapshotShowsTheDesktopsWindowsBehindTheBar) {
  model.settings.taskbarLocation = "bottomL";
  openWindows();
  TaskbarPanelController controller(model, measure);
  controller.rebuildPanels();
  const Screen screen = sim::SimScreens::standardScreen();
  const DesktopScene scene{{.frame = {600, 0, 400, 300}, .title = "Behind", .focused = true}};
  QImage image = controller.snapshot(*controller.panels().panels().front(), scene);

  const QColor body = pixel(image, screen, 800, 150);
  EXPECT_NE(body, kDesktop);
  EXPECT_GT(body.lightness(), 200) << describe(body);
  EXPECT_EQ(pixel(image, screen, 1100, 150), kDesktop) << "right of the window";
  EXPECT_EQ(pixel(image, screen, 800, 320), kDesktop) << "above the window";
  // The bar covers the window's lower edge, which stands under it.
  EXPECT_LT(pixel(image, screen, 800, 17).lightness(), 200);
}

TEST_F(TaskbarPanelsOnScreen, ABottomBarIsSavedWithItsTabsInTheirRows) {
  model.settings.taskbarLocation = "bottomL";
  openWindows();
  TaskbarPanelController controller(model, measure);
  controller.rebuildPanels();

  auto paths = controller.saveSnapshots(directory.string(), "first look");
  ASSERT_EQ(paths.size(), 1u);
  EXPECT_EQ(std::filesystem::path(paths[0]).filename(), "first_look-taskbar-0.png");
  QImage image(QString::fromStdString(paths[0]));
  ASSERT_FALSE(image.isNull());
  EXPECT_EQ(image.size(), QSize(1440, 900));
  const Screen screen = sim::SimScreens::standardScreen();

  auto panels = controller.describePanels();
  ASSERT_EQ(panels[0]["tabs"].size(), 5u);
  auto frame = panels[0]["tabs"][0]["frame"];
  EXPECT_EQ(frame, nlohmann::json::array({400, 3, 190, 28}));

  // The primary row's bar, a tab a shade lighter, and the desktop above.
  QColor bar = pixel(image, screen, 200, 17);
  EXPECT_TRUE(near(bar, barOverDesktop())) << describe(bar);
  QColor tab = pixel(image, screen, 400 + 186, 5);
  EXPECT_GT(tab.red(), bar.red() + 2) << describe(tab);
  EXPECT_TRUE(near(pixel(image, screen, 400 + 192, 17), barOverDesktop()));
  EXPECT_EQ(pixel(image, screen, 700, 500), kDesktop);
  // The title is drawn in white inside each tab of the primary row.
  for (int i = 0; i < 5; ++i) {
    int bright = 0;
    for (int x = 400 + i * 194 + 40; x < 400 + i * 194 + 180; ++x) {
      for (int y = 8; y < 26; ++y) {
        if (pixel(image, screen, x, y).lightness() > 220) ++bright;
      }
    }
    EXPECT_GT(bright, 40) << "tab " << i;
  }
  // The overflow card shows its outer edge above the primary row, against the
  // trailing end; its tabs are tucked away with it.
  double leading = 1440 - (131 + 8 + 3 * 190);
  EXPECT_TRUE(near(pixel(image, screen, 1400, 36), barOverDesktop(), 30));
  EXPECT_EQ(pixel(image, screen, leading - 20, 36), kDesktop);
  EXPECT_EQ(pixel(image, screen, 1400, 60), kDesktop);
}

TEST_F(TaskbarPanelsOnScreen, RevealedCardsShowTheirTabs) {
  model.settings.taskbarLocation = "bottomL";
  openWindows();
  TaskbarPanelController controller(model, measure);
  controller.rebuildPanels();
  controller.panels().panels()[0]->reveal->arrowClicked();
  auto tabs = controller.describePanels()[0]["tabs"];
  ASSERT_EQ(tabs.size(), 8u);
  // The card holds its entries in reverse order from its leading side.
  double leading = 1440 - (131 + 8 + 3 * 190);
  EXPECT_EQ(tabs[0]["frame"], nlohmann::json::array({leading + 5, 32 + 3, 190, 28}));

  QImage image = controller.snapshot(*controller.panels().panels()[0]);
  const Screen screen = sim::SimScreens::standardScreen();
  QColor inCard = pixel(image, screen, leading + 5 + 186, 32 + 5);
  EXPECT_GT(inCard.red(), barOverDesktop().red() + 2) << describe(inCard);
  EXPECT_TRUE(near(pixel(image, screen, leading + 2, 50), barOverDesktop()));
}

TEST_F(TaskbarPanelsOnScreen, ATopBarHangsFromTheTopOfItsScreen) {
  model.settings.taskbarLocation = "topL";
  openWindows(3);
  TaskbarPanelController controller(model, measure);
  controller.rebuildPanels();
  const auto& panel = *controller.panels().panels()[0];
  QImage image = controller.snapshot(panel);
  const Screen screen = sim::SimScreens::standardScreen();
  // The strip over the menu bar, then the primary row 28 below the top.
  EXPECT_TRUE(near(pixel(image, screen, 700, 890), barOverDesktop()));
  EXPECT_TRUE(near(pixel(image, screen, 200, 900 - 28 - 17), barOverDesktop()));
  EXPECT_EQ(pixel(image, screen, 700, 400), kDesktop);
  auto tab = controller.describePanels()[0]["tabs"][0]["frame"];
  EXPECT_EQ(tab, nlohmann::json::array({400, 900 - 28 - 3 - 28, 190, 28}));
}

TEST_F(TaskbarPanelsOnScreen, EveryScreenGetsItsPictureAndSideBarsStandUpright) {
  Screen second{"Side", Rect{1440, 0, 1024, 768}, Rect{1440, 0, 1024, 768}, 1};
  sim.desktop.screens().setScreens({sim::SimScreens::standardScreen(), second});
  model.settings.taskbarLocation = "leftSide";
  openWindows(2);
  TaskbarPanelController controller(model, measure);
  controller.rebuildPanels();
  auto paths = controller.saveSnapshots(directory.string(), "sides");
  ASSERT_EQ(paths.size(), 2u);
  QImage image(QString::fromStdString(paths[1]));
  EXPECT_EQ(image.size(), QSize(1024, 768));
  EXPECT_TRUE(near(pixel(image, second, 1440 + 17, 100), barOverDesktop()));
  EXPECT_EQ(pixel(image, second, 1440 + 500, 400), kDesktop);
  auto tab = controller.describePanels()[1]["tabs"][0]["frame"];
  EXPECT_EQ(tab, nlohmann::json::array({1440 + 3, 768 - 190, 28, 190}));
}

TEST_F(TaskbarPanelsOnScreen, AHiddenBarLeavesOnlyTheDesktop) {
  model.settings.taskbarLocation = "bottomL";
  openWindows(2);
  TaskbarPanelController controller(model, measure);
  controller.rebuildPanels();
  controller.autoHide().hidePanelsImmediately();
  auto panels = controller.describePanels();
  EXPECT_EQ(panels[0]["alpha"], 0.0);
  EXPECT_EQ(panels[1]["kind"], "edgeTrigger");
  EXPECT_EQ(panels[1]["visible"], true);
  QImage image = controller.snapshot(*controller.panels().panels()[0]);
  EXPECT_EQ(pixel(image, sim::SimScreens::standardScreen(), 200, 17), kDesktop);
}

TEST(SnapshotFileName, KeepsNamesSafeForAFolder) {
  EXPECT_EQ(snapshotFileName("after-click", "taskbar", 0), "after-click-taskbar-0.png");
  EXPECT_EQ(snapshotFileName("../a b/é", "taskbar", 2), ".._a_b___-taskbar-2.png");
}

}  // namespace
}  // namespace tolv
