// Two real copies of the single-instance step meet through their pid files.

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tolv {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

// A probe process with its standard output read back; reaped as soon as it ends.
class Probe {
 public:
  Probe(const std::string& folder, const char* answer, const char* flag) {
    int out[2];
    if (::pipe(out) != 0) return;
    pid_ = ::fork();
    if (pid_ == 0) {
      ::dup2(out[1], STDOUT_FILENO);
      ::close(out[0]);
      ::close(out[1]);
      if (answer) ::setenv("TOLV_ALERT_ANSWER", answer, 1);
      ::execl(TOLV_INSTANCE_PROBE, TOLV_INSTANCE_PROBE, folder.c_str(), flag, nullptr);
      ::_exit(127);
    }
    ::close(out[1]);
    output_ = out[0];
    ::fcntl(output_, F_SETFL, O_NONBLOCK);
  }
  ~Probe() {
    if (!status_ && pid_ > 0) {
      ::kill(pid_, SIGKILL);
      int status = 0;
      ::waitpid(pid_, &status, 0);
    }
    if (output_ >= 0) ::close(output_);
  }

  // Reads what is there and reaps the process when it has ended.
  void pump() {
    char buffer[256];
    ssize_t count;
    while (output_ >= 0 && (count = ::read(output_, buffer, sizeof buffer)) > 0)
      text_.append(buffer, static_cast<size_t>(count));
    int status = 0;
    if (!status_ && pid_ > 0 && ::waitpid(pid_, &status, WNOHANG) == pid_) status_ = status;
  }

  pid_t pid() const { return pid_; }
  const std::string& text() const { return text_; }
  bool printed(const std::string& line) const {
    return text_.find(line + "\n") != std::string::npos;
  }
  bool ended() const { return status_.has_value(); }
  bool endedCleanly() const { return status_ && WIFEXITED(*status_) && WEXITSTATUS(*status_) == 0; }
  bool killedBy(int signal) const {
    return status_ && WIFSIGNALED(*status_) && WTERMSIG(*status_) == signal;
  }
  int output() const { return output_; }

 private:
  pid_t pid_ = -1;
  int output_ = -1;
  std::string text_;
  std::optional<int> status_;
};

class SingleInstanceProcessTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (fs::temp_directory_path() / "tolv-probe-XXXXXX").string();
    ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
    folder = pattern;
  }
  void TearDown() override {
    probes.clear();
    fs::remove_all(folder);
  }

  Probe& start(const char* answer = nullptr, const char* flag = nullptr) {
    probes.push_back(std::make_unique<Probe>(folder, answer, flag));
    return *probes.back();
  }

  // Keeps every probe read and reaped until the condition holds or ten seconds pass.
  bool until(const std::function<bool()>& condition) {
    auto deadline = Clock::now() + std::chrono::seconds(10);
    for (;;) {
      for (auto& probe : probes)
        probe->pump();
      if (condition()) return true;
      if (Clock::now() >= deadline) return false;
      std::vector<pollfd> fds;
      for (auto& probe : probes)
        fds.push_back({probe->output(), POLLIN, 0});
      ::poll(fds.data(), fds.size(), 5);
    }
  }

  std::string folder;
  std::vector<std::unique_ptr<Probe>> probes;
};

constexpr const char* kAlreadyRunning = "alert: 🏃 Tolv is already running.";

TEST_F(SingleInstanceProcessTest, OkEndsTheFirstCopyPolitelyAndTheSecondGoesOn) {
  Probe& first = start();
  ASSERT_TRUE(until([&] { return first.printed("running"); })) << first.text();
  EXPECT_EQ(first.text(), "running\n");

  Probe& second = start("OK");
  ASSERT_TRUE(until([&] { return second.printed("running") || second.ended(); })) << second.text();
  EXPECT_TRUE(second.printed(kAlreadyRunning));
  EXPECT_TRUE(second.printed("running"));
  ASSERT_TRUE(until([&] { return first.ended(); }));
  EXPECT_TRUE(first.endedCleanly());
  EXPECT_FALSE(fs::exists(folder + "/com.example.Tolv-" + std::to_string(first.pid()) + ".pid"));

  ::kill(second.pid(), SIGTERM);
  ASSERT_TRUE(until([&] { return second.ended(); }));
  EXPECT_TRUE(second.endedCleanly());
  EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(SingleInstanceProcessTest, CancelEndsTheSecondCopyAndTheFirstLives) {
  Probe& first = start();
  ASSERT_TRUE(until([&] { return first.printed("running"); }));

  Probe& second = start("Cancel");
  ASSERT_TRUE(until([&] { return second.ended(); })) << second.text();
  EXPECT_TRUE(second.endedCleanly());
  EXPECT_EQ(second.text(), std::string(kAlreadyRunning) + "\n");
  EXPECT_FALSE(first.ended());
  EXPECT_EQ(::kill(first.pid(), 0), 0);

  // The one left is still the copy that a third one finds.
  Probe& third = start("Cancel");
  ASSERT_TRUE(until([&] { return third.ended(); }));
  EXPECT_TRUE(third.printed(kAlreadyRunning));
  EXPECT_FALSE(first.ended());
}

TEST_F(SingleInstanceProcessTest, ACopyThatIgnoresTerminationIsKilled) {
  Probe& first = start(nullptr, "--ignore-terminate");
  ASSERT_TRUE(until([&] { return first.printed("running"); }));

  Probe& second = start("OK");
  ASSERT_TRUE(until([&] { return second.printed("running") || second.ended(); })) << second.text();
  EXPECT_TRUE(second.printed("running"));
  ASSERT_TRUE(until([&] { return first.ended(); }));
  EXPECT_TRUE(first.killedBy(SIGKILL));
}

TEST_F(SingleInstanceProcessTest, ARestartsNewCopyWaitsForTheOldOneWithoutAsking) {
  Probe& old = start(nullptr, "--restart");
  // The new copy shares the old one's output: it would print the alert's title,
  // and take "Cancel", had it asked.
  ASSERT_TRUE(until([&] { return old.ended() && old.text() == "running\nrestarting\nrunning\n"; }))
      << old.text();
  EXPECT_TRUE(old.endedCleanly());

  std::vector<fs::path> left;
  for (const auto& entry : fs::directory_iterator(folder))
    left.push_back(entry.path().filename());
  ASSERT_EQ(left.size(), 1u);
  const std::string name = left.front().string();
  const std::string oldFile = "com.example.Tolv-" + std::to_string(old.pid()) + ".pid";
  EXPECT_NE(name, oldFile);
  ASSERT_TRUE(name.ends_with(".pid")) << name;
  pid_t newPid = std::stoi(name.substr(std::string("com.example.Tolv-").size()));
  EXPECT_EQ(::kill(newPid, 0), 0);
  ::kill(newPid, SIGTERM);
  for (int i = 0; i < 400 && ::kill(newPid, 0) == 0; ++i)
    ::usleep(25000);
  EXPECT_NE(::kill(newPid, 0), 0);
}

}  // namespace
}  // namespace tolv
