#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/x11/DesktopEntries.h"

namespace tolv::x11 {
namespace {

namespace fs = std::filesystem;

TEST(DesktopEntryParsing, ReadsOnlyTheDesktopEntryGroup) {
  auto entry = parseDesktopEntry("org.example.Editor",
                                 "# comment\n"
                                 "[Desktop Entry]\r\n"
                                 "Name = Editor\r\n"
                                 "Name[de]=Bearbeiter\n"
                                 "Icon=accessories-text-editor\n"
                                 "StartupWMClass=EditorMain\n"
                                 "[Desktop Action New]\n"
                                 "Name=New Window\n");
  ASSERT_TRUE(entry);
  EXPECT_EQ(entry->id, "org.example.Editor");
  EXPECT_EQ(entry->name, "Editor");
  EXPECT_EQ(entry->icon, "accessories-text-editor");
  EXPECT_EQ(entry->startupWMClass, "EditorMain");
}

TEST(DesktopEntryParsing, HiddenEntriesAndFilesWithoutTheGroupCountForNothing) {
  EXPECT_FALSE(parseDesktopEntry("a", "[Desktop Entry]\nName=A\nNoDisplay=true\n"));
  EXPECT_FALSE(parseDesktopEntry("b", "[Desktop Entry]\nHidden=true\nName=B\n"));
  EXPECT_FALSE(parseDesktopEntry("c", "Name=C\n"));
  EXPECT_TRUE(parseDesktopEntry("d", "[Desktop Entry]\nNoDisplay=false\n"));
}

class DesktopEntriesLookup : public ::testing::Test {
 protected:
  DesktopEntriesLookup() {
    char pattern[] = "/tmp/tolv-desktop-XXXXXX";
    root = mkdtemp(pattern);
    write(root + "/user/org.example.Term.desktop", "[Desktop Entry]\nName=Own Term\n");
    write(root + "/system/org.example.Term.desktop", "[Desktop Entry]\nName=System Term\n");
    write(root + "/system/editor.desktop", "[Desktop Entry]\nName=Editor\nStartupWMClass=EdMain\n");
    write(root + "/system/kde/viewer.desktop", "[Desktop Entry]\nName=Viewer\n");
    write(root + "/system/readme.txt", "[Desktop Entry]\nName=Not an entry\n");
  }
  ~DesktopEntriesLookup() override { fs::remove_all(root); }

  static void write(const std::string& path, const std::string& text) {
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path) << text;
  }

  std::string root;
};

TEST_F(DesktopEntriesLookup, TheStartupClassWinsThenTheIdWithoutRegardToCase) {
  DesktopEntries entries({root + "/user", root + "/system", root + "/missing"});
  EXPECT_EQ(entries.forWindowClass("edmain")->id, "editor");
  EXPECT_EQ(entries.forWindowClass("Editor")->name, "Editor");
  EXPECT_EQ(entries.forWindowClass("kde-viewer")->name, "Viewer");
  EXPECT_FALSE(entries.forWindowClass("readme"));
  EXPECT_FALSE(entries.forWindowClass(""));
}

TEST_F(DesktopEntriesLookup, TheFirstFolderHoldingAnIdWins) {
  DesktopEntries entries({root + "/user", root + "/system"});
  EXPECT_EQ(entries.forWindowClass("org.example.term")->name, "Own Term");
}

}  // namespace
}  // namespace tolv::x11
