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

// The text under Unicode case folding, for case-insensitive containment: a
// folded text contains a folded query when the originals match ignoring case.
// Ill-formed UTF-8 reads as U+FFFD.
std::string foldedForSearch(std::string_view text);

// The first grapheme cluster of the text; empty for an empty text.
std::string firstGrapheme(std::string_view text);

// The text without its last grapheme cluster (what one backspace removes).
std::string withoutLastGrapheme(std::string_view text);

}  // namespace tolv
