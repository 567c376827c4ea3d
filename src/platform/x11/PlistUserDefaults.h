#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/FileSystem.h"
#include "platform/UserDefaults.h"

namespace tolv::x11 {

// The defaults as one XML property list per domain, `<folder>/<domain>.plist`.
// A domain is read on first use and written through, atomically, on every
// change. Entries of types the store doesn't hand out (dates, uids) stay in the
// file untouched. A file that can't be read as a dictionary is moved aside as
// `<domain>.plist.unreadable-<time>` before anything is written, reported, and
// the domain starts empty.
class PlistUserDefaults : public UserDefaults {
 public:
  using UnreadableReport = std::function<void(const std::string& title, const std::string& detail)>;

  // `now` gives the seconds since 1970 for the names of set-aside files.
  PlistUserDefaults(FileSystem& fileSystem, std::string folder, std::function<double()> now,
                    UnreadableReport report);
  ~PlistUserDefaults() override;
  PlistUserDefaults(const PlistUserDefaults&) = delete;
  PlistUserDefaults& operator=(const PlistUserDefaults&) = delete;

  std::optional<PropertyValue> value(std::string_view domain, std::string_view key) override;
  void setValue(std::string_view domain, std::string_view key, PropertyValue value) override;
  void removeValue(std::string_view domain, std::string_view key) override;
  std::map<std::string, PropertyValue> values(std::string_view domain) override;
  void synchronize(std::string_view domain) override;

  std::string pathOf(std::string_view domain) const;

 private:
  struct Domain;
  Domain& domain(std::string_view name);
  void write(std::string_view name, Domain& domain);

  FileSystem& fileSystem_;
  std::string folder_;
  std::function<double()> now_;
  UnreadableReport report_;
  std::map<std::string, std::unique_ptr<Domain>, std::less<>> domains_;
};

}  // namespace tolv::x11
