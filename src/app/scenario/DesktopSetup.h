#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "app/scenario/JsonReader.h"
#include "app/scenario/StartMenuSetup.h"
#include "app/scenario/TraySetup.h"
#include "platform/PropertyValue.h"
#include "platform/Screens.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimProcesses.h"
#include "platform/sim/SimScreens.h"

namespace tolv::scenario {

enum class TextMeasure { Fixed, Toolkit };

// The desktop a scenario starts from, read and checked before anything runs.
struct DesktopSetup {
  std::vector<Screen> screens{sim::SimScreens::standardScreen()};
  bool accessibility = true;
  bool screenCapture = true;
  // Nothing: the run's own default (fixed headless, the toolkit's fonts live).
  std::optional<TextMeasure> textMeasure;
  std::map<std::string, std::map<std::string, PropertyValue>> defaults;
  std::vector<sim::SpaceSetup> spaces;
  std::vector<sim::AppSetup> apps;
  // Present when the Dock runs; its badges by item title.
  std::optional<std::map<std::string, std::string>> dockBadges;
  TraySetup tray;
  // Other copies of Tolv already running, each answering a request to quit as
  // it is told to.
  std::vector<sim::SimProcessSetup> otherCopies;
  // Where Tolv runs from; a path that isn't an application bundle can't restart.
  std::optional<std::string> bundlePath;
  // The description a restart's new instance fails with; nothing: it starts.
  std::optional<std::string> relaunchFailure;
  // The applications the start menu finds installed.
  std::vector<sim::CatalogueEntry> installedApplications;

  // The keys windows and events name spaces by: the uuid, else "msid:" + number.
  std::set<std::string> spaceIdentifiers() const;
};

DesktopSetup readDesktop(JsonReader desktop);

// Pieces that desktop events read too.
sim::AppSetup readApp(JsonReader app, const std::set<std::string>& spaces);
sim::WindowSetup readWindow(JsonReader window, const std::set<std::string>& spaces);
sim::WindowSelector readSelector(JsonReader selector);
std::vector<Screen> readScreens(const Json& screens, const std::string& place);
sim::SpaceSetup readSpace(JsonReader space);
// One domain's values by key. A data value of the application's own domain is
// given as the text a checkpoint prints for it.
std::map<std::string, PropertyValue> readDefaultsValues(const std::string& domain,
                                                        const Json& values,
                                                        const std::string& place);

// Gives the simulated desktop everything the setup describes, before the model exists.
void buildDesktop(sim::SimDesktop& desktop, const DesktopSetup& setup);

}  // namespace tolv::scenario
