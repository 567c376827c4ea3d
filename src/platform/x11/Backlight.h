#pragma once

#include <optional>
#include <string>

#include "platform/Brightness.h"

namespace tolv::x11 {

// The brightness of the first backlight device under the sysfs folder: read
// from its files, written through logind's SetBrightness, which needs no root,
// as an asynchronous call. Without a backlight there is no brightness.
class Backlight : public Brightness {
 public:
  explicit Backlight(std::string folder = "/sys/class/backlight");

  std::optional<float> brightness() override;
  bool setBrightness(float level) override;

 private:
  std::optional<std::string> device() const;

  std::string folder_;
};

}  // namespace tolv::x11
