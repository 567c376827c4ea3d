// What Tolv left on the desktop: its defaults, its log, the alerts it showed,
// what it did to other applications and the platform calls it made. Only the
// defaults and the log are known on the live desktop.

#include "app/RuntimeIssues.h"
#include "app/scenario/Checkpoints.h"
#include "app/scenario/PropertyJson.h"
#include "app/scenario/RuntimeLogEntries.h"
#include "platform/sim/SimAccessibility.h"
#include "platform/sim/SimAlerts.h"
#include "platform/sim/SimProcesses.h"
#include "platform/sim/SimUserDefaults.h"

namespace tolv::scenario {
namespace {

using Field = std::optional<OutJson>;

// The simulated desktop's Application Support folder is a fresh temporary
// folder each run; checkpoints name it as macOS would, so that lines repeat.
constexpr const char* kShownSupportFolder = "~/Library/Application Support/Tolv";

OutJson withStableSupportFolder(OutJson value, const std::string& folder) {
  if (value.is_string()) {
    std::string text = value.get<std::string>();
    for (size_t at = text.find(folder); at != std::string::npos;
         at = text.find(folder, at + std::char_traits<char>::length(kShownSupportFolder))) {
      text.replace(at, folder.size(), kShownSupportFolder);
    }
    return text;
  }
  if (value.is_structured()) {
    for (auto& element : value)
      element = withStableSupportFolder(std::move(element), folder);
  }
  return value;
}

// A field whose text may name files of the simulated desktop's own folder.
std::function<OutJson(RunContext&)> namingFiles(std::function<OutJson(RunContext&)> read) {
  return [read = std::move(read)](RunContext& run) {
    OutJson value = read(run);
    if (!run.desktop || run.desktop->applicationSupportFolder().empty()) return value;
    return withStableSupportFolder(std::move(value), run.desktop->applicationSupportFolder());
  };
}

OutJson storedDefaults(RunContext& run) {
  OutJson values = OutJson::object();
  for (const auto& [key, value] : run.model.platform().userDefaults->values(kTolvBundleIdentifier))
    values[key] = OutJson(propertyToJson(value));
  return values;
}

OutJson logEntries(RunContext& run) {
  OutJson entries = OutJson::array();
  FileSystem& files = *run.model.platform().fileSystem;
  auto bytes = files.readFile(runtimeLogPath(files));
  if (!bytes) return entries;
  for (const auto& entry : parseRuntimeLog(std::string(bytes->begin(), bytes->end()))) {
    entries.push_back(OutJson{{"title", entry.title}, {"detail", entry.detail}});
  }
  return entries;
}

OutJson shownAlerts(RunContext& run) {
  OutJson alerts = OutJson::array();
  for (const auto& shown : run.desktop->alerts().shown()) {
    OutJson alert{
        {"title", shown.alert.title}, {"text", shown.alert.text}, {"buttons", shown.alert.buttons}};
    for (const auto& box : shown.alert.checkBoxes)
      alert["checkBoxes"].push_back(OutJson{{"title", box.title}, {"checked", box.checked}});
    alerts.push_back(std::move(alert));
  }
  return alerts;
}

// Each command as { "time", "kind", ... }, the rest of its fields in name order.
OutJson actions(RunContext& run) {
  OutJson entries = OutJson::array();
  for (const auto& action : run.desktop->actionLog()) {
    OutJson entry{{"time", action.at("time")}, {"kind", action.at("kind")}};
    for (const auto& [key, value] : action.items()) {
      if (key != "time" && key != "kind") entry[key] = OutJson(value);
    }
    entries.push_back(std::move(entry));
  }
  return entries;
}

// The other copies of Tolv: alive or when they ended, and what reached them.
OutJson otherCopies(RunContext& run) {
  OutJson copies = OutJson::array();
  for (const auto& [pid, process] : run.desktop->processes().processes()) {
    OutJson copy{{"pid", pid}, {"alive", process.alive}, {"received", process.received}};
    if (process.endedAt) copy["endedAt"] = *process.endedAt;
    copies.push_back(std::move(copy));
  }
  return copies;
}

// A field that only the simulated desktop records; left out on the live desktop.
FieldReader simulated(std::function<OutJson(RunContext&)> read) {
  return [read = std::move(read)](RunContext& run) -> Field {
    if (!run.desktop) return std::nullopt;
    return read(run);
  };
}

const FieldRegistration kDesktopFields{{
    {"defaults", [](RunContext& run) -> Field { return namingFiles(storedDefaults)(run); }},
    {"log", [](RunContext& run) -> Field { return logEntries(run); }},
    {"alerts", simulated(namingFiles(shownAlerts))},
    // The start colour of every showing of the colour panel, null for none.
    {"colorPanels", simulated([](RunContext& run) {
       OutJson shown = OutJson::array();
       for (const auto& initial : run.desktop->alerts().colorPanelsShown()) {
         shown.push_back(initial ? OutJson{initial->red, initial->green, initial->blue}
                                 : OutJson());
       }
       return shown;
     })},
    {"actions", simulated(namingFiles(actions))},
    {"otherCopies", simulated(otherCopies)},
    {"calls", simulated([](RunContext& run) -> OutJson { return run.desktop->calls().all(); })},
    // Accessibility calls that reached each application or one of its elements,
    // by pid: which applications a refresh asked anything.
    {"accessibilityCallsByApplication", simulated([](RunContext& run) {
       OutJson byPid = OutJson::object();
       for (const auto& [pid, count] : run.desktop->accessibility().callsByPid())
         byPid[std::to_string(pid)] = count;
       return byPid;
     })},
}};

}  // namespace
}  // namespace tolv::scenario
