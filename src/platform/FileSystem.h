#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tolv {

// Files under the user's Application Support folder. Paths are absolute.
// Stands for NSFileManager and Data.write(to:options: .atomic).
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // The folder "Tolv" under the user's Application Support folder; not created here.
  virtual std::string applicationSupportFolder() = 0;

  virtual bool createDirectories(const std::string& path) = 0;
  // Names of the entries of a folder, sorted; nothing when it can't be listed.
  virtual std::optional<std::vector<std::string>> listDirectory(const std::string& path) = 0;
  virtual std::optional<std::vector<uint8_t>> readFile(const std::string& path) = 0;
  // Replaces the file as a whole or not at all: a temporary file beside it is
  // written, flushed to disk and renamed over it.
  virtual bool writeFileAtomically(const std::string& path, const std::vector<uint8_t>& data) = 0;
  virtual bool appendToFile(const std::string& path, const std::vector<uint8_t>& data) = 0;
  virtual bool removeFile(const std::string& path) = 0;
  virtual bool moveFile(const std::string& from, const std::string& to) = 0;
  virtual bool exists(const std::string& path) = 0;
  // The path with every symbolic link in it resolved; parts that don't exist stay
  // as they are (NSURL.resolvingSymlinksInPath).
  virtual std::string resolvingSymlinks(const std::string& path) = 0;
};

}  // namespace tolv
