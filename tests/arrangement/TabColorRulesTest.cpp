#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/CommandTesting.h"
#include "arrangement/TabColorPicker.h"
#include "platform/sim/SimAlerts.h"
#include "taskbar/TabColors.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::window;

TEST(ColorNames, OnlyTheNamedCasesAndSixHexDigitsAfterTheExactPrefixReadAsColours) {
  EXPECT_EQ(colorFromName("Custom:#0D1F36"), (Rgba{13 / 255.0, 31 / 255.0, 54 / 255.0, 1}));
  EXPECT_EQ(colorFromName("Custom:#0d1f36"), colorFromName("Custom:#0D1F36")) << "either case";
  EXPECT_EQ(colorFromName("Custom:#aBcDeF"), (Rgba{171 / 255.0, 205 / 255.0, 239 / 255.0, 1}));
  EXPECT_TRUE(colorFromName("Blue"));
  for (const char* bad :
       {"Custom:#12345", "Custom:#1234567", "Custom:#GGGGGG", "custom:#123456", "Custom:#123456 ",
        " Red", "red", "Custom:#+12345", "Custom:123456", "", "Default"}) {
    EXPECT_FALSE(colorFromName(std::string(bad))) << bad;
  }
  EXPECT_FALSE(colorFromName(std::nullopt));
  std::vector<std::string> names;
  for (LiveTabColor color : kLiveTabColors)
    names.emplace_back(liveTabColorName(color));
  EXPECT_THAT(names,
              ElementsAre("Default", "Red", "Orange", "Yellow", "Green", "Blue", "Purple", "Gray"));
}

TEST(ColorNames, APanelColourIsStoredRoundedInUpperCase) {
  EXPECT_EQ(customColorString({0, 0.5, 1}), "Custom:#0080FF");
  EXPECT_EQ(customColorString({0.9999, 0.0019, 0.0020}), "Custom:#FF0001");
  // Wide-gamut components outside sRGB's range are kept to it.
  EXPECT_EQ(customColorString({1.2, -0.1, 0.2}), "Custom:#FF0033");
}

class TabColorRules : public testing::CommandTest {
 protected:
  void start() {
    startOn({app(1, "Mail", {window("Inbox"), window("Sent")}), app(2, "Notes", {window("Todo")}),
             app(3, "Safari", {window("Apple")}, "com.apple.Safari")});
  }
  std::optional<std::string> shows(const std::string& name) {
    RunningAppItem item = shown(name);
    return model().effectiveTabColor(item.id, item.bundleIdentifier);
  }
};

TEST_F(TabColorRules, AFreshDomainShowsTheSeededColoursAndNothingElse) {
  start();
  EXPECT_EQ(shows("Apple"), "Custom:#183965");
  EXPECT_EQ(shows("Inbox"), std::nullopt);
  EXPECT_THAT(model().manualLiveColorIDs, IsEmpty()) << "a default is no hand-set colour";
}

TEST_F(TabColorRules, AHandSetColourWinsUntilClearedAndOnlyItsKeysGiveItUp) {
  start();
  const std::string apple = shown("Apple").id;
  const std::string inbox = shown("Inbox").id;
  const std::string sent = shown("Sent").id;
  model().setLiveTabColor("Red", apple);
  model().setLiveTabColor("Red", inbox);
  model().setLiveTabColor("Green", sent);
  EXPECT_EQ(shows("Apple"), "Red");

  // "Default" on the window lets the application's colour show again.
  model().setLiveTabColor(std::nullopt, apple);
  EXPECT_FALSE(model().liveTabColors.count(apple));
  EXPECT_EQ(shows("Apple"), "Custom:#183965");

  // A new lasting colour leaves hand-set windows alone, except those named.
  model().setDefaultAppColor("Blue", "com.example.Mail", {sent});
  desktop.runLoop().advance(1.0);
  EXPECT_EQ(shows("Inbox"), "Red");
  EXPECT_EQ(shows("Sent"), "Blue");
  EXPECT_THAT(model().manualLiveColorIDs, ElementsAre(inbox));
  EXPECT_EQ(model().liveTabColors.at("auto:1"), "Blue") << "the automatic group follows";
  EXPECT_EQ(storedMap("defaultAppColors").at("com.example.Mail"), "Blue") << "written at once";

  // Removing the default leaves the colours of open windows as they are.
  model().setDefaultAppColor(std::nullopt, "com.example.Mail", {});
  desktop.runLoop().advance(1.0);
  EXPECT_EQ(shows("Sent"), "Blue");
  EXPECT_FALSE(storedMap("defaultAppColors").count("com.example.Mail"));
}

TEST_F(TabColorRules, AnApplicationsColourReachesEveryWindowAndItsGroupOnlyForNow) {
  start();
  model().setApplicationLiveColor("Purple", "com.example.Mail");
  const auto& live = model().liveTabColors;
  EXPECT_EQ(live.at(shown("Inbox").id), "Purple");
  EXPECT_EQ(live.at(shown("Sent").id), "Purple");
  EXPECT_EQ(live.at("auto:1"), "Purple") << "its automatic group follows";
  EXPECT_FALSE(model().settings.defaultAppColors.count("com.example.Mail"));
  EXPECT_EQ(shows("Todo"), std::nullopt);
}

TEST_F(TabColorRules, GroupsAndWorkspacesFollowTheirOwnRows) {
  start();
  EXPECT_EQ(model().effectiveTabColor("auto:3", std::string("com.apple.Safari")), "Custom:#183965");
  EXPECT_EQ(model().effectiveTabColor("custom:K", std::nullopt), std::nullopt)
      << "a custom group never inherits an application's colour";
  model().settings.workspaceDefaultColors["workspace:W"] = "Green";
  EXPECT_EQ(model().effectiveTabColor("workspace:W", std::nullopt), "Green");
  EXPECT_EQ(model().effectiveTabColor("custom:W", std::nullopt), std::nullopt);
}

TEST_F(TabColorRules, RestoringTheDefaultsForgetsEveryChoice) {
  start();
  model().setLiveTabColor("Red", shown("Inbox").id);
  model().setDefaultAppColor("Gray", "com.apple.Safari", {});
  model().settings.workspaceDefaultColors["workspace:W"] = "Green";
  model().workspaces.workspaceTemporaryColorTables["W"] = {{"x", "Red"}};
  model().restoreDefaultColors();
  desktop.runLoop().advance(1.0);
  EXPECT_EQ(model().settings.defaultAppColors, seedDefaultAppColors());
  EXPECT_THAT(model().manualLiveColorIDs, IsEmpty());
  EXPECT_THAT(model().settings.workspaceDefaultColors, IsEmpty());
  EXPECT_THAT(model().workspaces.workspaceTemporaryColorTables, IsEmpty());
  EXPECT_EQ(shows("Apple"), "Custom:#183965") << "the resync gives the factory colour back";
  EXPECT_EQ(shows("Inbox"), std::nullopt);
}

TEST_F(TabColorRules, ThePickerStartsAtThePresentColourAndAppliesEveryMove) {
  start();
  const std::string todo = shown("Todo").id;
  std::vector<std::string> applied;
  model().presentColorPicker("Custom:#FF0000", [&](const std::string& c) { applied.push_back(c); });
  EXPECT_THAT(desktop.alerts().colorPanelsShown(), IsEmpty()) << "on the next turn only";
  desktop.runLoop().advance(0.1);
  ASSERT_THAT(desktop.alerts().colorPanelsShown(), ElementsAre(PanelColor{1, 0, 0}));
  ASSERT_TRUE(desktop.alerts().chooseColor(PanelColor{0, 0.5, 1}));
  ASSERT_TRUE(desktop.alerts().chooseColor(std::nullopt));
  ASSERT_TRUE(desktop.alerts().chooseColor(PanelColor{0.2, 0.2, 0.2}));
  EXPECT_THAT(applied, ElementsAre("Custom:#0080FF", "Custom:#333333"))
      << "a colour without an sRGB form is passed over";

  // A second request takes over the panel: its action receives the moves now.
  model().presentColorPicker("Custom:#nothing",
                             [&](const std::string& c) { model().setLiveTabColor(c, todo); });
  desktop.runLoop().advance(0.1);
  EXPECT_EQ(desktop.alerts().colorPanelsShown().back(), std::nullopt) << "unreadable: no start";
  desktop.alerts().chooseColor(PanelColor{1, 1, 1});
  EXPECT_EQ(model().liveTabColors.at(todo), "Custom:#FFFFFF");
  EXPECT_EQ(applied.size(), 2u);
}

TEST_F(TabColorRules, OffTheDesktopTheSpacesSavedColoursStandInForMissingOnes) {
  desktop.setSpaces({{.uuid = "d", .current = true}, {.uuid = "f", .type = 4}});
  model().settings.workspaceTaskbarBehavior = "desktop";
  start();
  model().workspaces.workspaceTemporaryColorTables["f"] = {{"ax:2:saved", "Orange"}};
  EXPECT_EQ(model().effectiveTabColor("ax:2:saved", std::nullopt), std::nullopt)
      << "on the desktop the table isn't read";
  ASSERT_TRUE(desktop.switchSpace("f"));
  settle();
  ASSERT_TRUE(model().isOffDesktopWorkspace());
  model().workspaces.workspaceTemporaryColorTables["f"] = {{"ax:2:saved", "Orange"}};
  EXPECT_EQ(model().effectiveTabColor("ax:2:saved", std::nullopt), "Orange");
  model().setLiveTabColor("Red", "ax:2:saved");
  EXPECT_EQ(model().effectiveTabColor("ax:2:saved", std::nullopt), "Red") << "live first";
}

TEST_F(TabColorRules, AWorkspacesLastingColourIsItsApplicationsUnlessItHasNone) {
  desktop.setSpaces({{.uuid = "d", .current = true},
                     {.uuid = "s", .type = 4, .name = "Safari", .pid = 3},
                     {.uuid = "x", .type = 4, .name = "Notes + Mail"}});
  start();
  auto workspace = [&](const std::string& id) {
    for (const auto& task : model().managedWorkspaceTasks.get()) {
      if (task.id == id) return task;
    }
    ADD_FAILURE() << "no workspace " << id;
    return ManagedWorkspaceTask{};
  };
  EXPECT_EQ(model().workspaceApplicationDefaultColor(workspace("s")), "Custom:#183965");
  model().setWorkspaceDefaultColor("Yellow", workspace("s"));
  EXPECT_EQ(model().settings.defaultAppColors.at("com.apple.Safari"), "Yellow");
  EXPECT_THAT(model().settings.workspaceDefaultColors, IsEmpty());

  model().setWorkspaceDefaultColor("Gray", workspace("x"));
  EXPECT_EQ(model().settings.workspaceDefaultColors.at("workspace:x"), "Gray");
  EXPECT_EQ(model().workspaceEffectiveColor(workspace("x")), "Gray");
  EXPECT_EQ(model().workspaceApplicationDefaultColor(workspace("x")), std::nullopt);
  model().setWorkspaceDefaultColor(std::nullopt, workspace("x"));
  EXPECT_EQ(model().workspaceEffectiveColor(workspace("x")), std::nullopt);
}

}  // namespace
}  // namespace tolv
