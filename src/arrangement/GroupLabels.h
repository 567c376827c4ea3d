#pragma once

#include <string>
#include <string_view>

namespace tolv {

// What a custom group is called and shows until the user says otherwise.
inline constexpr const char* kDefaultGroupName = "New Group";
inline constexpr const char* kDefaultGroupIcon = "📁";

// The icon a custom group gets from what the user typed: the first character
// as a reader sees it (one grapheme cluster, so a flag or an emoji with its
// modifiers stays whole), ignoring white space around it; the folder emoji
// when nothing is left.
std::string groupIconFromText(std::string_view text);

}  // namespace tolv
