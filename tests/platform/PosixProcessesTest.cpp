#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "platform/posix/PosixProcesses.h"

namespace tolv {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kBundle = "com.example.Tolv";

// A child process that announces itself as a copy and waits until it is killed.
class AnnouncedChild {
 public:
  explicit AnnouncedChild(const std::string& folder) {
    int ready[2];
    if (::pipe(ready) != 0) return;
    pid_ = ::fork();
    if (pid_ == 0) {
      ::close(ready[0]);
      PosixProcesses child(kBundle, folder);
      char ok = child.announced() ? '1' : '0';
      if (::write(ready[1], &ok, 1) != 1) ::_exit(1);
      for (;;)
        ::pause();
    }
    ::close(ready[1]);
    char ok = 0;
    announced_ = ::read(ready[0], &ok, 1) == 1 && ok == '1';
    ::close(ready[0]);
  }
  ~AnnouncedChild() { end(); }
  void end() {
    if (pid_ <= 0) return;
    ::kill(pid_, SIGKILL);
    ::waitpid(pid_, nullptr, 0);
    pid_ = -1;
  }
  pid_t pid() const { return pid_; }
  bool announced() const { return announced_; }

 private:
  pid_t pid_ = -1;
  bool announced_ = false;
};

class PosixProcessesTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (fs::temp_directory_path() / "tolv-instances-XXXXXX").string();
    ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
    folder = pattern;
  }
  void TearDown() override { fs::remove_all(folder); }

  std::string folder;
};

TEST_F(PosixProcessesTest, ARunningCopyIsSeenUntilItEndsAndItsFileIsThenRemoved) {
  PosixProcesses self(kBundle, folder);
  ASSERT_TRUE(self.announced());
  EXPECT_THAT(self.runningCopies(kBundle), IsEmpty());

  AnnouncedChild child(folder);
  ASSERT_TRUE(child.announced());
  EXPECT_THAT(self.runningCopies(kBundle), ElementsAre(child.pid()));
  EXPECT_THAT(self.runningCopies("org.example.Other"), IsEmpty());
  EXPECT_TRUE(isProcessAlive(self, child.pid()));

  // Killed, it can't clean up: its file stays until a reader finds the lock free.
  Pid ended = child.pid();
  child.end();
  std::string file = folder + "/com.example.Tolv-" + std::to_string(ended) + ".pid";
  EXPECT_TRUE(fs::exists(file));
  EXPECT_THAT(self.runningCopies(kBundle), IsEmpty());
  EXPECT_FALSE(fs::exists(file));
  EXPECT_FALSE(isProcessAlive(self, ended));
}

TEST_F(PosixProcessesTest, OnlyWellFormedNamesOfTheBundleCount) {
  for (const char* name : {"com.example.Tolv-12x.pid", "com.example.Tolv-.pid",
                           "com.example.Tolv-0.pid", "com.example.Tolv-1.pid.tmp-abc", "notes"}) {
    std::ofstream(folder + "/" + name) << "1";
  }
  PosixProcesses self(kBundle, folder);
  EXPECT_THAT(self.runningCopies(kBundle), IsEmpty());
  EXPECT_TRUE(fs::exists(folder + "/notes"));
}

TEST_F(PosixProcessesTest, LeavingRemovesTheOwnFileAndGroupsAreNeverSignalled) {
  {
    PosixProcesses self(kBundle, folder);
    EXPECT_TRUE(fs::exists(folder + "/com.example.Tolv-" + std::to_string(::getpid()) + ".pid"));
    EXPECT_EQ(self.sendSignal(0, SIGTERM), ESRCH);
    EXPECT_EQ(self.sendSignal(-1, 0), ESRCH);
    EXPECT_TRUE(isProcessAlive(self, ::getpid()));
  }
  EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(PosixProcessesTest, AnEndedChildNotYetReapedCountsAsGone) {
  PosixProcesses self(kBundle, folder);
  pid_t child = ::fork();
  if (child == 0) ::_exit(0);
  ASSERT_GT(child, 0);
  // Until its parent waits, the ended child still takes signals.
  auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (::kill(child, 0) == 0 && isProcessAlive(self, child) &&
         std::chrono::steady_clock::now() < deadline) {
    std::this_thread::yield();
  }
  EXPECT_EQ(::kill(child, 0), 0);
  EXPECT_FALSE(isProcessAlive(self, child));
  ::waitpid(child, nullptr, 0);
}

}  // namespace
}  // namespace tolv
