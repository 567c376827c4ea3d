#pragma once

#include <string_view>

namespace tolv {

// Measures one line of text in the system font. The toolkit's font metrics in
// the application; a fixed rule in headless runs and tests, so that widths are
// exact there. Stands for NSFont.systemFont(ofSize:) with sizeWithAttributes:.
class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;

  // The width in points of `text` (UTF-8) set in the system font of `fontSize`.
  virtual double width(std::string_view text, double fontSize) = 0;
};

}  // namespace tolv
