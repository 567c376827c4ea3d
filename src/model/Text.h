#pragma once

#include <string>
#include <string_view>

namespace tolv {

// Text operations with Unicode rules, not ASCII ones. Strings are UTF-8.

// Removes white space and line breaks (the Unicode White_Space property) from
// both ends.
std::string trimmedWhitespaceAndNewlines(std::string_view text);

// Equality after Unicode case folding.
bool equalsIgnoringCase(std::string_view a, std::string_view b);

// Ordering by the current locale's collation, ignoring case: negative, zero or
// positive as a stands before, with or after b.
int localizedCaseInsensitiveCompare(std::string_view a, std::string_view b);

}  // namespace tolv
