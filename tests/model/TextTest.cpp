#include <gtest/gtest.h>

#include "model/Text.h"

namespace tolv {
namespace {

TEST(Trimming, RemovesUnicodeWhiteSpaceAndLineBreaksAtBothEnds) {
  EXPECT_EQ(trimmedWhitespaceAndNewlines("  Inbox \n"), "Inbox");
  // No-break space, ideographic space, line separator, next line, tab.
  EXPECT_EQ(trimmedWhitespaceAndNewlines("\u00A0\u3000Doc\u2028\u0085\t"), "Doc");
  EXPECT_EQ(trimmedWhitespaceAndNewlines("a b\u00A0c"), "a b\u00A0c");
  EXPECT_EQ(trimmedWhitespaceAndNewlines(" \u2003\n "), "");
  EXPECT_EQ(trimmedWhitespaceAndNewlines(""), "");
}

TEST(Trimming, LeavesOtherInvisibleCharactersAlone) {
  // A zero-width space is not white space by Unicode's definition.
  EXPECT_EQ(trimmedWhitespaceAndNewlines("\u200BDoc"), "\u200BDoc");
}

TEST(CaseInsensitiveEquality, FoldsCaseByUnicodeRules) {
  EXPECT_TRUE(equalsIgnoringCase("FINDER", "Finder"));
  EXPECT_TRUE(equalsIgnoringCase("ÉCOLE", "école"));
  EXPECT_TRUE(equalsIgnoringCase("Straße", "STRASSE"));
  EXPECT_FALSE(equalsIgnoringCase("Finder", "Finder "));
  EXPECT_FALSE(equalsIgnoringCase("école", "ecole"));
}

TEST(LocalizedOrdering, IgnoresCaseButNotLetters) {
  EXPECT_EQ(localizedCaseInsensitiveCompare("apple", "APPLE"), 0);
  EXPECT_LT(localizedCaseInsensitiveCompare("apple", "Banana"), 0);
  EXPECT_GT(localizedCaseInsensitiveCompare("zebra", "Apple"), 0);
  EXPECT_LT(localizedCaseInsensitiveCompare("Émile", "Fred"), 0);
}

}  // namespace
}  // namespace tolv
