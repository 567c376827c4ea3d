#include <gtest/gtest.h>

#include "support/SimModel.h"
#include "taskbar/TabFacts.h"

namespace tolv {
namespace {

RunningAppItem window(std::string id, std::string appName = "Mail") {
  RunningAppItem item;
  item.id = std::move(id);
  item.appName = std::move(appName);
  item.processIdentifier = 10;
  item.bundleIdentifier = "com.example." + item.appName;
  return item;
}

TaskbarEntry itemEntry(RunningAppItem item) {
  TaskbarEntry entry;
  entry.id = item.id;
  entry.item = std::move(item);
  return entry;
}

TaskbarEntry groupEntry(std::vector<RunningAppItem> windows, bool custom = false) {
  RunningAppGroup group;
  group.id = custom ? "custom:K" : "auto:10";
  group.isCustom = custom;
  group.windows = std::move(windows);
  TaskbarEntry entry;
  entry.id = group.id;
  entry.group = std::move(group);
  return entry;
}

class TabFactsTest : public ::testing::Test {
 protected:
  testing::SimModel sim;
  AppModel& model = sim.model();
};

TEST_F(TabFactsTest, BadgesFollowTheAttentionSettingsAndTheApplicationList) {
  RunningAppItem mail = window("ax:10:a");
  EXPECT_TRUE(model.badgeAllowed(mail));
  model.settings.attentionIndicatorApps = {"Mail"};
  EXPECT_FALSE(model.badgeAllowed(mail)) << "listed under the blacklist";
  model.settings.attentionIndicatorPolicy = "whitelist";
  EXPECT_TRUE(model.badgeAllowed(mail));
  EXPECT_FALSE(model.badgeAllowed(window("ax:11:a", "Notes")));
  model.settings.notificationBadgeStyle = "none";
  EXPECT_FALSE(model.badgeAllowed(mail));
  model.settings.notificationBadgeStyle = "dot";
  model.settings.showAttentionApps = false;
  EXPECT_FALSE(model.badgeAllowed(mail));
}

TEST_F(TabFactsTest, ABadgeThatMayNotShowLeavesAnEmptyStyle) {
  RunningAppItem mail = window("ax:10:a");
  mail.hasNotificationBadge = true;
  EXPECT_EQ(tabFacts(model, itemEntry(mail), false).badgeStyle, "dot");
  model.settings.showAttentionApps = false;
  TabFacts facts = tabFacts(model, itemEntry(mail), false);
  EXPECT_TRUE(facts.hasBadge);
  EXPECT_EQ(facts.badgeStyle, "");
}

TEST_F(TabFactsTest, AFullBadgeColoursTheWholeTabInsteadOfItsOwnColour) {
  RunningAppItem mail = window("ax:10:a");
  model.liveTabColors[mail.id] = "Green";
  EXPECT_EQ(tabFacts(model, itemEntry(mail), false).colorName, "Green");
  mail.hasNotificationBadge = true;
  EXPECT_EQ(tabFacts(model, itemEntry(mail), false).colorName, "Green") << "not full";
  model.settings.notificationBadgeFull = true;
  model.settings.notificationBadgeColor = "#00FF00";
  EXPECT_EQ(tabFacts(model, itemEntry(mail), false).colorName, "Custom:#00FF00");
  EXPECT_EQ(tabFacts(model, groupEntry({window("ax:10:b"), mail}), false).colorName,
            "Custom:#00FF00");
}

TEST_F(TabFactsTest, StripsOfTasksFollowTheActiveAndPreviousWindows) {
  RunningAppItem a = window("ax:10:a");
  RunningAppItem b = window("ax:10:b");
  a.isActive = true;
  EXPECT_EQ(tabFacts(model, itemEntry(a), false).strip, TabStripKind::Active);
  model.settings.blueStripsEnabled = false;
  EXPECT_EQ(tabFacts(model, itemEntry(a), false).strip, TabStripKind::None);
  model.settings.blueStripsEnabled = true;
  // The strip stays with the last active window while focus is elsewhere.
  a.isActive = false;
  model.activeBlueStripWindowID = a.id;
  EXPECT_EQ(tabFacts(model, itemEntry(a), false).strip, TabStripKind::Active);
  EXPECT_FALSE(tabFacts(model, itemEntry(a), false).isActive);
  EXPECT_EQ(tabFacts(model, itemEntry(b), false).strip, TabStripKind::None);
}

TEST_F(TabFactsTest, GroupStripsAndHighlight) {
  RunningAppItem a = window("ax:10:a");
  RunningAppItem b = window("ax:10:b");
  EXPECT_EQ(tabFacts(model, groupEntry({a, b}), false).strip, TabStripKind::None);
  model.singleAppPreviousWindowID = b.id;
  EXPECT_EQ(tabFacts(model, groupEntry({a, b}), false).strip, TabStripKind::Previous);
  model.settings.includeSingleAppWindowsInPreviousStrips = false;
  EXPECT_EQ(tabFacts(model, groupEntry({a, b}), false).strip, TabStripKind::None);
  a.isActive = true;
  TabFacts active = tabFacts(model, groupEntry({a, b}), false);
  EXPECT_EQ(active.strip, TabStripKind::Active);
  EXPECT_TRUE(active.isActive);
  EXPECT_TRUE(active.chevron);

  // Off the desktop the group keeps its strip and loses its highlight.
  model.settings.workspaceTaskbarBehavior = "desktop";
  ManagedWorkspaceTask desktop, fullScreen;
  desktop.id = "d";
  desktop.isDesktopSpace = true;
  fullScreen.id = "f";
  fullScreen.isCurrent = true;
  model.managedWorkspaceTasks = {desktop, fullScreen};
  TabFacts away = tabFacts(model, groupEntry({a, b}), false);
  EXPECT_EQ(away.strip, TabStripKind::Active);
  EXPECT_FALSE(away.isActive);
}

TEST_F(TabFactsTest, ChevronOnlyForCustomGroupsOrSeveralWindows) {
  EXPECT_FALSE(tabFacts(model, groupEntry({window("ax:10:a")}), false).chevron);
  EXPECT_TRUE(tabFacts(model, groupEntry({window("ax:10:a")}, true), false).chevron);
}

TEST_F(TabFactsTest, WorkspaceButtonTakesItsLiveColourElseTheDefaultAtHalfOpacity) {
  TaskbarEntry workspaces;
  workspaces.id = "workspace-group";
  workspaces.workspaceGroup = std::vector<ManagedWorkspaceTask>{};
  model.settings.tabColorOpacity = 0.8;
  TabFacts plain = tabFacts(model, workspaces, false);
  EXPECT_EQ(plain.colorName, "Custom:#2061F7");
  EXPECT_EQ(plain.colorOpacity, 0.5);
  model.liveTabColors["workspace-group"] = "Red";
  TabFacts live = tabFacts(model, workspaces, false);
  EXPECT_EQ(live.colorName, "Red");
  EXPECT_EQ(live.colorOpacity, 0.8);
}

TEST_F(TabFactsTest, OverflowTabsOfATopBarCarryTheirStripAtTheTop) {
  RunningAppItem a = window("ax:10:a");
  a.isActive = true;
  TaskRowLayout layout;
  layout.entries = {itemEntry(a)};
  TaskbarDrawing drawing;
  drawing.length = 1000;
  for (int row : {0, 1}) {
    TabDrawing tab;
    tab.id = a.id;
    tab.row = row;
    tab.frame = {10, 3, 150, 28};
    drawing.tabs.push_back(tab);
  }
  model.settings.taskbarLocation = "topL";
  decorateTabs(model, layout, drawing);
  EXPECT_EQ(drawing.tabs[0].look.strip->frame.y, 25) << "the primary row keeps it at the bottom";
  EXPECT_EQ(drawing.tabs[1].look.strip->frame.y, 0);
  model.settings.taskbarLocation = "bottomL";
  decorateTabs(model, layout, drawing);
  EXPECT_EQ(drawing.tabs[1].look.strip->frame.y, 26);
}

TEST_F(TabFactsTest, ThePleaForAccessibilityStandsBehindTheSettingsTabWhileAccessIsMissing) {
  TaskRowLayout layout;
  layout.entries = {itemEntry(window("tolv-settings", "Tolv"))};
  TaskbarDrawing drawing;
  drawing.length = 1000;
  TabDrawing tab;
  tab.id = "tolv-settings";
  tab.frame = {10, 3, 150, 28};
  drawing.tabs.push_back(tab);
  model.accessibilityTrusted = false;
  decorateTabs(model, layout, drawing);
  ASSERT_TRUE(drawing.accessibilityNotice);
  EXPECT_EQ(*drawing.accessibilityNotice, (Rect{164, 3, 836, 28}));
  model.accessibilityTrusted = true;
  decorateTabs(model, layout, drawing);
  EXPECT_FALSE(drawing.accessibilityNotice);
}

}  // namespace
}  // namespace tolv
