#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tolv {

inline constexpr size_t kMaximumRecentWindows = 8;

// The recents with `first` in front, in its order, each id once, cut to the
// maximum length.
std::vector<std::string> recentsWithFirst(const std::vector<std::string>& recents,
                                          const std::vector<std::string>& first);

}  // namespace tolv
