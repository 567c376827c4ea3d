#include "taskbar/PanelGeometry.h"

#include <unicode/unistr.h>

#include <cmath>

#include "model/SettingsCatalogue.h"
#include "model/Text.h"
#include "taskbar/TaskbarLocation.h"

namespace tolv {

namespace {

constexpr double kEdgeTriggerThickness = 1;
constexpr double kLeftCornerSize = 18;
constexpr double kRightCornerSize = 6;

std::string lowercased(std::string_view text) {
  std::string result;
  icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), text.size()))
      .toLower()
      .toUTF8String(result);
  return result;
}

std::string capitalized(std::string_view text) {
  std::string lower = lowercased(text);
  if (!lower.empty() && lower[0] >= 'a' && lower[0] <= 'z') lower[0] = lower[0] - 'a' + 'A';
  return lower;
}

std::optional<bool> booleanFromText(std::string_view text) {
  std::string word = lowercased(trimmedWhitespaceAndNewlines(text));
  if (word == "1" || word == "true" || word == "yes") return true;
  if (word == "0" || word == "false" || word == "no") return false;
  return std::nullopt;
}

std::string ownString(Defaults& own, std::string_view key) {
  return stringValue(readWhereUsed(own, key)).value_or(std::string());
}

}  // namespace

std::optional<bool> readForeignBoolean(UserDefaults& store, std::string_view domain,
                                       std::string_view key) {
  auto stored = store.value(domain, key);
  if (!stored) return std::nullopt;
  if (auto flag = stored->getIf<bool>()) return *flag;
  if (auto number = stored->getIf<int64_t>()) {
    if (*number == 0 || *number == 1) return *number == 1;
    return std::nullopt;
  }
  if (auto number = stored->getIf<double>()) {
    if (*number == 0 || *number == 1) return *number == 1;
    return std::nullopt;
  }
  if (auto text = stored->getIf<std::string>()) return booleanFromText(*text);
  return std::nullopt;
}

bool topMenuBufferNeeded(UserDefaults& store, Defaults& own) {
  if (ownString(own, "topContextMenuDetectionMode") != "Manual") {
    return readForeignBoolean(store, kGlobalDomain, "_HIHideMenuBar").value_or(true);
  }
  std::string manual = ownString(own, "topContextMenuManualMode");
  return manual != "No Buffer" && manual != "Always Shown";
}

std::string macOSMenuBarMode(UserDefaults& store) {
  auto hide = readForeignBoolean(store, kGlobalDomain, "_HIHideMenuBar");
  auto fullscreen = readForeignBoolean(store, kGlobalDomain, "AppleMenuBarVisibleInFullscreen");
  bool hidden = hide == true;
  if (!fullscreen) return hidden ? "" : "Never";
  if (!hidden) return *fullscreen ? "Never" : "";
  return *fullscreen ? "" : "Always";
}

double initialPanelThickness(std::string_view location, bool bufferNeeded) {
  return framedPanelThickness(location, kPanelThickness, bufferNeeded);
}

double framedPanelThickness(std::string_view location, double thickness, bool bufferNeeded) {
  return isTopEdge(location) && bufferNeeded ? thickness + kTopBufferHeight : thickness;
}

Rect panelFrame(std::string_view location, const Screen& screen, double thickness,
                bool bufferNeeded) {
  const Rect& frame = screen.frame;
  if (isSideEdge(location)) {
    double x = location == taskbar_location::RightSide ? frame.maxX() - thickness : frame.minX();
    return {x, frame.minY(), thickness, frame.height};
  }
  if (!isTopBar(location)) return {frame.minX(), frame.minY(), frame.width, thickness};
  double top = bufferNeeded ? frame.maxY() : screen.visibleFrame.maxY();
  return {frame.minX(), top - thickness, frame.width, thickness};
}

Rect edgeTriggerFrame(std::string_view location, const Screen& screen) {
  const Rect& frame = screen.frame;
  if (isSideEdge(location)) {
    double x = location == taskbar_location::RightSide ? frame.maxX() - kEdgeTriggerThickness
                                                       : frame.minX();
    return {x, frame.minY(), kEdgeTriggerThickness, frame.height};
  }
  if (isTopEdge(location)) {
    return {frame.minX(), frame.maxY() - kEdgeTriggerThickness, frame.width, kEdgeTriggerThickness};
  }
  return {frame.minX(), frame.minY(), frame.width, kEdgeTriggerThickness};
}

std::vector<CornerTrigger> cornerTriggers(std::string_view location, const Screen& screen) {
  const Rect& frame = screen.frame;
  std::vector<CornerTrigger> triggers;
  if (location != taskbar_location::TopLeft && location != taskbar_location::LeftAlt) {
    return triggers;
  }
  triggers.push_back(
      {Rect{frame.minX(), frame.maxY() - kLeftCornerSize, kLeftCornerSize, kLeftCornerSize}, true});
  if (location == taskbar_location::TopLeft) {
    triggers.push_back({Rect{frame.maxX() - kRightCornerSize, frame.maxY() - kRightCornerSize,
                             kRightCornerSize, kRightCornerSize},
                        false});
  }
  return triggers;
}

void setMacOSDockPosition(UserDefaults& store, Defaults& own, const std::string& value,
                          const std::function<void()>& restartDock) {
  constexpr std::string_view kOriginal = "TolvOriginalMacOSDockPosition";
  if (!own.contains(kOriginal)) {
    auto orientation = stringValue(store.value(kDockDomain, "orientation"));
    own.set(kOriginal, capitalized(orientation.value_or("bottom")));
    own.synchronize();
  }
  std::string target = value;
  if (value == "Default") target = stringValue(own.value(kOriginal)).value_or("Bottom");
  store.setValue(kDockDomain, "orientation", lowercased(target));
  own.set("macOSDockPosition", value);
  own.synchronize();
  if (restartDock) restartDock();
}

}  // namespace tolv
