#include "app/scenario/DesktopSetup.h"

#include "app/scenario/PropertyJson.h"
#include "model/AppModel.h"
#include "model/SettingsCatalogue.h"
#include "platform/sim/SimRestart.h"
#include "platform/sim/SimScreenCapture.h"
#include "platform/sim/SimTray.h"
#include "platform/sim/SimUserDefaults.h"
#include "platform/sim/SimWorkspace.h"

namespace tolv::scenario {

namespace {

std::string indexed(const std::string& place, size_t index) {
  return place + "[" + std::to_string(index) + "]";
}

const Json& listAt(JsonReader& reader, std::string_view key) {
  const Json& list = reader.require(key);
  if (!list.is_array()) {
    reader.fail(key, "expected a list, found " + describeType(list));
  }
  return list;
}

ActivationPolicy readPolicy(JsonReader& app) {
  auto policy = app.string("policy");
  if (!policy || *policy == "regular") return ActivationPolicy::Regular;
  if (*policy == "accessory") return ActivationPolicy::Accessory;
  if (*policy == "prohibited") return ActivationPolicy::Prohibited;
  app.fail("policy",
           "expected \"regular\", \"accessory\" or \"prohibited\", found \"" + *policy + "\"");
}

uint32_t readWindowNumber(JsonReader& reader, std::string_view key) {
  int64_t number = *reader.integer(key);
  if (number < 0 || number > UINT32_MAX) reader.fail(key, "not a window number");
  return static_cast<uint32_t>(number);
}

std::string readSpaceOf(JsonReader& window, const std::set<std::string>& spaces) {
  auto space = window.string("space");
  if (!space) return {};
  if (!spaces.count(*space)) window.fail("space", "unknown space \"" + *space + "\"");
  return *space;
}

}  // namespace

sim::WindowSetup readWindow(JsonReader window, const std::set<std::string>& spaces) {
  sim::WindowSetup setup;
  setup.title = window.string("title").value_or("");
  setup.identifier = window.string("identifier");
  setup.role = window.string("role").value_or(setup.role);
  setup.size = window.size("size").value_or(setup.size);
  setup.position = window.point("position").value_or(setup.position);
  if (window.has("number")) setup.number = readWindowNumber(window, "number");
  if (window.has("hash")) {
    int64_t hash = *window.integer("hash");
    if (hash < 0) window.fail("hash", "expected a number from 0");
    setup.hash = static_cast<uint64_t>(hash);
  }
  setup.space = readSpaceOf(window, spaces);
  setup.minimized = window.flag("minimized").value_or(false);
  setup.focused = window.flag("focused").value_or(false);
  setup.layer = window.integer("layer").value_or(0);
  window.finish();
  return setup;
}

sim::AppSetup readApp(JsonReader app, const std::set<std::string>& spaces) {
  sim::AppSetup setup;
  int64_t pid = app.requireInteger("pid");
  if (pid <= 0 || pid > INT32_MAX) app.fail("pid", "expected a process identifier above 0");
  if (pid == sim::SimDesktop::kOwnPid) {
    app.fail("pid", std::to_string(pid) + " is Tolv's own process");
  }
  setup.pid = static_cast<Pid>(pid);
  setup.bundleIdentifier = app.string("bundleIdentifier");
  setup.name = app.string("name");
  setup.bundleURL = app.string("bundleURL");
  setup.policy = readPolicy(app);
  setup.active = app.flag("active").value_or(false);
  setup.hidden = app.flag("hidden").value_or(false);
  setup.responding = app.flag("responding").value_or(true);
  if (app.has("windows")) {
    const Json& windows = listAt(app, "windows");
    for (size_t i = 0; i < windows.size(); ++i) {
      setup.windows.push_back(
          readWindow(JsonReader(windows[i], indexed(app.placeOf("windows"), i)), spaces));
    }
  }
  app.finish();
  return setup;
}

sim::WindowSelector readSelector(JsonReader selector) {
  sim::WindowSelector result;
  result.title = selector.string("title");
  if (selector.has("number")) result.number = readWindowNumber(selector, "number");
  if (selector.has("index")) {
    int64_t index = *selector.integer("index");
    if (index < 0) selector.fail("index", "expected a position from 0");
    result.index = static_cast<size_t>(index);
  }
  selector.finish();
  int given = result.title.has_value() + result.number.has_value() + result.index.has_value();
  if (given != 1) {
    throw ScenarioError(
        selector.place() +
        ": a window selector names exactly one of \"title\", \"number\", \"index\"");
  }
  return result;
}

std::vector<Screen> readScreens(const Json& screens, const std::string& place) {
  if (!screens.is_array()) {
    throw ScenarioError(place + ": expected a list, found " + describeType(screens));
  }
  std::vector<Screen> result;
  for (size_t i = 0; i < screens.size(); ++i) {
    JsonReader screen(screens[i], indexed(place, i));
    Screen read;
    if (!screen.has("frame")) screen.fail("frame", "missing");
    read.frame = *screen.rect("frame");
    read.visibleFrame = screen.rect("visibleFrame").value_or(read.frame);
    read.identifier =
        screen.string("identifier").value_or(i == 0 ? "Main" : "Screen " + std::to_string(i + 1));
    read.backingScaleFactor = screen.number("backingScaleFactor").value_or(2);
    screen.finish();
    if (read.frame.width <= 0 || read.frame.height <= 0) {
      screen.fail("frame", "a screen needs a width and a height");
    }
    result.push_back(read);
  }
  return result;
}

sim::SpaceSetup readSpace(JsonReader space) {
  sim::SpaceSetup setup;
  setup.display = space.string("display").value_or("Main");
  setup.uuid = space.string("uuid").value_or("");
  auto unsignedNumber = [&](std::string_view key) -> std::optional<uint64_t> {
    auto number = space.integer(key);
    if (number && *number < 0) space.fail(key, "expected a number from 0");
    if (!number) return std::nullopt;
    return static_cast<uint64_t>(*number);
  };
  setup.id64 = unsignedNumber("id64");
  setup.managedSpaceID = unsignedNumber("managedSpaceID");
  if (setup.uuid.empty() && !setup.managedSpaceID) {
    space.fail("uuid", "a space needs a uuid or a managedSpaceID");
  }
  setup.type = space.integer("type").value_or(0);
  setup.name = space.string("name");
  if (auto pid = space.integer("pid")) setup.pid = static_cast<Pid>(*pid);
  if (const Json* tiles = space.take("tileApps")) {
    if (!tiles->is_array()) space.fail("tileApps", "expected a list of application names");
    for (const auto& tile : *tiles) {
      if (!tile.is_string()) space.fail("tileApps", "expected a list of application names");
      setup.tileApps.push_back(tile.get<std::string>());
    }
  }
  setup.current = space.flag("current").value_or(false);
  space.finish();
  return setup;
}

std::map<std::string, PropertyValue> readDefaultsValues(const std::string& domain,
                                                        const Json& values,
                                                        const std::string& place) {
  if (!values.is_object()) {
    throw ScenarioError(place + ": expected an object, found " + describeType(values));
  }
  std::map<std::string, PropertyValue> result;
  for (const auto& [key, value] : values.items()) {
    const SettingDescriptor* setting = domain == kTolvBundleIdentifier ? findSetting(key) : nullptr;
    if (setting && setting->type == SettingType::Data && value.is_string()) {
      const std::string text = value.get<std::string>();
      result.emplace(key, PropertyValue::Data(text.begin(), text.end()));
      continue;
    }
    result.emplace(key, propertyFromJson(value, place + "." + key));
  }
  return result;
}

std::set<std::string> DesktopSetup::spaceIdentifiers() const {
  std::set<std::string> keys;
  for (const auto& space : spaces)
    keys.insert(space.key());
  if (keys.empty()) keys.insert(sim::SimDesktop::kMainSpace);
  return keys;
}

sim::SimProcessSetup readOtherCopy(JsonReader copy) {
  sim::SimProcessSetup setup;
  int64_t pid = copy.requireInteger("pid");
  if (pid <= 0 || pid > INT32_MAX || pid == sim::SimDesktop::kOwnPid) {
    copy.fail("pid", "expected a pid other than Tolv's own (" +
                         std::to_string(sim::SimDesktop::kOwnPid) + ")");
  }
  setup.pid = static_cast<Pid>(pid);
  setup.quitDelay = copy.number("quitDelay").value_or(0);
  if (setup.quitDelay < 0) copy.fail("quitDelay", "expected seconds, 0 or more");
  setup.ignoresTerminate = copy.flag("ignoresTerminate").value_or(false);
  setup.ignoresSignal15 = copy.flag("ignoresSignal15").value_or(false);
  setup.ownedByOtherUser = copy.flag("otherUser").value_or(false);
  setup.endingForRestart = copy.flag("endingForRestart").value_or(false);
  copy.finish();
  return setup;
}

DesktopSetup readDesktop(JsonReader desktop) {
  DesktopSetup setup;
  if (const Json* screens = desktop.take("screens")) {
    setup.screens = readScreens(*screens, desktop.placeOf("screens"));
    if (setup.screens.empty()) desktop.fail("screens", "at least one screen is needed");
  }
  setup.accessibility = desktop.flag("accessibility").value_or(true);
  setup.screenCapture = desktop.flag("screenCapture").value_or(true);
  if (auto measure = desktop.string("textMeasure")) {
    if (*measure == "fixed") {
      setup.textMeasure = TextMeasure::Fixed;
    } else if (*measure == "toolkit") {
      setup.textMeasure = TextMeasure::Toolkit;
    } else {
      desktop.fail("textMeasure", "expected \"fixed\" or \"toolkit\", found \"" + *measure + "\"");
    }
  }
  if (auto domains = desktop.object("defaults")) {
    const Json& all = desktop.require("defaults");
    for (const auto& [domain, values] : all.items()) {
      setup.defaults[domain] = readDefaultsValues(domain, values, domains->placeOf(domain));
    }
  }
  if (desktop.has("spaces")) {
    const Json& spaces = listAt(desktop, "spaces");
    std::set<std::string> seen;
    for (size_t i = 0; i < spaces.size(); ++i) {
      std::string place = indexed(desktop.placeOf("spaces"), i);
      setup.spaces.push_back(readSpace(JsonReader(spaces[i], place)));
      if (!seen.insert(setup.spaces.back().key()).second) {
        throw ScenarioError(place + ".uuid: a second space \"" + setup.spaces.back().key() + "\"");
      }
    }
  }
  if (desktop.has("apps")) {
    const Json& apps = listAt(desktop, "apps");
    std::set<Pid> pids;
    for (size_t i = 0; i < apps.size(); ++i) {
      std::string place = indexed(desktop.placeOf("apps"), i);
      setup.apps.push_back(readApp(JsonReader(apps[i], place), setup.spaceIdentifiers()));
      if (!pids.insert(setup.apps.back().pid).second) {
        throw ScenarioError(place + ".pid: a second application with pid " +
                            std::to_string(setup.apps.back().pid));
      }
    }
  }
  if (auto dock = desktop.object("dock")) {
    std::map<std::string, std::string> badges;
    if (const Json* given = dock->take("badges")) {
      if (!given->is_object()) {
        dock->fail("badges", "expected an object, found " + describeType(*given));
      }
      for (const auto& [name, label] : given->items()) {
        if (!label.is_string()) {
          throw ScenarioError(dock->placeOf("badges") + "." + name + ": expected a string, found " +
                              describeType(label));
        }
        badges[name] = label.get<std::string>();
      }
    }
    dock->finish();
    setup.dockBadges = std::move(badges);
  }
  setup.tray = readTraySetup(desktop);
  if (desktop.has("otherCopies")) {
    const Json& copies = listAt(desktop, "otherCopies");
    for (size_t i = 0; i < copies.size(); ++i) {
      std::string place = indexed(desktop.placeOf("otherCopies"), i);
      setup.otherCopies.push_back(readOtherCopy(JsonReader(copies[i], place)));
    }
  }
  setup.bundlePath = desktop.string("bundlePath");
  setup.relaunchFailure = desktop.string("relaunchFails");
  setup.installedApplications = readInstalledApplications(desktop);
  desktop.finish();
  return setup;
}

void buildDesktop(sim::SimDesktop& desktop, const DesktopSetup& setup) {
  desktop.screens().setScreens(setup.screens);
  desktop.setAccessibilityGranted(setup.accessibility);
  desktop.screenCapture().setAccessGranted(setup.screenCapture);
  desktop.setSpaces(setup.spaces);
  for (const auto& [domain, values] : setup.defaults) {
    for (const auto& [key, value] : values)
      desktop.defaults().setValue(domain, key, value);
  }
  desktop.populate(setup.apps);
  if (setup.dockBadges) {
    desktop.dock().setRunning(true);
    for (const auto& [title, label] : *setup.dockBadges)
      desktop.dock().setBadge(title, label);
  }
  buildTray(desktop, setup.tray);
  for (const auto& copy : setup.otherCopies)
    desktop.processes().addProcess(copy);
  if (setup.bundlePath) {
    BundleInfo bundle = desktop.workspace().mainBundle();
    bundle.path = *setup.bundlePath;
    desktop.workspace().setMainBundle(bundle);
  }
  desktop.instanceLauncher().setLaunchFailure(setup.relaunchFailure);
  installApplications(desktop, setup.installedApplications);
}

}  // namespace tolv::scenario
