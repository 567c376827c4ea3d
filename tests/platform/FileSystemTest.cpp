#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/sim/SimDesktop.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;

std::vector<uint8_t> bytes(const std::string& text) {
  return {text.begin(), text.end()};
}

class FileSystemTest : public ::testing::Test {
 protected:
  sim::SimDesktop desktop;
  FileSystem& files = *desktop.platform().fileSystem;
  std::string folder = files.applicationSupportFolder();
};

TEST_F(FileSystemTest, TheSimulatedSupportFolderIsAFreshTemporaryTolvFolder) {
  EXPECT_THAT(folder, ::testing::EndsWith("/Tolv"));
  EXPECT_FALSE(files.exists(folder));
  EXPECT_TRUE(files.createDirectories(folder + "/IconCache"));
  EXPECT_TRUE(files.exists(folder + "/IconCache"));
}

TEST_F(FileSystemTest, AtomicWritesReplaceTheWholeFileAndLeaveNothingBehind) {
  files.createDirectories(folder);
  std::string path = folder + "/state.bin";
  ASSERT_TRUE(files.writeFileAtomically(path, bytes("first version, longer")));
  ASSERT_TRUE(files.writeFileAtomically(path, bytes("second")));
  EXPECT_EQ(files.readFile(path), bytes("second"));
  EXPECT_THAT(*files.listDirectory(folder), ElementsAre("state.bin"));
}

TEST_F(FileSystemTest, AWriteIntoAMissingFolderFailsCleanly) {
  EXPECT_FALSE(files.writeFileAtomically(folder + "/missing/state.bin", bytes("x")));
  EXPECT_EQ(files.listDirectory(folder + "/missing"), std::nullopt);
  EXPECT_EQ(files.readFile(folder + "/missing/state.bin"), std::nullopt);
}

TEST_F(FileSystemTest, AppendsAndMoves) {
  files.createDirectories(folder);
  std::string log = folder + "/runtime-errors.log";
  files.appendToFile(log, bytes("one\n"));
  files.appendToFile(log, bytes("two\n"));
  EXPECT_EQ(files.readFile(log), bytes("one\ntwo\n"));
  EXPECT_TRUE(files.moveFile(log, log + ".old"));
  EXPECT_FALSE(files.exists(log));
  EXPECT_TRUE(files.removeFile(log + ".old"));
  EXPECT_THAT(*files.listDirectory(folder), ElementsAre());
}

}  // namespace
}  // namespace tolv
