#pragma once

#include <vector>

#include "platform/Input.h"

namespace tolv {

// Function-F, the system's full-screen toggle: Function and F go down with the
// Function flag, F comes up with it, and Function comes up with no flags.
std::vector<KeyEvent> fullScreenToggleKeys();

}  // namespace tolv
