#include <gtest/gtest.h>

#include "support/SimModel.h"
#include "taskbar/WorkspacePopup.h"

namespace tolv {
namespace {

ManagedWorkspaceTask space(std::string id, bool desktop, bool current) {
  ManagedWorkspaceTask task;
  task.id = id;
  task.name = "Space " + id;
  task.isDesktopSpace = desktop;
  task.isCurrent = current;
  return task;
}

TEST(WorkspacePopup, RowsMarkTheCurrentSpaceAndOfferFullScreenSpacesTheirChevron) {
  testing::SimModel sim;
  AppModel& model = sim.model();
  auto rows = workspacePopupRows(model, {space("1", true, false), space("2", false, true)});
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].title, "Space 1");
  EXPECT_FALSE(rows[0].leavesFullScreen);
  EXPECT_FALSE(rows[0].checked);
  EXPECT_TRUE(rows[1].leavesFullScreen);
  EXPECT_TRUE(rows[1].checked);
  // The current space has the brighter highlight.
  EXPECT_GT(rows[1].look.fill.alpha, rows[0].look.fill.alpha);
}

TEST(WorkspacePopup, RowPartsSwitchLeaveFullScreenOrClose) {
  ManagedWorkspaceTask full = space("2", false, false);
  EXPECT_EQ(workspaceRowClickAction(full, WorkspaceRowPart::Body)->command,
            MenuCommand::RequestWorkspaceSwitch);
  EXPECT_EQ(workspaceRowClickAction(full, WorkspaceRowPart::Body)->subject, "workspace:2");
  EXPECT_EQ(workspaceRowClickAction(full, WorkspaceRowPart::LeaveFullScreen)->command,
            MenuCommand::LeaveWorkspaceFullScreen);
  EXPECT_EQ(workspaceRowClickAction(full, WorkspaceRowPart::Close)->command,
            MenuCommand::ConfirmCloseWorkspace);
  EXPECT_FALSE(workspaceRowClickAction(space("1", true, false), WorkspaceRowPart::LeaveFullScreen));
}

}  // namespace
}  // namespace tolv
