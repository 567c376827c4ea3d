#include "platform/x11/DesktopEntries.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "platform/x11/XdgFolders.h"

namespace tolv::x11 {

namespace {

bool equalIgnoringAsciiCase(const std::string& a, const std::string& b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return std::tolower(static_cast<unsigned char>(x)) ==
                  std::tolower(static_cast<unsigned char>(y));
         });
}

std::vector<std::string> defaultApplicationFolders() {
  std::vector<std::string> folders;
  std::string data = dataFolder();
  folders.push_back(data.substr(0, data.size() - std::string("/Tolv").size()) + "/applications");
  const char* dirs = std::getenv("XDG_DATA_DIRS");
  std::stringstream list(dirs && *dirs ? dirs : "/usr/local/share:/usr/share");
  for (std::string dir; std::getline(list, dir, ':');) {
    if (!dir.empty()) folders.push_back(dir + "/applications");
  }
  return folders;
}

}  // namespace

std::optional<DesktopEntry> parseDesktopEntry(const std::string& id, const std::string& text) {
  DesktopEntry entry;
  entry.id = id;
  bool inGroup = false;
  bool seenGroup = false;
  std::stringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty() || line[0] == '#') continue;
    if (line[0] == '[') {
      inGroup = line == "[Desktop Entry]";
      seenGroup = seenGroup || inGroup;
      continue;
    }
    if (!inGroup) continue;
    auto equals = line.find('=');
    if (equals == std::string::npos) continue;
    std::string key = line.substr(0, equals);
    std::string value = line.substr(equals + 1);
    while (!key.empty() && key.back() == ' ')
      key.pop_back();
    while (!value.empty() && value.front() == ' ')
      value.erase(value.begin());
    if (key == "Name") entry.name = value;
    if (key == "Icon") entry.icon = value;
    if (key == "StartupWMClass") entry.startupWMClass = value;
    if ((key == "Hidden" || key == "NoDisplay") && value == "true") return std::nullopt;
  }
  if (!seenGroup) return std::nullopt;
  return entry;
}

DesktopEntries::DesktopEntries() : DesktopEntries(defaultApplicationFolders()) {}

DesktopEntries::DesktopEntries(const std::vector<std::string>& applicationFolders) {
  namespace fs = std::filesystem;
  std::set<std::string> seen;
  for (const auto& folder : applicationFolders) {
    std::error_code error;
    for (const auto& file : fs::recursive_directory_iterator(folder, error)) {
      if (file.path().extension() != ".desktop") continue;
      // Ids of files in subfolders join the folder names with dashes.
      std::string id = fs::relative(file.path(), folder, error).replace_extension().string();
      std::replace(id.begin(), id.end(), '/', '-');
      if (!seen.insert(id).second) continue;
      std::ifstream in(file.path());
      std::stringstream text;
      text << in.rdbuf();
      if (auto entry = parseDesktopEntry(id, text.str())) entries_.push_back(std::move(*entry));
    }
  }
}

std::optional<DesktopEntry> DesktopEntries::forWindowClass(const std::string& windowClass) const {
  if (windowClass.empty()) return std::nullopt;
  for (const auto& entry : entries_) {
    if (!entry.startupWMClass.empty() && equalIgnoringAsciiCase(entry.startupWMClass, windowClass))
      return entry;
  }
  for (const auto& entry : entries_) {
    if (equalIgnoringAsciiCase(entry.id, windowClass)) return entry;
  }
  return std::nullopt;
}

std::optional<DesktopEntry> DesktopEntries::forId(const std::string& id) const {
  for (const auto& entry : entries_) {
    if (entry.id == id) return entry;
  }
  return std::nullopt;
}

}  // namespace tolv::x11
