#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/Records.h"
#include "model/Settings.h"

namespace tolv {

// A built-in button of the quick-launch row and the setting that shows it.
struct BuiltInQuickLaunch {
  QuicklyLaunchItem::Kind kind;
  const char* name;
  const char* bundleIdentifier;
  bool Settings::*shown;
};

// The five application buttons, in the order they stand.
std::span<const BuiltInQuickLaunch> builtInQuickLaunchButtons();

inline constexpr const char* kSwitcherQuickLaunchName = "Lumo Switcher";
inline constexpr const char* kShowDesktopQuickLaunchName = "Show Desktop";

// The row's items without their icons: the shown built-ins, the switcher and
// the desktop, the custom applications whose file exists (a missing one stays
// stored and comes back with its file), the web launchers; then sorted by
// quicklyLaunchOrder, items it doesn't list behind, in building order.
std::vector<QuicklyLaunchItem> buildQuicklyLaunchItems(
    const Settings& settings, const std::function<bool(const std::string& path)>& exists);

// The order after dropping `dragged` onto `target`: it lands directly before
// the target. Nothing when either is missing or they are the same.
std::optional<std::vector<std::string>> movedQuickLaunchOrder(std::vector<std::string> ids,
                                                              const std::string& dragged,
                                                              const std::string& target);

// Whether a path names an application bundle: its extension is "app", in any case.
bool isApplicationPath(std::string_view path);
// Appends an application's path unless it is there; whether it was added.
bool addCustomQuickLaunchPath(Settings& settings, const std::string& path);
// Takes an item out of the row: its id leaves the order; a built-in's setting
// turns off, a custom application's path and icon go, a web launcher goes.
void removeQuickLaunchItem(Settings& settings, const QuicklyLaunchItem& item);

// The address a web launcher keeps: trimmed, with "https://" in front when it
// names no scheme ("example.com", "localhost:8080"); nothing when it is empty.
std::optional<std::string> normalizedWebAddress(std::string_view address);
// Text for a double-quoted script string: backslashes doubled, quotes escaped.
std::string scriptStringEscaped(std::string_view text);
// The script that tells an application to do `command`.
std::string quickLaunchScript(std::string_view bundleIdentifier, std::string_view command);
// The command that opens an address in a new browser document.
std::string webLauncherCommand(std::string_view address);

}  // namespace tolv
