#pragma once

#include <string>

namespace tolv {

// A fresh random (version 4) UUID in the platform's form: upper-case
// hexadecimal digits in groups of 8-4-4-4-12.
std::string makeUUIDString();

}  // namespace tolv
