#include "LiveDesktop.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "support/TestApplication.h"

extern char** environ;

namespace tolv::x11::testing {

namespace {

std::string fixtureDisplay() {
  const char* state = std::getenv("TOLV_X11_DESKTOP_STATE");
  if (!state) return {};
  std::ifstream in(state);
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("DISPLAY=", 0) == 0) return line.substr(8);
  }
  return {};
}

}  // namespace

void LiveDesktopTest::SetUpTestSuite() {
  const std::string display = fixtureDisplay();
  if (display.empty()) return;
  ::setenv("DISPLAY", display.c_str(), 1);
  ::unsetenv("QT_QPA_PLATFORM");
  tolv::testing::ensureTestApplication();
}

void LiveDesktopTest::SetUp() {
  if (fixtureDisplay().empty()) GTEST_FAIL() << "no live X desktop: run through ctest";
  char pattern[] = "/tmp/tolv-live-XXXXXX";
  scratch_ = ::mkdtemp(pattern);
  configFolder = scratch_ + "/config/Tolv";
  dataFolder = scratch_ + "/data/Tolv";
  // The test's folders, for the platform and every copy of Tolv it starts. The
  // platform counts as a running copy in its runtime folder, so the copies
  // started by the test get another one.
  auto privateFolder = [&](const std::string& name) {
    const std::string path = scratch_ + "/" + name;
    std::filesystem::create_directories(path);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    return path;
  };
  for (const auto& [name, value] :
       {std::pair<const char*, std::string>{"XDG_CONFIG_HOME", scratch_ + "/config"},
        {"XDG_DATA_HOME", scratch_ + "/data"},
        {"XDG_RUNTIME_DIR", privateFolder("runtime-of-test")}}) {
    const char* before = std::getenv(name);
    savedEnvironment_.emplace_back(name,
                                   before ? std::optional<std::string>(before) : std::nullopt);
    ::setenv(name, value.c_str(), 1);
  }
  openDesktop();
  ::setenv("XDG_RUNTIME_DIR", privateFolder("runtime").c_str(), 1);
  ASSERT_NE(desktop, nullptr) << "the display " << fixtureDisplay() << " can't be opened";
}

void LiveDesktopTest::openDesktop() {
  desktop = X11Platform::open({}, configFolder, dataFolder);
  if (!desktop) return;
  runtimeLog_ = std::make_unique<RuntimeIssueFile>(desktop->platform());
  desktop->setRuntimeIssueLog(runtimeLog_.get());
}

void LiveDesktopTest::TearDown() {
  const std::vector<Pid> children = children_;
  for (Pid pid : children)
    terminate(pid);
  desktop.reset();
  for (const auto& [name, value] : savedEnvironment_) {
    if (value) {
      ::setenv(name.c_str(), value->c_str(), 1);
    } else {
      ::unsetenv(name.c_str());
    }
  }
  savedEnvironment_.clear();
  if (!scratch_.empty()) std::filesystem::remove_all(scratch_);
}

Pid LiveDesktopTest::spawn(const std::vector<std::string>& arguments,
                           const std::string& outputPath) {
  std::vector<char*> argv;
  for (const auto& argument : arguments)
    argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);
  // The clients' output would hold the test's own output open past its end.
  const char* output = outputPath.empty() ? "/dev/null" : outputPath.c_str();
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, output, O_WRONLY | O_CREAT | O_TRUNC, 0644);
  posix_spawn_file_actions_adddup2(&actions, 1, 2);
  pid_t pid = 0;
  const int failed = posix_spawnp(&pid, argv[0], &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (failed != 0) return 0;
  children_.push_back(pid);
  return pid;
}

std::optional<int> LiveDesktopTest::waitForExit(Pid pid, double seconds) {
  std::optional<int> status;
  waitUntil(
      [&] {
        int raw = 0;
        if (::waitpid(pid, &raw, WNOHANG) != pid) return false;
        status = WIFEXITED(raw) ? WEXITSTATUS(raw) : 128 + WTERMSIG(raw);
        return true;
      },
      seconds);
  if (status) std::erase(children_, pid);
  return status;
}

int LiveDesktopTest::run(const std::vector<std::string>& arguments) {
  Pid pid = spawn(arguments);
  if (pid <= 0) return -1;
  int status = 0;
  ::waitpid(pid, &status, 0);
  std::erase(children_, pid);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void LiveDesktopTest::terminate(Pid pid) {
  if (std::find(children_.begin(), children_.end(), pid) == children_.end()) return;
  ::kill(pid, SIGTERM);
  int status = 0;
  ::waitpid(pid, &status, 0);
  std::erase(children_, pid);
}

bool LiveDesktopTest::waitUntil(const std::function<bool()>& done, double seconds) {
  RunLoop& loop = *desktop->platform().runLoop;
  loop.spinUntil(loop.now() + seconds, 0.02, done);
  return done();
}

}  // namespace tolv::x11::testing
