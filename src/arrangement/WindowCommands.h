#pragma once

namespace tolv {

// The Finder is never terminated by the bar, and its untitled desktop window is
// left alone by the commands on all windows.
inline constexpr const char* kFinderBundleIdentifier = "com.apple.finder";

}  // namespace tolv
