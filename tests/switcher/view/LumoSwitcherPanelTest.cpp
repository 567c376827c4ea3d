#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>

#include "platform/sim/SimHotKeys.h"
#include "platform/sim/SimImages.h"
#include "support/SimModel.h"
#include "support/TestApplication.h"
#include "switcher/LumoSwitcherController.h"
#include "switcher/view/LumoSwitcherPanel.h"

namespace tolv {
namespace {

using testing::app;
using testing::window;

// The real overlay, drawn offscreen over a simulated desktop.
class SwitcherPanel : public ::testing::Test {
 protected:
  void SetUp() override {
    testing::ensureTestApplication();
    sim::AppSetup editor = app(1, "Editor", {window("One"), window("Two")});
    editor.active = true;
    sim.desktop.populate({editor, app(2, "Mail", {window("Inbox")})});
    sim.model().start();
    sim.desktop.runLoop().advance(3.0);
    auto owned = std::make_unique<LumoSwitcherPanel>(sim.desktop.images(), [] { return 900.0; });
    panel = owned.get();
    switcher = std::make_unique<LumoSwitcherController>(sim.model(), std::move(owned));
    panel->attach(*switcher);
    switcher->start();
  }

  // A press of the left button at a point of the overlay.
  void click(QPointF at, Qt::MouseButton button = Qt::LeftButton) {
    QMouseEvent press(QEvent::MouseButtonPress, at, panel->mapToGlobal(at), button, button,
                      Qt::NoModifier);
    QApplication::sendEvent(panel, &press);
  }
  const OverlayRow* rowTitled(const std::string& title) {
    for (const auto& row : panel->layout().rows) {
      if (row.title == title) return &row;
    }
    return nullptr;
  }
  static QPointF centre(const Rect& frame) { return {frame.midX(), frame.midY()}; }

  testing::SimModel sim;
  LumoSwitcherPanel* panel = nullptr;
  std::unique_ptr<LumoSwitcherController> switcher;
};

TEST_F(SwitcherPanel, CoversTheScreenAndDrawsTheCardWithTheWindowsAsTiles) {
  switcher->open(true);
  ASSERT_TRUE(panel->isVisible());
  EXPECT_EQ(panel->geometry(), QRect(0, 0, 1440, 900));
  const OverlayRow* inbox = rowTitled("Inbox");
  ASSERT_NE(inbox, nullptr);
  EXPECT_EQ(inbox->kind, OverlayRow::Kind::Tile);

  sim.desktop.runLoop().advance(0.5);  // the pictures come in
  QImage shown = panel->snapshot();
  const Rect card = panel->layout().card;
  // The card's top bar between the title and "Lock Open", and the picture in a tile.
  EXPECT_NEAR(shown.pixelColor(int(card.midX()), int(card.minY() + 10)).red(), 28, 6);
  const QColor picture = shown.pixelColor(int(inbox->frame.midX()), int(inbox->frame.minY() + 30));
  const QColor tileGround(40, 40, 48);
  EXPECT_NE(picture, tileGround) << "the captured picture fills the tile";
}

TEST_F(SwitcherPanel, AClickOnATileOpensItsWindowAndOnTheLockRowUnlocks) {
  switcher->open(true);
  const OverlayRow* lock = rowTitled("Lock Lumo Open");
  ASSERT_NE(lock, nullptr);
  click(centre(lock->frame));
  EXPECT_FALSE(panel->isVisible()) << "unlocked with Control up, it closes";

  switcher->open(true);
  const OverlayRow* two = rowTitled("Two");
  ASSERT_NE(two, nullptr);
  click(centre(two->frame));
  EXPECT_FALSE(panel->isVisible());
  ASSERT_FALSE(sim.desktop.actionLog().empty());
  EXPECT_EQ(sim.desktop.actionLog().back()["window"], "Two");
  EXPECT_EQ(sim.desktop.actionLog().back()["action"], "AXRaise");
}

TEST_F(SwitcherPanel, ThePointerSelectsTheRowItMovesOverAndAChevronOpensAGroup) {
  sim.defaults().set("lumoPreviewMode", "No Preview");
  switcher->open(true);
  const OverlayRow* group = rowTitled("Editor Tabs");
  ASSERT_NE(group, nullptr);
  EXPECT_EQ(rowTitled("One"), nullptr) << "a group without the selection is closed";
  QMouseEvent move(QEvent::MouseMove, centre(group->frame),
                   panel->mapToGlobal(centre(group->frame)), Qt::NoButton, Qt::NoButton,
                   Qt::NoModifier);
  QApplication::sendEvent(panel, &move);
  EXPECT_EQ(switcher->state().selection, (Selection{"auto:1", std::nullopt}));
  ASSERT_NE(rowTitled("One"), nullptr) << "the selected group opens";

  const OverlayRow* mail = rowTitled("Inbox");
  ASSERT_NE(mail, nullptr);
  ASSERT_EQ(mail->kind, OverlayRow::Kind::Group) << "Mail's one window names its group";
  click({mail->frame.minX() + 4, mail->frame.midY()});
  EXPECT_TRUE(panel->isVisible()) << "the chevron doesn't open the application";
  EXPECT_EQ(switcher->state().expansionOverrides.at("auto:2"), true);
}

}  // namespace
}  // namespace tolv
