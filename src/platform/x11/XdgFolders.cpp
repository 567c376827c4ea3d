#include "platform/x11/XdgFolders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace tolv::x11 {

namespace {

std::string homeFolder() {
  if (const char* home = std::getenv("HOME"); home && *home) return home;
  if (const passwd* entry = getpwuid(getuid()); entry && entry->pw_dir) return entry->pw_dir;
  return "/tmp";
}

std::string baseFolder(const char* variable, const char* fallbackUnderHome) {
  if (const char* value = std::getenv(variable); value && value[0] == '/') return value;
  return homeFolder() + "/" + fallbackUnderHome;
}

}  // namespace

std::string configFolder() {
  return baseFolder("XDG_CONFIG_HOME", ".config") + "/Tolv";
}
std::string dataFolder() {
  return baseFolder("XDG_DATA_HOME", ".local/share") + "/Tolv";
}

}  // namespace tolv::x11
