#pragma once

#include "taskbar/TextMeasurer.h"

namespace tolv::qt {

// Measures with the toolkit's general system font. Needs the toolkit's
// application object.
class QtTextMeasurer : public TextMeasurer {
 public:
  double width(std::string_view text, double fontSize) override;
};

}  // namespace tolv::qt
