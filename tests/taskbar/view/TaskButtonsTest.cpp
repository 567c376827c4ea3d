#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>

#include "platform/sim/SimScreens.h"
#include "platform/sim/SimSystemCommands.h"
#include "support/SimModel.h"
#include "support/TestApplication.h"
#include "taskbar/FixedTextMeasurer.h"
#include "taskbar/PanelDescription.h"
#include "taskbar/view/GroupPopupView.h"
#include "taskbar/view/QtMenus.h"
#include "taskbar/view/TaskbarPanelController.h"
#include "taskbar/view/WorkspacePopupView.h"

namespace tolv {
namespace {

using testing::app;
using testing::window;

bool near(const QColor& a, const QColor& b, int tolerance) {
  return std::abs(a.red() - b.red()) <= tolerance && std::abs(a.green() - b.green()) <= tolerance &&
         std::abs(a.blue() - b.blue()) <= tolerance;
}

int brightness(const QColor& color) {
  return color.red() + color.green() + color.blue();
}

class TaskButtons : public ::testing::Test {
 protected:
  testing::SimModel sim;
  AppModel& model = sim.model();
  FixedTextMeasurer measure;
  std::unique_ptr<TaskbarPanelController> controller;
  const Screen screen = sim::SimScreens::standardScreen();

  static void SetUpTestSuite() { tolv::testing::ensureTestApplication(); }

  // Editor with two windows, the first active, and Mail with one, on a bottom bar.
  void start(const std::string& grouping = "never", const std::string& location = "bottomL") {
    model.settings.groupingMode = grouping;
    model.settings.taskbarLocation = location;
    // The bar stays in view while the pointer is elsewhere.
    model.settings.autoHideEnabled = false;
    sim::AppSetup editor = app(1, "Editor", {window("One"), window("Two")});
    editor.active = true;
    sim.desktop.populate({editor, app(2, "Mail", {window("Inbox")})});
    model.start();
    settle();
    controller = std::make_unique<TaskbarPanelController>(model, measure);
    controller->rebuildPanels();
  }
  void settle() { sim.desktop.runLoop().advance(3.0); }

  const TaskbarPanel& panel() { return *controller->panels().panels().front(); }
  // The tab's frame on the screen, y up.
  Rect tabFrame(const std::string& name) {
    for (const auto& tab : panel().drawing.tabs) {
      if (tab.title == name) return tabFrameOnScreen(panel(), tab);
    }
    ADD_FAILURE() << "no tab " << name;
    return {};
  }
  Point centre(const std::string& name) {
    Rect frame = tabFrame(name);
    return {frame.midX(), frame.midY()};
  }
  QColor pixel(double x, double y) {
    QImage image = controller->snapshot(panel());
    // Image rows run down from the screen's top; row r covers y from maxY - r - 1 to maxY - r.
    return image.pixelColor(qFloor(x - screen.frame.x), qFloor(screen.frame.maxY() - y));
  }
  bool isActive(const std::string& name) {
    for (const auto& item : model.runningApps.get()) {
      if (item.name == name) return item.isActive;
    }
    return false;
  }
};

TEST_F(TaskButtons, TheActiveTabCarriesItsStripAlongTheBottomTwoPointsHigh) {
  start();
  Rect one = tabFrame("One");
  QColor strip(0x09, 0x3D, 0x91);
  EXPECT_TRUE(near(pixel(one.midX(), one.y + 0.5), strip, 14))
      << pixel(one.midX(), one.y + 0.5).name().toStdString();
  EXPECT_TRUE(near(pixel(one.midX(), one.y + 1.5), strip, 14));
  EXPECT_FALSE(near(pixel(one.midX(), one.y + 2.5), strip, 40));
  // Seven points in from each side.
  EXPECT_FALSE(near(pixel(one.x + 5, one.y + 0.5), strip, 40));
  Rect inbox = tabFrame("Inbox");
  EXPECT_FALSE(near(pixel(inbox.midX(), inbox.y + 0.5), strip, 40));
}

TEST_F(TaskButtons, OnATopBarTheStripIsThreePointsHigh) {
  start("never", "topL");
  Rect one = tabFrame("One");
  QColor strip(0x09, 0x3D, 0x91);
  // The strip runs along the tab's bottom edge, which is its lower side on screen.
  EXPECT_TRUE(near(pixel(one.midX(), one.y + 2.5), strip, 14));
  EXPECT_FALSE(near(pixel(one.midX(), one.y + 3.5), strip, 40));
}

TEST_F(TaskButtons, TheActiveTabIsLighterUnlessTheHighlightIsInverted) {
  start();
  Rect one = tabFrame("One");
  Rect two = tabFrame("Two");
  // Beside the title, above the strip.
  auto fill = [&](const Rect& frame) { return pixel(frame.maxX() - 3, frame.midY()); };
  EXPECT_GT(brightness(fill(one)), brightness(fill(two)) + 6);
  model.settings.invertTaskbarButtonHighlight = true;
  model.modelChanged.emit();
  EXPECT_LT(brightness(fill(one)), brightness(fill(two)) - 6);
}

TEST_F(TaskButtons, ABadgeLiesAtTheTopLeadingCornerInTheBadgeColour) {
  start();
  auto items = model.runningApps.get();
  for (auto& item : items)
    item.hasNotificationBadge = item.name == "Inbox";
  model.runningApps = items;
  Rect inbox = tabFrame("Inbox");
  QColor badge = pixel(inbox.x + 3.5, inbox.maxY() - 4.5);
  EXPECT_TRUE(near(badge, QColor(0xFF, 0x3B, 0x30), 30)) << badge.name().toStdString();
  Rect two = tabFrame("Two");
  EXPECT_FALSE(near(pixel(two.x + 3.5, two.maxY() - 4.5), QColor(0xFF, 0x3B, 0x30), 60));
}

TEST_F(TaskButtons, AClickActivatesATabAndASecondClickMinimisesIt) {
  start();
  auto report = controller->click(centre("Inbox"), MouseButton::Left);
  ASSERT_TRUE(report);
  EXPECT_TRUE(report->performed);
  EXPECT_EQ(sim.desktop.activePid(), 2);
  settle();
  EXPECT_TRUE(isActive("Inbox"));
  Rect inbox = tabFrame("Inbox");
  EXPECT_TRUE(near(pixel(inbox.midX(), inbox.y + 0.5), QColor(0x09, 0x3D, 0x91), 14))
      << "the strip followed";

  ASSERT_TRUE(controller->click(centre("Inbox"), MouseButton::Left));
  EXPECT_TRUE(sim.desktop.findWindow(2, {.title = "Inbox"})->setup.minimized);
  EXPECT_FALSE(controller->click({5, 500}, MouseButton::Left)) << "nothing there";
}

TEST_F(TaskButtons, ARightClickOpensTheTabsMenuAndItsItemsAct) {
  start();
  auto report = controller->click(centre("Two"), MouseButton::Right);
  ASSERT_TRUE(report);
  EXPECT_EQ(report->decision.result, ClickResult::OpenMenu);
  ASSERT_TRUE(controller->lastMenu());
  EXPECT_TRUE(findMenuItem(*controller->lastMenu(), "Quit Editor"));
  EXPECT_FALSE(controller->chooseMenuItem("No Such Item"));
  EXPECT_TRUE(controller->chooseMenuItem("Close Tab"));
  EXPECT_FALSE(controller->lastMenu());
  EXPECT_FALSE(sim.desktop.findWindow(1, {.title = "Two"}));
}

TEST_F(TaskButtons, AGroupTabOpensItsPopupUntilPopupsAreDismissed) {
  start("always");
  auto report = controller->click(centre("Editor Tabs"), MouseButton::Left);
  ASSERT_TRUE(report);
  EXPECT_EQ(report->decision.result, ClickResult::OpenGroupPopup);
  EXPECT_EQ(controller->openGroupPopup(), "auto:1");
  EXPECT_THAT(model.openGroupedLists.get(), ::testing::ElementsAre("auto:1"));
  model.taskbarPopupDismissGeneration = model.taskbarPopupDismissGeneration.get() + 1;
  EXPECT_FALSE(controller->openGroupPopup());
  EXPECT_TRUE(model.openGroupedLists.get().empty());
  // A click outside makes the toolkit hide the popup; the model follows.
  ASSERT_TRUE(controller->click(centre("Editor Tabs"), MouseButton::Left));
  ASSERT_TRUE(controller->groupPopupWindow());
  controller->groupPopupWindow()->hide();
  QCoreApplication::processEvents();
  EXPECT_FALSE(controller->openGroupPopup());
  EXPECT_TRUE(model.openGroupedLists.get().empty());
  // Mail's group holds one window: its tab acts as the window's.
  ASSERT_TRUE(controller->click(centre("Inbox"), MouseButton::Left));
  EXPECT_EQ(sim.desktop.activePid(), 2);
}

TEST_F(TaskButtons, TheGroupPopupsRowsActivateTheirWindowsAndCarryMenus) {
  start("always");
  ASSERT_TRUE(controller->click(centre("Editor Tabs"), MouseButton::Left));
  ASSERT_TRUE(controller->groupPopupWindow());
  auto* view = qobject_cast<GroupPopupView*>(controller->groupPopupWindow());
  ASSERT_TRUE(view);
  EXPECT_EQ(view->partAt(view->rowRect(1).center()), std::make_pair(GroupPopupPart::Row, 1));

  EXPECT_FALSE(controller->clickGroupPopup(GroupPopupPart::Row, 1, MouseButton::Right));
  ASSERT_TRUE(controller->lastMenu());
  EXPECT_TRUE(findMenuItem(*controller->lastMenu(), "Minimize Window"));
  EXPECT_TRUE(controller->openGroupPopup()) << "a menu leaves the popup open";

  EXPECT_TRUE(controller->clickGroupPopup(GroupPopupPart::Row, 1, MouseButton::Left));
  EXPECT_FALSE(controller->openGroupPopup());
  EXPECT_FALSE(controller->groupPopupWindow());
  settle();
  EXPECT_TRUE(isActive("Two"));
}

TEST_F(TaskButtons, TheGroupPopupsFooterHidesAllWindows) {
  start("always");
  ASSERT_TRUE(controller->click(centre("Editor Tabs"), MouseButton::Left));
  EXPECT_TRUE(controller->clickGroupPopup(GroupPopupPart::HideAll, -1, MouseButton::Left));
  EXPECT_TRUE(sim.desktop.findWindow(1, {.title = "One"})->setup.minimized);
  EXPECT_TRUE(sim.desktop.findWindow(1, {.title = "Two"})->setup.minimized);
  EXPECT_FALSE(controller->clickGroupPopup(GroupPopupPart::Row, 0, MouseButton::Left))
      << "the popup is closed";
}

TEST_F(TaskButtons, TheWorkspaceButtonTogglesItsListBesideIt) {
  start();
  ManagedWorkspaceTask desktop, keynote;
  desktop.id = "1";
  desktop.name = "Desktop 1";
  desktop.isDesktopSpace = true;
  desktop.isCurrent = true;
  keynote.id = "2";
  keynote.name = "Keynote";
  model.managedWorkspaceTasks = {desktop, keynote};
  Rect button = tabFrame("Workspaces");
  ASSERT_TRUE(controller->click(centre("Workspaces"), MouseButton::Left));
  ASSERT_TRUE(controller->workspacePanelShown());
  QWidget* list = controller->workspacePanelWindow();
  EXPECT_EQ(list->size(), QSize(270, 120));
  // Above a bottom bar, from the button's leading edge; the toolkit's y runs down.
  EXPECT_EQ(list->pos(), QPoint(qRound(button.x), 900 - 34 - 120));

  EXPECT_FALSE(controller->clickWorkspacePanel(1, WorkspaceRowPart::Body, MouseButton::Right));
  ASSERT_TRUE(controller->lastMenu());
  EXPECT_TRUE(findMenuItem(*controller->lastMenu(), "Force Placement"));
  EXPECT_TRUE(controller->clickWorkspacePanel(1, WorkspaceRowPart::Body, MouseButton::Left));

  ASSERT_TRUE(controller->click(centre("Workspaces"), MouseButton::Left));
  EXPECT_FALSE(controller->workspacePanelShown());

  ASSERT_TRUE(controller->click(centre("Workspaces"), MouseButton::Left));
  controller->workspacePanelWindow()->hide();
  QCoreApplication::processEvents();
  EXPECT_FALSE(controller->workspacePanelShown()) << "a click outside closes the list";
}

TEST_F(TaskButtons, OpenWSListOpensTheListAndItsHeaderOpensTheOverview) {
  sim.desktop.setSpaces({{.uuid = "D1", .current = true}, {.uuid = "D2"}});
  start();
  model.refreshManagedWorkspaces();
  controller->rebuildPanels();
  ASSERT_FALSE(controller->click(centre("Workspaces"), MouseButton::Right)->performed);
  ASSERT_TRUE(controller->chooseMenuItem("Open WS List"));
  ASSERT_TRUE(controller->workspacePanelShown());

  EXPECT_TRUE(controller->clickWorkspacePanel(-1, WorkspaceRowPart::Body, MouseButton::Left));
  QCoreApplication::processEvents();
  EXPECT_FALSE(controller->workspacePanelShown());
  ASSERT_FALSE(sim.desktop.actionLog().empty());
  EXPECT_EQ(sim.desktop.actionLog().back().value("kind", ""), "dockNotification");
  EXPECT_EQ(sim.desktop.actionLog().back().value("name", ""), "com.apple.expose.awake");
}

TEST_F(TaskButtons, WithoutAnOverviewTheListsHeaderIsAPlainTitle) {
  sim.desktop.setSpaces({{.uuid = "D1", .current = true}, {.uuid = "D2"}});
  sim.desktop.systemCommands().setHasDesktopOverview(false);
  start();
  model.refreshManagedWorkspaces();
  controller->rebuildPanels();
  ASSERT_FALSE(controller->click(centre("Workspaces"), MouseButton::Right)->performed);
  ASSERT_TRUE(controller->chooseMenuItem("Open WS List"));
  ASSERT_TRUE(controller->workspacePanelShown());
  const size_t logged = sim.desktop.actionLog().size();

  EXPECT_FALSE(controller->clickWorkspacePanel(-1, WorkspaceRowPart::Body, MouseButton::Left));
  QCoreApplication::processEvents();
  EXPECT_TRUE(controller->workspacePanelShown()) << "the header leaves the list open";
  EXPECT_EQ(sim.desktop.actionLog().size(), logged);
  auto* list = qobject_cast<WorkspacePopupView*>(controller->workspacePanelWindow());
  ASSERT_NE(list, nullptr);
  EXPECT_FALSE(list->partAt(QPointF(40, 10))) << "the header is no target";
  EXPECT_TRUE(list->partAt(list->rowRect(0).center()));
}

TEST(QtMenus, TheToolkitMenuFollowsTheTreeAndHandsBackTheChosenAction) {
  tolv::testing::ensureTestApplication();
  MenuItem first{"First", MenuAction{}, true, false, {}};
  first.action->subject = "a";
  MenuItem greyed{"Greyed", MenuAction{}, false, false, {}};
  MenuItem inner{"Inner", MenuAction{}, true, false, {}};
  inner.action->subject = "b";
  MenuItem sub{"Sub", std::nullopt, true, false, {inner}};
  MenuItem divider;
  divider.separator = true;
  std::vector<std::string> chosen;
  auto menu = makeQMenu({first, divider, greyed, sub},
                        [&](const MenuAction& action) { chosen.push_back(action.subject); });
  auto actions = menu->actions();
  ASSERT_EQ(actions.size(), 4);
  EXPECT_EQ(actions[0]->text(), "First");
  EXPECT_TRUE(actions[1]->isSeparator());
  EXPECT_FALSE(actions[2]->isEnabled());
  ASSERT_TRUE(actions[3]->menu());
  actions[3]->menu()->actions().front()->trigger();
  actions[0]->trigger();
  EXPECT_THAT(chosen, ::testing::ElementsAre("b", "a"));
}

TEST_F(TaskButtons, AColouredTabIsFilledWithItsEffectiveColourAtTheTabOpacity) {
  start();
  std::string inbox;
  for (const auto& item : model.runningApps.get()) {
    if (item.name == "Inbox") inbox = item.id;
  }
  Rect frame = tabFrame("Inbox");
  auto fill = [&] { return pixel(frame.maxX() - 3, frame.midY()); };
  const QColor plain = fill();

  model.settings.tabColorOpacity = 0.9;
  model.setLiveTabColor("Custom:#FF0000", inbox);
  QColor strong = fill();
  EXPECT_GT(strong.red(), 200) << strong.name().toStdString();
  EXPECT_LT(strong.green(), 60) << strong.name().toStdString();
  model.settings.tabColorOpacity = 0.2;
  model.modelChanged.emit();
  EXPECT_LT(fill().red(), strong.red() - 60) << "a lower opacity lets the bar through";

  // Cleared, the tab shows its application's lasting colour, without a live entry.
  model.settings.tabColorOpacity = 0.9;
  model.settings.defaultAppColors["com.example.Mail"] = "Custom:#00FF00";
  model.setLiveTabColor(std::nullopt, inbox);
  QColor lasting = fill();
  EXPECT_GT(lasting.green(), 200) << lasting.name().toStdString();
  EXPECT_LT(lasting.red(), 60) << lasting.name().toStdString();

  // An unreadable lasting colour paints nothing.
  model.settings.defaultAppColors["com.example.Mail"] = "Custom:#00FF0";
  model.modelChanged.emit();
  EXPECT_TRUE(near(fill(), plain, 2)) << fill().name().toStdString();
}

}  // namespace
}  // namespace tolv
