#include "platform/posix/PosixProcesses.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tolv {

namespace fs = std::filesystem;

namespace {

volatile sig_atomic_t terminationSignalled = 0;

void noteTerminationSignal(int) {
  terminationSignalled = 1;
}

constexpr const char* kRestartSuffix = ".restart";

std::string pidFileName(const std::string& bundleIdentifier, Pid pid) {
  return bundleIdentifier + "-" + std::to_string(pid) + ".pid";
}

// The pid of a file named for a copy of this bundle; nothing for other names.
std::optional<Pid> pidOfFile(const std::string& name, const std::string& bundleIdentifier) {
  std::string prefix = bundleIdentifier + "-";
  std::string suffix = ".pid";
  if (name.size() <= prefix.size() + suffix.size() || !name.starts_with(prefix) ||
      !name.ends_with(suffix)) {
    return std::nullopt;
  }
  const char* first = name.data() + prefix.size();
  const char* last = name.data() + name.size() - suffix.size();
  Pid pid = 0;
  auto [end, error] = std::from_chars(first, last, pid);
  if (error != std::errc() || end != last || pid <= 0) return std::nullopt;
  return pid;
}

// A process that has ended but not yet been reaped by its parent still takes
// signals; /proc tells it apart. Where /proc can't be read, it counts as alive.
bool isZombie(Pid pid) {
  std::ifstream file("/proc/" + std::to_string(pid) + "/stat");
  std::string stat((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  auto nameEnd = stat.rfind(')');
  return nameEnd != std::string::npos && nameEnd + 2 < stat.size() && stat[nameEnd + 2] == 'Z';
}

}  // namespace

std::string PosixProcesses::instanceFolder() {
  if (const char* runtime = std::getenv("XDG_RUNTIME_DIR"); runtime && *runtime) {
    return (fs::path(runtime) / "Tolv").string();
  }
  return (fs::temp_directory_path() / ("Tolv-" + std::to_string(::getuid()))).string();
}

PosixProcesses::PosixProcesses(std::string bundleIdentifier, std::string folder)
    : folder_(std::move(folder)), bundleIdentifier_(bundleIdentifier) {
  std::error_code ignored;
  fs::create_directories(folder_, ignored);
  ownFile_ = (fs::path(folder_) / pidFileName(bundleIdentifier, ::getpid())).string();
  // The file is locked before it takes its name, so no reader ever finds it free.
  std::string temporary = ownFile_ + ".tmp-XXXXXX";
  int fd = ::mkstemp(temporary.data());
  if (fd < 0) return;
  std::string pid = std::to_string(::getpid()) + "\n";
  if (::flock(fd, LOCK_EX | LOCK_NB) != 0 ||
      ::write(fd, pid.data(), pid.size()) != static_cast<ssize_t>(pid.size()) ||
      ::rename(temporary.c_str(), ownFile_.c_str()) != 0) {
    ::unlink(temporary.c_str());
    ::close(fd);
    return;
  }
  ::fcntl(fd, F_SETFD, FD_CLOEXEC);
  lockFd_ = fd;
}

PosixProcesses::~PosixProcesses() {
  if (lockFd_ < 0) return;
  ::unlink((ownFile_ + kRestartSuffix).c_str());
  ::unlink(ownFile_.c_str());
  ::close(lockFd_);
}

std::vector<Pid> PosixProcesses::runningCopies(const std::string& bundleIdentifier) {
  std::vector<Pid> copies;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder_, error)) {
    std::string name = entry.path().filename().string();
    auto pid = pidOfFile(name, bundleIdentifier);
    if (!pid || *pid == ::getpid()) continue;
    int fd = ::open(entry.path().c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) continue;
    if (::flock(fd, LOCK_SH | LOCK_NB) == 0) {
      ::unlink((entry.path().string() + kRestartSuffix).c_str());
      ::unlink(entry.path().c_str());
    } else if (errno == EWOULDBLOCK) {
      copies.push_back(*pid);
    }
    ::close(fd);
  }
  std::sort(copies.begin(), copies.end());
  return copies;
}

void PosixProcesses::terminate(Pid pid) {
  if (pid > 0) ::kill(pid, SIGTERM);
}

bool PosixProcesses::terminationRequested() const {
  return terminationRequested_ || terminationSignalled != 0;
}

void PosixProcesses::setEndingForRestart(bool ending) {
  if (lockFd_ < 0) return;
  const std::string marker = ownFile_ + kRestartSuffix;
  if (!ending) {
    ::unlink(marker.c_str());
    return;
  }
  int fd = ::open(marker.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  if (fd >= 0) ::close(fd);
}

bool PosixProcesses::isEndingForRestart(Pid pid) {
  if (pid <= 0) return false;
  std::error_code ignored;
  const fs::path pidFile = fs::path(folder_) / pidFileName(bundleIdentifier_, pid);
  return fs::exists(pidFile.string() + kRestartSuffix, ignored);
}

void PosixProcesses::acceptTerminationRequests() {
  struct sigaction action = {};
  action.sa_handler = noteTerminationSignal;
  sigemptyset(&action.sa_mask);
  action.sa_flags = SA_RESTART;
  ::sigaction(SIGTERM, &action, nullptr);
}

int PosixProcesses::sendSignal(Pid pid, int signal) {
  // kill(2) reads 0 and negative pids as process groups; those are never meant.
  if (pid <= 0) return ESRCH;
  if (::kill(pid, signal) != 0) return errno;
  // An ended copy waiting for its parent's wait counts as gone, or a copy whose
  // parent is slow to reap would be mistaken for one that won't quit.
  if (signal == process_signal::Probe && isZombie(pid)) return ESRCH;
  return 0;
}

}  // namespace tolv
