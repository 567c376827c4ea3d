#pragma once

#include "platform/FileSystem.h"

namespace tolv {

// The file system of a POSIX machine, rooted at a given Application Support
// folder.
class PosixFileSystem : public FileSystem {
 public:
  explicit PosixFileSystem(std::string applicationSupportFolder)
      : folder_(std::move(applicationSupportFolder)) {}

  std::string applicationSupportFolder() override { return folder_; }
  bool createDirectories(const std::string& path) override;
  std::optional<std::vector<std::string>> listDirectory(const std::string& path) override;
  std::optional<std::vector<uint8_t>> readFile(const std::string& path) override;
  bool writeFileAtomically(const std::string& path, const std::vector<uint8_t>& data) override;
  bool appendToFile(const std::string& path, const std::vector<uint8_t>& data) override;
  bool removeFile(const std::string& path) override;
  bool moveFile(const std::string& from, const std::string& to) override;
  bool exists(const std::string& path) override;
  std::string resolvingSymlinks(const std::string& path) override;

 private:
  std::string folder_;
};

}  // namespace tolv
