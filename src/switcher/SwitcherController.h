#pragma once

namespace tolv {

// What the application delegate asks of the Control-Tab switcher. The switcher's
// controller implements it; the delegate stays free of the toolkit.
class SwitcherController {
 public:
  virtual ~SwitcherController() = default;
  // Takes up and gives back the switcher's own keys.
  virtual void start() = 0;
  virtual void stop() = 0;
  virtual bool panelIsVisible() const = 0;
  virtual void close() = 0;
};

}  // namespace tolv
