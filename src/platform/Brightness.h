#pragma once

#include <optional>

#include "platform/Signal.h"

namespace tolv {

// The brightness of the main display, 0 to 1. Stands for the private
// DisplayServicesGetBrightness and DisplayServicesSetBrightness, loaded once
// through dlopen, on CGMainDisplayID.
class Brightness {
 public:
  virtual ~Brightness() = default;

  // Nothing when the display's brightness can't be read (no such function).
  virtual std::optional<float> brightness() = 0;
  // Whether the write went through.
  virtual bool setBrightness(float level) = 0;
  // Told on the main loop after the brightness changed from outside.
  Signal<>& changed() { return changed_; }

 private:
  Signal<> changed_;
};

}  // namespace tolv
