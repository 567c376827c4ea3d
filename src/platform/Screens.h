#pragma once

#include <string>
#include <vector>

#include "platform/Geometry.h"
#include "platform/Signal.h"

namespace tolv {

struct Screen {
  std::string identifier;  // the display's identifier
  Rect frame;              // in design coordinates
  Rect visibleFrame;       // without the menu bar and the Dock
  double backingScaleFactor = 1;
  bool operator==(const Screen&) const = default;
};

// The displays. Stands for NSScreen.screens, NSScreen.mainScreen and
// NSApplicationDidChangeScreenParametersNotification.
class Screens {
 public:
  virtual ~Screens() = default;

  // The first is the main screen, the one that holds the menu bar.
  virtual std::vector<Screen> screens() = 0;
  // The screen of the key window, else the first.
  virtual std::vector<Screen>::size_type mainScreenIndex() { return 0; }
  // Told after the set of screens or any frame changes.
  Signal<>& changed() { return changed_; }

 private:
  Signal<> changed_;
};

}  // namespace tolv
