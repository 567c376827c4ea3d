#include "platform/posix/PosixFileSystem.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tolv {

namespace fs = std::filesystem;

namespace {

bool writeAll(int fd, const std::vector<uint8_t>& data) {
  size_t written = 0;
  while (written < data.size()) {
    ssize_t result = ::write(fd, data.data() + written, data.size() - written);
    if (result < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    written += static_cast<size_t>(result);
  }
  return true;
}

void syncDirectoryOf(const std::string& path) {
  std::string directory = fs::path(path).parent_path().string();
  int fd = ::open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_DIRECTORY);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}

}  // namespace

bool PosixFileSystem::createDirectories(const std::string& path) {
  std::error_code error;
  fs::create_directories(path, error);
  return !error && fs::is_directory(path, error);
}

std::optional<std::vector<std::string>> PosixFileSystem::listDirectory(const std::string& path) {
  std::error_code error;
  fs::directory_iterator entries(path, error);
  if (error) return std::nullopt;
  std::vector<std::string> names;
  for (const auto& entry : entries)
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

std::optional<std::vector<uint8_t>> PosixFileSystem::readFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  std::vector<uint8_t> data((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (in.bad()) return std::nullopt;
  return data;
}

bool PosixFileSystem::writeFileAtomically(const std::string& path,
                                          const std::vector<uint8_t>& data) {
  std::string temporary = path + ".tmp-XXXXXX";
  int fd = ::mkstemp(temporary.data());
  if (fd < 0) return false;
  bool ok = writeAll(fd, data) && ::fsync(fd) == 0;
  ok = (::close(fd) == 0) && ok;
  if (ok) ok = ::rename(temporary.c_str(), path.c_str()) == 0;
  if (!ok) {
    ::unlink(temporary.c_str());
    return false;
  }
  syncDirectoryOf(path);
  return true;
}

bool PosixFileSystem::appendToFile(const std::string& path, const std::vector<uint8_t>& data) {
  int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
  if (fd < 0) return false;
  bool ok = writeAll(fd, data);
  return (::close(fd) == 0) && ok;
}

bool PosixFileSystem::removeFile(const std::string& path) {
  std::error_code error;
  return fs::remove(path, error) && !error;
}

bool PosixFileSystem::moveFile(const std::string& from, const std::string& to) {
  return ::rename(from.c_str(), to.c_str()) == 0;
}

bool PosixFileSystem::exists(const std::string& path) {
  std::error_code error;
  return fs::exists(path, error);
}

std::string PosixFileSystem::resolvingSymlinks(const std::string& path) {
  std::error_code error;
  fs::path resolved = fs::weakly_canonical(path, error);
  return error ? path : resolved.string();
}

}  // namespace tolv
