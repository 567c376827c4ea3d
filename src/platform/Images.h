#pragma once

#include <string_view>

#include "platform/Image.h"

namespace tolv {

// Making and converting images. Stands for NSImage and its representations.
class Images {
 public:
  virtual ~Images() = default;

  // A symbol image of the system's own set, such as "app".
  virtual Image systemSymbol(std::string_view name) = 0;
};

}  // namespace tolv
