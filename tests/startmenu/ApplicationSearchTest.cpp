#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "startmenu/ApplicationSearch.h"
#include "startmenu/StartMenuLayout.h"
#include "startmenu/StartMenuPlacement.h"

namespace tolv {
namespace {

std::vector<SearchableApplication> catalogueOf(const std::vector<std::string>& names) {
  std::vector<InstalledApplication> installed;
  for (const auto& name : names)
    installed.push_back({name, "id." + name, "/Applications/" + name + ".app"});
  return makeCatalogue(installed);
}

std::vector<std::string> namesOf(const std::vector<SearchableApplication>& list) {
  std::vector<std::string> names;
  for (const auto& entry : list)
    names.push_back(entry.application.name);
  return names;
}

TEST(ApplicationCatalogue, SortsByNameIgnoringCaseAndListsEachLocationOnce) {
  std::vector<InstalledApplication> installed{
      {"safari", "a", "/Applications/Safari.app"},
      {"Calendar", "b", "/Applications/Calendar.app"},
      {"Safari copy", "a", "/Applications/Safari.app"},  // the same bundle reached twice
      {"Äpfel", "c", "/Applications/Äpfel.app"},
      {"Books", "d", "/Applications/Books.app"}};
  EXPECT_EQ(namesOf(makeCatalogue(installed)),
            (std::vector<std::string>{"Äpfel", "Books", "Calendar", "safari"}));
}

TEST(ApplicationSearch, MatchesAnywhereInTheNameIgnoringCaseInCatalogueOrder) {
  auto catalogue = catalogueOf({"Notes", "Terminal", "TextEdit", "Photos", "Straße"});
  // No ranking: "Notes" matches in the middle and still comes first.
  EXPECT_EQ(namesOf(searchApplications(catalogue, "te")),
            (std::vector<std::string>{"Notes", "Terminal", "TextEdit"}));
  EXPECT_EQ(namesOf(searchApplications(catalogue, "  TERM\n")),
            (std::vector<std::string>{"Terminal"}));
  // Case folding beyond ASCII: ß folds to ss.
  EXPECT_EQ(namesOf(searchApplications(catalogue, "STRASSE")),
            (std::vector<std::string>{"Straße"}));
  EXPECT_TRUE(searchApplications(catalogue, " \t\n").empty());
  EXPECT_TRUE(searchApplications(catalogue, "xyz").empty());
}

TEST(ApplicationSearch, StopsAtThirtyResults) {
  std::vector<std::string> names;
  for (int i = 0; i < 31; ++i)
    names.push_back("App " + std::string(i < 10 ? "0" : "") + std::to_string(i));
  auto catalogue = catalogueOf(names);
  auto results = searchApplications(catalogue, "app");
  ASSERT_EQ(results.size(), 30u);
  EXPECT_EQ(results.back().application.name, "App 29");
  names.pop_back();
  EXPECT_EQ(searchApplications(catalogueOf(names), "app").size(), 30u);
}

TEST(StartMenuShownList, RunningAndRecentsWinOverTheSearchAndAnyOtherValueIsFavourites) {
  EXPECT_EQ(shownStartMenuList("Running", "te"), StartMenuListKind::Running);
  EXPECT_EQ(shownStartMenuList("Recents", "te"), StartMenuListKind::Recents);
  EXPECT_EQ(shownStartMenuList("Favorites", "  "), StartMenuListKind::Favorites);
  EXPECT_EQ(shownStartMenuList("Favorites", " te "), StartMenuListKind::SearchResults);
  EXPECT_EQ(shownStartMenuList("Something", ""), StartMenuListKind::Favorites);
  EXPECT_EQ(shownStartMenuList("Something", "te"), StartMenuListKind::SearchResults);
}

TEST(StartMenuSearchTyping, CharactersSpacesAndBackspacesEditByGraphemes) {
  EXPECT_EQ(editSearchText("xt", "e"), "xte");
  EXPECT_EQ(editSearchText("x", "space"), "x ");
  EXPECT_EQ(editSearchText("caf", "é"), "café");
  EXPECT_EQ(editSearchText("ab", "backspace"), "a");
  EXPECT_EQ(editSearchText("", "backspace"), "");
  // A flag and a letter with a combining accent each go with one backspace.
  EXPECT_EQ(editSearchText("a🇩🇪", "backspace"), "a");
  EXPECT_EQ(editSearchText("ae\u0301", "backspace"), "a");
  // Named keys that aren't text leave it alone.
  EXPECT_EQ(editSearchText("ab", "tab"), "ab");
  EXPECT_EQ(editSearchText("ab", "left"), "ab");
}

struct PlacementCase {
  const char* location;
  Rect panel;
  Rect button;
};

TEST(StartMenuPlacement, OpensAtTheStartButtonsCornerForEveryLocation) {
  Rect screen{0, 0, 1440, 900};
  Rect visible{0, 0, 1440, 875};
  Rect bottomBar{0, 0, 1440, 34};
  Rect topBar{0, 841, 1440, 34};
  Rect leftBar{0, 0, 34, 875};
  Rect rightBar{1406, 0, 34, 875};
  const PlacementCase cases[] = {
      {"bottomL", {0, 33, 390, 522}, {0, 0, 50, 34}},
      {"bottomR", {1050, 33, 390, 522}, {1390, 0, 50, 34}},
      {"topL", {0, 875 - 34 - 524 + 3, 390, 524}, {0, 841, 50, 34}},
      {"topR", {1050, 875 - 34 - 524 + 3, 390, 524}, {1390, 841, 50, 34}},
      {"leftAlt", {0, 875 - 34 - 524 + 3, 390, 524}, {0, 841, 50, 34}},
      {"leftSide", {34, 900 - 524, 390, 524}, {0, 825, 34, 50}},
      {"rightSide", {1440 - 34 - 390, 0, 390, 520}, rightBar},
      {"sideways", {0, 33, 390, 522}, {0, 0, 50, 34}},  // unknown: as bottomL
  };
  for (const auto& c : cases) {
    std::string location = c.location;
    Rect bar = location.starts_with("top") || location == "leftAlt" ? topBar
               : location == "leftSide"                             ? leftBar
               : location == "rightSide"                            ? rightBar
                                                                    : bottomBar;
    auto placement = placeStartMenu({.location = location,
                                     .taskbarFrame = bar,
                                     .screenFrame = screen,
                                     .visibleFrame = visible});
    EXPECT_EQ(placement.panelFrame, c.panel) << location;
    EXPECT_EQ(placement.startButtonFrame, c.button) << location;
  }
  // With the strip over the menu bar a top menu hangs from the screen's top.
  auto buffered = placeStartMenu({.location = "topL",
                                  .taskbarFrame = topBar,
                                  .screenFrame = screen,
                                  .visibleFrame = visible,
                                  .menuBarBuffer = true});
  EXPECT_EQ(buffered.panelFrame.maxY(), 900 - 64 + 3);
}

TEST(StartMenuLayout, KeepsTheSearchBoxNextToTheBarAndTheRowsClearOfIt) {
  auto bottom = layoutStartMenu({.location = "bottomL", .panelSize = {390, 522}, .rowCount = 40});
  auto top = layoutStartMenu({.location = "topL", .panelSize = {390, 524}, .rowCount = 40});
  // A bottom bar's menu has its search box at the bottom (y runs down), a top
  // bar's at the top; the first row stands next to the tab strip either way.
  EXPECT_GT(bottom.searchBox.minY(), bottom.rows.front().maxY());
  EXPECT_LT(top.searchBox.maxY(), top.rows.front().minY());
  EXPECT_LT(top.rows.front().minY(), top.segments[0].frame.minY());
  for (const auto* layout : {&bottom, &top}) {
    ASSERT_FALSE(layout->rows.empty());
    EXPECT_LT(layout->rows.size(), 40u);  // only what fits
    for (const auto& row : layout->rows)
      EXPECT_FALSE(row.intersects(layout->searchBox));
    EXPECT_FALSE(layout->rows.front().intersects(layout->header));
  }
  // The search row appears only while there is text, and the rows make room.
  auto searching = layoutStartMenu(
      {.location = "bottomL", .panelSize = {390, 522}, .rowCount = 40, .searching = true});
  ASSERT_TRUE(searching.searchFilesRow);
  EXPECT_FALSE(bottom.searchFilesRow);
  EXPECT_FALSE(searching.rows.back().intersects(*searching.searchFilesRow));
}

TEST(StartMenuLayout, RightCornersPutThePaneFirstAndTurnTheTabStripOver) {
  auto left = layoutStartMenu({.location = "bottomL", .panelSize = {390, 522}});
  auto right = layoutStartMenu({.location = "bottomR", .panelSize = {390, 522}, .searched = true});
  EXPECT_LT(left.leftColumn.minX(), left.rightPane.minX());
  EXPECT_GT(right.leftColumn.minX(), right.rightPane.minX());
  EXPECT_EQ(left.segments[0].list, "Running");
  EXPECT_EQ(left.segments[1].label, "Favorites");
  EXPECT_EQ(right.segments[0].list, "Recents");
  EXPECT_EQ(right.segments[1].label, "Searched");
  EXPECT_EQ(right.segments[2].label, "⏳");
}

TEST(StartMenuShape, TheNotchStandsAtTheButtonsCornerOfCornerPlacementsOnly) {
  Size panel{390, 522};
  auto bottomLeft = startMenuNotch("bottomL", panel);
  auto bottomRight = startMenuNotch("bottomR", panel);
  auto topLeft = startMenuNotch("topL", panel);
  ASSERT_TRUE(bottomLeft.present && bottomRight.present && topLeft.present);
  EXPECT_EQ(bottomLeft.start, (Point{0, 518}));
  EXPECT_EQ(bottomLeft.straightEnd, (Point{49, 518}));
  EXPECT_EQ(bottomLeft.curveEnd, (Point{53, 522}));
  EXPECT_EQ(bottomRight.curveEnd, (Point{390 - 53, 522}));
  EXPECT_EQ(topLeft.start, (Point{0, 4}));
  EXPECT_EQ(topLeft.curveEnd, (Point{53, 0}));
  EXPECT_FALSE(startMenuNotch("leftSide", panel).present);
  EXPECT_FALSE(startMenuNotch("rightSide", panel).present);
  // The square corner is the one at the button.
  EXPECT_EQ(startMenuOuterCorners("bottomL").bottomLeft, 0);
  EXPECT_EQ(startMenuOuterCorners("bottomR").bottomRight, 0);
  EXPECT_EQ(startMenuOuterCorners("topR").topRight, 0);
}

}  // namespace
}  // namespace tolv
