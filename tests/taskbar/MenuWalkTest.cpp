// Walks every menu the bar can show over a desktop with windows, groups and
// workspaces, and chooses each item on a fresh copy of that desktop: an item
// that is enabled must be carried out, one that is disabled must be refused.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>

#include "arrangement/ArrangementTesting.h"
#include "platform/sim/SimAlerts.h"
#include "taskbar/TabColors.h"
#include "taskbar/TaskActions.h"

namespace tolv {
namespace {

using testing::app;
using testing::window;

// Commands whose items stay disabled until what they open exists.
const std::set<MenuCommand> kPending{
    MenuCommand::OpenColorSettings,  // the window of all colours, built after the settings window
};

// One desktop with a model on it, the same every time it is built.
struct World {
  testing::SimModel sim;

  World() {
    sim::WindowSetup inFullScreen = window("Letters");
    inFullScreen.space = "f";
    sim.desktop.setSpaces({{.uuid = "d", .current = true},
                           {.uuid = "e"},
                           {.uuid = "f", .type = 4, .name = "Mail", .pid = 2}});
    AppModel& model = sim.model();
    model.settings.groupingMode = "specific";
    model.settings.specificGroupingApps = {"Editor"};
    model.makeGroupKey = [] { return std::string("KEY1"); };
    sim.desktop.populate({app(1, "Editor", {window("One"), window("Two")}),
                          app(2, "Mail", {window("Inbox"), inFullScreen}),
                          app(3, "Safari", {window("Apple"), window("News")}, "com.apple.Safari")});
    model.start();
    sim.desktop.runLoop().advance(3.0);
    std::vector<RunningAppItem> safari;
    for (const auto& item : model.runningApps.get()) {
      if (item.appName == "Safari") safari.push_back(item);
    }
    model.createCustomGroup(safari);
    sim.desktop.runLoop().advance(3.0);
  }
  AppModel& model() { return sim.model(); }
};

struct Chosen {
  std::string where;
  MenuItem item;
};

void collect(const std::string& where, const Menu& menu, std::vector<Chosen>& out) {
  for (const auto& entry : menu) {
    if (entry.separator) continue;
    if (entry.action) out.push_back({where + " > " + entry.title, entry});
    collect(where + " > " + entry.title, entry.children, out);
  }
}

// Every menu of every entry, group popup, row and workspace.
std::vector<Chosen> everyMenuItem(AppModel& model) {
  std::vector<Chosen> items;
  std::set<std::string> groupsSeen;
  for (bool groupAll : {false, true}) {
    for (const auto& entry : model.displayedTaskbarEntries(groupAll)) {
      collect(entry.id, entryMenu(model, entry), items);
      if (!entry.group || !groupsSeen.insert(entry.group->id).second) continue;
      collect(entry.id + " header", groupHeaderMenu(model, *entry.group), items);
      for (const auto& window : entry.group->windows)
        collect(entry.id + " row " + window.id, groupRowMenu(model, *entry.group, window), items);
    }
  }
  for (const auto& workspace : model.managedWorkspaceTasks.get())
    collect("workspace " + workspace.id, workspaceRowMenu(model, workspace), items);
  collect("close glyph", closeGlyphMenu(), items);
  return items;
}

TEST(MenuWalk, EveryEnabledItemIsCarriedOutAndEveryDisabledOneRefused) {
  World world;
  std::vector<Chosen> items = everyMenuItem(world.model());
  std::set<MenuCommand> seen;
  std::map<std::string, int> tried;
  for (const auto& chosen : items) {
    const MenuAction& action = *chosen.item.action;
    seen.insert(action.command);
    // Alike items of different menus are tried once.
    std::string key = chosen.item.title + "|" + describeMenu({chosen.item}, 0);
    if (tried[key]++) continue;
    World fresh;
    bool performed = performMenuAction(fresh.model(), action);
    fresh.sim.desktop.runLoop().advance(3.0);
    if (kPending.count(action.command)) {
      EXPECT_FALSE(chosen.item.enabled) << chosen.where << " waits for what it opens";
      EXPECT_FALSE(performed) << chosen.where;
    } else if (action.command == MenuCommand::OpenWorkspacePanel) {
      // The panel controller opens its own panel before the model sees the item.
      EXPECT_TRUE(chosen.item.enabled) << chosen.where;
    } else {
      EXPECT_TRUE(chosen.item.enabled) << chosen.where << " is disabled";
      EXPECT_TRUE(performed) << chosen.where << " does nothing";
    }
  }
  // The walk reached the commands of every kind of menu.
  for (MenuCommand command :
       {MenuCommand::SetColor, MenuCommand::PickColor, MenuCommand::EditWorkspaceTitle,
        MenuCommand::ForcePlacement, MenuCommand::LeaveWorkspaceFullScreen,
        MenuCommand::ConfirmQuitWorkspace, MenuCommand::ConfirmCloseWorkspace,
        MenuCommand::ConfirmQuitAllApplications, MenuCommand::QuitGroup, MenuCommand::CloseGroup,
        MenuCommand::RemoveTaskFromGroup, MenuCommand::UngroupList,
        MenuCommand::ChangeCustomGroupIcon, MenuCommand::OpenWorkspacePanel,
        MenuCommand::AddStartFavorite, MenuCommand::OpenColorSettings}) {
    EXPECT_TRUE(seen.count(command)) << menuCommandName(command) << " was never offered";
  }
}

TEST(MenuWalk, TheSettingsTabClosesItsPanelOnlyWhileThereIsOneToClose) {
  World world;
  TaskMenuFacts facts;
  facts.item.id = "tolv-settings";
  facts.item.appName = "Settings";
  facts.isSettingsTab = true;
  auto closers = [&] {
    Menu menu = taskButtonMenu(facts);
    disableUnavailableItems(world.model(), menu);
    return std::vector<bool>{findMenuItem(menu, "Quit Settings")->enabled,
                             findMenuItem(menu, "Close Tab")->enabled};
  };
  EXPECT_THAT(closers(), ::testing::ElementsAre(false, false));
  int closed = 0;
  world.model().settingsCloseHandler = [&] { ++closed; };
  EXPECT_THAT(closers(), ::testing::ElementsAre(true, true));
  Menu menu = taskButtonMenu(facts);
  ASSERT_TRUE(performMenuAction(world.model(), *findMenuItem(menu, "Close Tab")->action));
  EXPECT_EQ(closed, 1);
}

TEST(MenuWalk, ColourItemsWriteTheirTablesAndThePickerWritesTheSameOne) {
  World world;
  AppModel& model = world.model();
  const RunningAppItem inbox = [&] {
    for (const auto& item : model.runningApps.get()) {
      if (item.name == "Inbox") return item;
    }
    return RunningAppItem{};
  }();
  TaskbarEntry entry;
  for (const auto& candidate : model.displayedTaskbarEntries(false)) {
    if (candidate.id == inbox.id) entry = candidate;
  }
  Menu menu = entryMenu(model, entry);
  const MenuItem* defaults = findMenuItem(menu, "Set Default Mail Color");
  ASSERT_TRUE(defaults);
  model.setLiveTabColor("Red", inbox.id);
  ASSERT_TRUE(performMenuAction(model, *findMenuItem(defaults->children, "Purple")->action));
  world.sim.desktop.runLoop().advance(1.0);
  EXPECT_EQ(model.settings.defaultAppColors.at("com.example.Mail"), "Purple");
  EXPECT_EQ(model.effectiveTabColor(inbox.id, inbox.bundleIdentifier), "Purple")
      << "the tab the menu was opened on shows the new lasting colour";

  ASSERT_TRUE(performMenuAction(model, *findMenuItem(defaults->children, "Color Picker…")->action));
  world.sim.desktop.runLoop().advance(0.1);
  auto purple = colorFromName("Purple");
  ASSERT_TRUE(purple);
  EXPECT_EQ(world.sim.desktop.alerts().colorPanelsShown().back(),
            (PanelColor{purple->red, purple->green, purple->blue}))
      << "the panel starts at the lasting colour";
  world.sim.desktop.alerts().chooseColor(PanelColor{0, 0, 0});
  EXPECT_EQ(model.settings.defaultAppColors.at("com.example.Mail"), "Custom:#000000");
}

}  // namespace
}  // namespace tolv
