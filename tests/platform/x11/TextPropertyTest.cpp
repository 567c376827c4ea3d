#include <gtest/gtest.h>

#include "platform/x11/TextProperty.h"

namespace tolv::x11 {
namespace {

TEST(TextProperty, IllFormedUtf8BecomesReplacementCharacters) {
  EXPECT_EQ(sanitizedUtf8("Editor \xE2\x80\x94 notes"), "Editor \xE2\x80\x94 notes");
  // A lone continuation byte, a sequence cut short at the end, an overlong form
  // of "/" and a surrogate each become U+FFFD; the text around them stays.
  EXPECT_EQ(sanitizedUtf8("a\x80z"), "a\xEF\xBF\xBDz");
  EXPECT_EQ(sanitizedUtf8("end\xE2\x80"), "end\xEF\xBF\xBD");
  EXPECT_EQ(sanitizedUtf8("\xC0\xAF"), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(sanitizedUtf8("\xED\xA0\x80!"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD!");
}

TEST(TextProperty, StringPropertiesAreLatin1UnlessTheyAreValidUtf8) {
  EXPECT_EQ(utf8FromLatin1("caf\xE9"), "caf\xC3\xA9");
  EXPECT_EQ(utf8FromLatin1("\xA9 \xFF\xDF"), "\xC2\xA9 \xC3\xBF\xC3\x9F");
  EXPECT_EQ(utf8FromLatin1("plain"), "plain");
  // UTF-8 written into STRING, as xdotool and many toolkits do.
  EXPECT_EQ(utf8FromLatin1("Notes \xE2\x9C\x93"), "Notes \xE2\x9C\x93");
}

TEST(TextProperty, EachEncodingDecodesToUtf8) {
  CompoundTextDecoder noDisplay("unreachable.invalid:99");
  EXPECT_EQ(decodeTextProperty(TextEncoding::Latin1, "caf\xE9", noDisplay), "caf\xC3\xA9");
  EXPECT_EQ(decodeTextProperty(TextEncoding::Utf8, "caf\xC3\xA9", noDisplay), "caf\xC3\xA9");
  // UTF-8 is never read as Latin-1: a broken byte is a replacement, not "Ã".
  EXPECT_EQ(decodeTextProperty(TextEncoding::Utf8, "caf\xE9", noDisplay), "caf\xEF\xBF\xBD");
  EXPECT_EQ(decodeTextProperty(TextEncoding::Other, "x\xFF", noDisplay), "x\xEF\xBF\xBD");
  // Without a display for Xlib, compound text falls back to its Latin-1 base.
  EXPECT_EQ(decodeTextProperty(TextEncoding::CompoundText, "caf\xE9", noDisplay), "caf\xC3\xA9");
  EXPECT_FALSE(noDisplay.decode("caf\xE9"));
}

}  // namespace
}  // namespace tolv::x11
