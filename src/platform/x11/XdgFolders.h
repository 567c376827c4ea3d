#pragma once

#include <string>

namespace tolv::x11 {

// Tolv's folders in the user's base directories: $XDG_CONFIG_HOME/Tolv for the
// defaults, $XDG_DATA_HOME/Tolv for what the application keeps. An unset or
// relative variable falls back to ~/.config and ~/.local/share.
std::string configFolder();
std::string dataFolder();

}  // namespace tolv::x11
