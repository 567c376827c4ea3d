#include "taskbar/QuickLaunch.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "model/Text.h"

namespace tolv {

namespace {

using Kind = QuicklyLaunchItem::Kind;

constexpr std::array kBuiltIns{
    BuiltInQuickLaunch{Kind::Safari, "Safari", "com.apple.Safari", &Settings::quicklyLaunchSafari},
    BuiltInQuickLaunch{Kind::Finder, "Finder", "com.apple.finder", &Settings::quicklyLaunchFinder},
    BuiltInQuickLaunch{Kind::TextEdit, "TextEdit", "com.apple.TextEdit",
                       &Settings::quicklyLaunchTextEdit},
    BuiltInQuickLaunch{Kind::Photos, "Photos", "com.apple.Photos", &Settings::quicklyLaunchPhotos},
    BuiltInQuickLaunch{Kind::Terminal, "Terminal", "com.apple.Terminal",
                       &Settings::quicklyLaunchTerminal},
};

std::string lowered(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return result;
}

// The file name of a path without its extension ("/Applications/Notes.app" → "Notes").
std::string applicationName(const std::string& path) {
  std::string_view name = path;
  while (name.size() > 1 && name.back() == '/')
    name.remove_suffix(1);
  if (auto slash = name.rfind('/'); slash != std::string_view::npos) name.remove_prefix(slash + 1);
  if (auto dot = name.rfind('.'); dot != std::string_view::npos && dot > 0)
    name = name.substr(0, dot);
  return std::string(name);
}

// Whether the text starts with a scheme, a letter and then letters, digits,
// "+", "-" or ".", up to a colon. A colon followed only by digits is a port.
bool hasScheme(std::string_view address) {
  auto colon = address.find(':');
  if (colon == std::string_view::npos || colon == 0) return false;
  if (!std::isalpha(static_cast<unsigned char>(address[0]))) return false;
  for (char c : address.substr(0, colon)) {
    if (!std::isalnum(static_cast<unsigned char>(c)) && c != '+' && c != '-' && c != '.') {
      return false;
    }
  }
  std::string_view rest = address.substr(colon + 1);
  auto portEnd = std::find_if(rest.begin(), rest.end(),
                              [](char c) { return !std::isdigit(static_cast<unsigned char>(c)); });
  bool isPort = portEnd != rest.begin() && (portEnd == rest.end() || *portEnd == '/');
  return !isPort;
}

QuicklyLaunchItem item(std::string id, std::string name, Kind kind,
                       std::optional<std::string> path = std::nullopt) {
  QuicklyLaunchItem made;
  made.id = std::move(id);
  made.name = std::move(name);
  made.kind = kind;
  made.path = std::move(path);
  return made;
}

}  // namespace

std::span<const BuiltInQuickLaunch> builtInQuickLaunchButtons() {
  return kBuiltIns;
}

std::vector<QuicklyLaunchItem> buildQuicklyLaunchItems(
    const Settings& settings, const std::function<bool(const std::string& path)>& exists) {
  std::vector<QuicklyLaunchItem> items;
  for (const auto& builtIn : kBuiltIns) {
    if (!(settings.*builtIn.shown)) continue;
    items.push_back(item(rawValue(builtIn.kind), builtIn.name, builtIn.kind));
  }
  if (settings.quicklyLaunchLumo) {
    items.push_back(item(rawValue(Kind::Lumo), kSwitcherQuickLaunchName, Kind::Lumo));
  }
  if (settings.quicklyLaunchDesktop) {
    items.push_back(item(rawValue(Kind::Desktop), kShowDesktopQuickLaunchName, Kind::Desktop));
  }
  for (const auto& path : settings.customQuicklyLaunchPaths) {
    if (!exists(path)) continue;
    items.push_back(item("custom:" + path, applicationName(path), Kind::Custom, path));
  }
  for (const auto& launcher : settings.customWebLaunchers) {
    items.push_back(item("web:" + launcher.id, launcher.name, Kind::Web, launcher.url));
  }
  const auto& order = settings.quicklyLaunchOrder;
  auto position = [&](const QuicklyLaunchItem& item) {
    return static_cast<size_t>(std::find(order.begin(), order.end(), item.id) - order.begin());
  };
  std::stable_sort(items.begin(), items.end(),
                   [&](const auto& a, const auto& b) { return position(a) < position(b); });
  return items;
}

std::optional<std::vector<std::string>> movedQuickLaunchOrder(std::vector<std::string> ids,
                                                              const std::string& dragged,
                                                              const std::string& target) {
  auto from = std::find(ids.begin(), ids.end(), dragged);
  auto to = std::find(ids.begin(), ids.end(), target);
  if (from == ids.end() || to == ids.end() || from == to) return std::nullopt;
  size_t i = static_cast<size_t>(from - ids.begin());
  size_t t = static_cast<size_t>(to - ids.begin());
  ids.erase(from);
  ids.insert(ids.begin() + static_cast<std::ptrdiff_t>(i < t ? t - 1 : t), dragged);
  return ids;
}

bool isApplicationPath(std::string_view path) {
  while (path.size() > 1 && path.back() == '/')
    path.remove_suffix(1);
  auto dot = path.rfind('.');
  auto slash = path.rfind('/');
  if (dot == std::string_view::npos || (slash != std::string_view::npos && dot < slash)) {
    return false;
  }
  return lowered(path.substr(dot + 1)) == "app";
}

bool addCustomQuickLaunchPath(Settings& settings, const std::string& path) {
  auto& paths = settings.customQuicklyLaunchPaths;
  if (!isApplicationPath(path) || std::find(paths.begin(), paths.end(), path) != paths.end()) {
    return false;
  }
  paths.push_back(path);
  return true;
}

void removeQuickLaunchItem(Settings& settings, const QuicklyLaunchItem& item) {
  std::erase(settings.quicklyLaunchOrder, item.id);
  switch (item.kind) {
    case Kind::Custom:
      if (item.path) {
        std::erase(settings.customQuicklyLaunchPaths, *item.path);
        settings.customQuicklyLaunchIconPaths.erase(*item.path);
      }
      break;
    case Kind::Web:
      std::erase_if(settings.customWebLaunchers, [&](const CustomWebLauncher& launcher) {
        return "web:" + launcher.id == item.id;
      });
      break;
    case Kind::Lumo:
      settings.quicklyLaunchLumo = false;
      break;
    case Kind::Desktop:
      settings.quicklyLaunchDesktop = false;
      break;
    default:
      for (const auto& builtIn : kBuiltIns) {
        if (builtIn.kind == item.kind) settings.*builtIn.shown = false;
      }
  }
}

std::optional<std::string> normalizedWebAddress(std::string_view address) {
  std::string trimmed = trimmedWhitespaceAndNewlines(address);
  if (trimmed.empty()) return std::nullopt;
  if (!hasScheme(trimmed)) trimmed = "https://" + trimmed;
  return trimmed;
}

std::string scriptStringEscaped(std::string_view text) {
  std::string escaped;
  for (char c : text) {
    if (c == '\\' || c == '"') escaped += '\\';
    escaped += c;
  }
  return escaped;
}

std::string quickLaunchScript(std::string_view bundleIdentifier, std::string_view command) {
  std::string script = "tell application id \"";
  script.append(bundleIdentifier);
  script += "\"\n    activate\n    ";
  script.append(command);
  script += "\nend tell";
  return script;
}

std::string webLauncherCommand(std::string_view address) {
  return "make new document with properties {URL:\"" + scriptStringEscaped(address) + "\"}";
}

}  // namespace tolv
