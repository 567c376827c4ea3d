#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "app/AppDelegate.h"
#include "platform/sim/SimAlerts.h"
#include "platform/sim/SimHotKeys.h"
#include "platform/sim/SimPointer.h"
#include "platform/sim/SimProcesses.h"
#include "platform/sim/SimRunLoop.h"
#include "platform/sim/SimScreens.h"
#include "support/SimModel.h"
#include "taskbar/FakePanelWindows.h"
#include "taskbar/FixedTextMeasurer.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
using testing::window;

using Journal = std::vector<std::string>;

bool modelStarted(AppModel& model) {
  return !model.life.observers.empty();
}

// The bar over the core's panels and fake windows.
class CoreTaskbar : public TaskbarController {
 public:
  CoreTaskbar(AppModel& model, AutoHideHooks hooks, Journal& journal)
      : hooks(hooks),
        model_(model),
        panels_(model, factory_, measurer_),
        autoHide_(model, panels_, std::move(hooks)),
        journal_(journal) {}

  void rebuildPanels() override {
    journal_.push_back(modelStarted(model_) ? "panels after start" : "panels before start");
    panels_.rebuildPanels();
  }
  AutoHide& autoHide() override { return autoHide_; }

  // What the delegate handed the bar, as its start button would use it.
  AutoHideHooks hooks;

 private:
  AppModel& model_;
  testing::FakePanelFactory factory_;
  FixedTextMeasurer measurer_;
  TaskbarPanels panels_;
  AutoHide autoHide_;
  Journal& journal_;
};

class FakeStartMenu : public StartMenuController {
 public:
  bool isVisible() const override { return visible; }
  void show(const Rect& taskbarFrame) override {
    shownFrom.push_back(taskbarFrame);
    visible = true;
  }
  bool containsPointer() const override { return visible; }
  void setOpacity(double alpha) override {
    if (alpha <= 0.01) visible = false;
  }
  void close() override { visible = false; }

  bool visible = false;
  std::vector<Rect> shownFrom;
};

class FakeSwitcher : public SwitcherController {
 public:
  FakeSwitcher(AppModel& model, sim::SimHotKeys& keys, Journal& journal)
      : model_(model), keys_(keys), journal_(journal) {}
  void start() override {
    journal_.push_back(std::string("switcher keys, model ") +
                       (modelStarted(model_) ? "started" : "not started") + ", " +
                       std::to_string(keys_.registered().size()) + " hot keys");
  }
  void stop() override {
    journal_.push_back(std::string("switcher stopped, model ") +
                       (modelStarted(model_) ? "running" : "stopped"));
  }
  bool panelIsVisible() const override { return visible; }
  void close() override {
    visible = false;
    ++closes;
  }

  bool visible = false;
  int closes = 0;

 private:
  AppModel& model_;
  sim::SimHotKeys& keys_;
  Journal& journal_;
};

class AppDelegateTest : public ::testing::Test {
 protected:
  sim::SimDesktop desktop;
  sim::SimHotKeys& keys = desktop.hotKeys();
  Journal journal;
  CoreTaskbar* taskbar = nullptr;
  FakeStartMenu* startMenu = nullptr;
  FakeSwitcher* switcher = nullptr;
  std::unique_ptr<AppDelegate> delegate;

  AppDelegateTest() {
    desktop.populate({app(10, "Notes", {window("Shopping")})});
    ControllerFactories factories;
    factories.makeSettings = [this](AppModel&) {
      journal.push_back("settings");
      return std::make_unique<SettingsController>();
    };
    factories.makeStartMenu = [this](AppModel&) {
      journal.push_back("start menu");
      auto made = std::make_unique<FakeStartMenu>();
      startMenu = made.get();
      return made;
    };
    factories.makeSwitcher = [this](AppModel& model) {
      journal.push_back("switcher");
      auto made = std::make_unique<FakeSwitcher>(model, keys, journal);
      switcher = made.get();
      return made;
    };
    factories.makeTaskbar = [this](AppModel& model, AutoHideHooks hooks) {
      journal.push_back("taskbar");
      auto made = std::make_unique<CoreTaskbar>(model, std::move(hooks), journal);
      taskbar = made.get();
      return made;
    };
    delegate = std::make_unique<AppDelegate>(desktop.platform(), std::move(factories));
  }

  AppModel& model() { return delegate->model(); }
  void launch(const std::string& location = "bottomL") {
    model().settings.taskbarLocation = location;
    delegate->applicationDidFinishLaunching();
    desktop.runLoop().advance(3.0);
  }
  // A key pressed while another application is frontmost, and the main queue's turn after it.
  bool press(uint32_t modifiers, int keyCode = key_code::Escape) {
    bool handled = keys.press(keyCode, modifiers);
    desktop.runLoop().runUntilIdle();
    return handled;
  }
  std::vector<HotKeyID> registeredIDs() {
    std::vector<HotKeyID> ids;
    for (const auto& [handle, registration] : keys.registered())
      ids.push_back(registration.id);
    return ids;
  }
  AutoHide& autoHide() { return taskbar->autoHide(); }
  Rect mainScreen() { return sim::SimScreens::standardScreen().frame; }
};

TEST_F(AppDelegateTest, LaunchBuildsTheControllersThenThePanelsThenStartsTheModelThenTheKeys) {
  EXPECT_EQ(delegate->state(), AppDelegate::State::Created);
  EXPECT_FALSE(modelStarted(model()));
  launch();

  EXPECT_EQ(delegate->state(), AppDelegate::State::Running);
  EXPECT_EQ(desktop.processes().activationPolicy(), ActivationPolicy::Accessory);
  EXPECT_THAT(journal,
              ElementsAre("settings", "start menu", "switcher", "taskbar", "panels before start",
                          "switcher keys, model started, 0 hot keys"));
  EXPECT_THAT(registeredIDs(), ElementsAre(HotKeyID{"TOLV", 1}, HotKeyID{"TOLV", 2}));
  EXPECT_EQ(keys.handlerCount(), 1u);
  EXPECT_EQ(keys.monitorCount(), 2u);
  EXPECT_THAT(testing::namesOf(model().runningApps.get()), ElementsAre("Shopping"));
  // The bar stays in view after launch until the user's first click.
  EXPECT_TRUE(autoHide().startupInteractionHoldOpen());
  EXPECT_THAT(startMenu->shownFrom, IsEmpty());
}

TEST_F(AppDelegateTest, ASecondCopyThatIsCancelledBuildsNothingAndTerminatesQuietly) {
  sim::SimProcessSetup older;
  older.pid = 500;
  desktop.processes().addProcess(older);
  desktop.alerts().queueAnswer({std::string("Cancel"), {}});
  launch();

  EXPECT_TRUE(desktop.processes().terminationRequested());
  EXPECT_THAT(journal, IsEmpty());
  EXPECT_FALSE(modelStarted(model()));
  EXPECT_TRUE(keys.registered().empty());
  EXPECT_EQ(keys.monitorCount(), 0u);

  delegate->applicationWillTerminate();
  EXPECT_EQ(delegate->state(), AppDelegate::State::Terminating);
  EXPECT_TRUE(desktop.processes().process(500)->alive);
}

TEST_F(AppDelegateTest, ControlEscapeShowsTheBarAndOpensTheStartMenuOverItsButton) {
  launch("bottomL");
  autoHide().hidePanelsImmediately();
  ASSERT_TRUE(model().taskbarIsHidden.get());

  // The key is taken at once; the work follows on the main queue.
  EXPECT_TRUE(keys.press(key_code::Escape, key_modifier::Control));
  EXPECT_THAT(startMenu->shownFrom, IsEmpty());
  desktop.runLoop().runUntilIdle();

  EXPECT_FALSE(model().taskbarIsHidden.get());
  EXPECT_FALSE(autoHide().panelsAreFullyHidden());
  ASSERT_EQ(startMenu->shownFrom.size(), 1u);
  EXPECT_TRUE(startMenu->shownFrom[0].intersects(mainScreen()));
  EXPECT_EQ(desktop.pointer().location(), (Point{8, 8}));

  // An open menu isn't opened again.
  press(key_modifier::Control);
  EXPECT_EQ(startMenu->shownFrom.size(), 1u);
}

TEST_F(AppDelegateTest, ControlEscapeOnABarElsewhereLeavesThePointerWhereItIs) {
  launch("topL");
  desktop.pointer().movePointer({300, 400});
  press(key_modifier::Control);
  EXPECT_EQ(startMenu->shownFrom.size(), 1u);
  EXPECT_EQ(desktop.pointer().location(), (Point{300, 400}));
}

TEST_F(AppDelegateTest, ControlEscapePutsThePointerOnTheScreenOfTheBar) {
  // The first screen is the main one; the bar there gives the frame.
  Screen side{"Side", Rect{1440, 0, 1024, 768}, Rect{1440, 0, 1024, 768}, 1};
  desktop.screens().setScreens({side, sim::SimScreens::standardScreen()});
  launch("bottomL");
  press(key_modifier::Control);
  EXPECT_EQ(desktop.pointer().location(), (Point{1448, 8}));
  ASSERT_EQ(startMenu->shownFrom.size(), 1u);
  EXPECT_TRUE(startMenu->shownFrom[0].intersects(side.frame));
}

TEST_F(AppDelegateTest, ControlEscapeWhileTheSwitcherShowsOnlyClosesIt) {
  launch("bottomL");
  switcher->visible = true;
  desktop.pointer().movePointer({300, 400});

  press(key_modifier::Control);
  EXPECT_EQ(switcher->closes, 1);
  EXPECT_THAT(startMenu->shownFrom, IsEmpty());
  EXPECT_EQ(desktop.pointer().location(), (Point{300, 400}));

  press(key_modifier::Control);
  EXPECT_EQ(startMenu->shownFrom.size(), 1u);
}

TEST_F(AppDelegateTest, ControlShiftEscapeOpensActivityMonitor) {
  launch();
  auto running = [&] {
    for (const auto* app : desktop.apps()) {
      if (app->setup.bundleIdentifier == kActivityMonitorBundleIdentifier) return true;
    }
    return false;
  };
  ASSERT_FALSE(running());
  EXPECT_TRUE(press(key_modifier::Control | key_modifier::Shift));
  EXPECT_TRUE(running());
  EXPECT_THAT(startMenu->shownFrom, IsEmpty());
}

TEST_F(AppDelegateTest, TheSettingTurnsBothKeysOffAtOnceAndOnAgainWithTheSameIDs) {
  launch();
  model().settings.controlEscapeHotKeysEnabled = false;
  model().modelChanged.emit();
  EXPECT_TRUE(keys.registered().empty());
  EXPECT_EQ(keys.handlerCount(), 1u);
  EXPECT_FALSE(press(key_modifier::Control));
  EXPECT_THAT(startMenu->shownFrom, IsEmpty());

  model().settings.controlEscapeHotKeysEnabled = true;
  delegate->configureHotKeys();
  delegate->configureHotKeys();
  EXPECT_THAT(registeredIDs(), ElementsAre(HotKeyID{"TOLV", 1}, HotKeyID{"TOLV", 2}));
  EXPECT_EQ(keys.handlerCount(), 1u);
  EXPECT_TRUE(press(key_modifier::Control));
  EXPECT_EQ(startMenu->shownFrom.size(), 1u);
}

TEST_F(AppDelegateTest, AKeyTheSystemRefusedIsRegisteredAtTheNextChance) {
  keys.refuse(key_code::Escape, key_modifier::Control);
  launch();
  EXPECT_THAT(registeredIDs(), ElementsAre(HotKeyID{"TOLV", 2}));

  keys.refuse(key_code::Escape, key_modifier::Control, false);
  delegate->configureHotKeys();
  EXPECT_THAT(registeredIDs(), ElementsAre(HotKeyID{"TOLV", 2}, HotKeyID{"TOLV", 1}));
}

TEST_F(AppDelegateTest, AnotherSignaturesKeyIsPassedOn) {
  launch();
  ASSERT_TRUE(keys.registerHotKey({"LUMS", 1}, key_code::Tab, key_modifier::Control));
  EXPECT_FALSE(press(key_modifier::Control, key_code::Tab));
  EXPECT_THAT(startMenu->shownFrom, IsEmpty());
  EXPECT_EQ(switcher->closes, 0);
}

TEST_F(AppDelegateTest, EscapeHidesTheBarFromAnyApplication) {
  launch();
  ASSERT_FALSE(model().taskbarIsHidden.get());

  keys.press(key_code::Escape, 0, false);
  EXPECT_FALSE(autoHide().panelsAreFullyHidden());
  desktop.runLoop().runUntilIdle();
  EXPECT_TRUE(autoHide().panelsAreFullyHidden());
  EXPECT_TRUE(model().taskbarIsHidden.get());

  autoHide().revealPanelsForStart();
  keys.press(key_code::Escape, 0, true);
  EXPECT_TRUE(autoHide().panelsAreFullyHidden());

  autoHide().revealPanelsForStart();
  press(0, key_code::Tab);
  EXPECT_FALSE(autoHide().panelsAreFullyHidden());
}

TEST_F(AppDelegateTest, AnotherApplicationsActivationRescansWithoutPublishing) {
  launch();
  // Block the model's own scans, so that only the delegate's rescan can find the window.
  model().pipeline.actionRefreshScanBlockedUntil = std::numeric_limits<double>::infinity();
  desktop.openWindow(10, window("Recipes"));
  desktop.activateApp(10);
  desktop.runLoop().runUntilIdle();

  EXPECT_THAT(testing::namesOf(*model().scannedRunningApps),
              UnorderedElementsAre("Recipes", "Shopping"));
  EXPECT_THAT(testing::namesOf(model().runningApps.get()), ElementsAre("Shopping"));
}

TEST_F(AppDelegateTest, TerminationReleasesEveryKeyStopsTheSwitcherThenTheModel) {
  launch();
  delegate->applicationWillTerminate();

  EXPECT_EQ(journal.back(), "switcher stopped, model running");
  EXPECT_FALSE(modelStarted(model()));
  EXPECT_TRUE(keys.registered().empty());
  EXPECT_EQ(keys.handlerCount(), 0u);
  EXPECT_EQ(keys.monitorCount(), 0u);

  int64_t listings = desktop.calls()["workspace.runningApplications"];
  desktop.activateApp(10);
  desktop.runLoop().advance(5.0);
  EXPECT_EQ(desktop.calls()["workspace.runningApplications"], listings);
  EXPECT_FALSE(press(key_modifier::Control));
}

TEST_F(AppDelegateTest, TheStartButtonOpensTheMenuAndPressedAgainHidesTheBar) {
  launch();
  Rect frame{0, 0, 1440, 36};
  EXPECT_FALSE(taskbar->hooks.startMenuContainsMouse());

  taskbar->hooks.onStartHover(frame);
  taskbar->hooks.onStartHover(frame);
  EXPECT_THAT(startMenu->shownFrom, ElementsAre(frame));
  EXPECT_TRUE(taskbar->hooks.startMenuContainsMouse());

  taskbar->hooks.onStart(frame);
  EXPECT_EQ(startMenu->shownFrom.size(), 1u);
  EXPECT_TRUE(autoHide().panelsAreFullyHidden());
  EXPECT_TRUE(model().taskbarIsHidden.get());

  startMenu->visible = false;
  taskbar->hooks.onStart(frame);
  EXPECT_EQ(startMenu->shownFrom.size(), 2u);
}

class InitialTaskbarTest : public AppDelegateTest {
 protected:
  void SetUp() override {
    Defaults(*desktop.platform().userDefaults, kTolvBundleIdentifier)
        .set(kShowInitialTaskbarKey, true);
    desktop.pointer().movePointer({300, 400});
  }
  bool keyStored() {
    return Defaults(*desktop.platform().userDefaults, kTolvBundleIdentifier)
        .contains(kShowInitialTaskbarKey);
  }
};

TEST_F(InitialTaskbarTest, AtTheBottomLeftThePointerGoesToTheStartButtonAndTheMenuOpens) {
  launch("bottomL");
  EXPECT_FALSE(keyStored());
  EXPECT_EQ(desktop.pointer().location(), (Point{8, 8}));
  ASSERT_EQ(startMenu->shownFrom.size(), 1u);
  EXPECT_TRUE(startMenu->shownFrom[0].intersects(mainScreen()));
  EXPECT_FALSE(model().initialSetupForceOverflowOpen.get());
}

TEST_F(InitialTaskbarTest, AtTheTopLeftTheOverflowIsHeldOpenAndThePointerStays) {
  launch("topL");
  EXPECT_FALSE(keyStored());
  EXPECT_TRUE(model().initialSetupForceOverflowOpen.get());
  EXPECT_EQ(startMenu->shownFrom.size(), 1u);
  EXPECT_EQ(desktop.pointer().location(), (Point{300, 400}));
}

TEST_F(InitialTaskbarTest, ElsewhereOnlyTheRequestIsConsumed) {
  launch("rightSide");
  EXPECT_FALSE(keyStored());
  EXPECT_THAT(startMenu->shownFrom, IsEmpty());
  EXPECT_EQ(desktop.pointer().location(), (Point{300, 400}));
}

TEST_F(InitialTaskbarTest, WithoutAccessibilityTheRequestWaitsForALaterLaunch) {
  desktop.setAccessibilityGranted(false);
  launch("bottomL");
  EXPECT_TRUE(keyStored());
  EXPECT_THAT(startMenu->shownFrom, IsEmpty());
  EXPECT_EQ(desktop.pointer().location(), (Point{300, 400}));
}

}  // namespace
}  // namespace tolv
