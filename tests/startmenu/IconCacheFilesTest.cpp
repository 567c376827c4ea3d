#include <gtest/gtest.h>

#include "startmenu/IconCacheFiles.h"

namespace tolv {
namespace {

TEST(IconCacheFiles, NamesUseTheUrlSafeAlphabetWithoutPadding) {
  // Standard base64 of these bytes is "+/8=".
  EXPECT_EQ(urlSafeBase64("\xfb\xff"), "-_8");
  EXPECT_EQ(fromUrlSafeBase64("-_8"), "\xfb\xff");
  // "bundle:a" needs two padding characters; the name holds none.
  std::string name = iconCacheFileName("bundle:a");
  EXPECT_EQ(name, "YnVuZGxlOmE.raw64");
  EXPECT_EQ(iconCacheKey(name), "bundle:a");
}

TEST(IconCacheFiles, KeysRoundTripThroughTheirFileNames) {
  for (std::string key :
       {"bundle:com.apple.Safari", "path:/Applications/Ünïcødé ✓.app", "running:日本語",
        "tolv:application", "lumo:taskbar:dark:v4", "a", "ab"}) {
    std::string name = iconCacheFileName(key);
    EXPECT_EQ(name.find('='), std::string::npos) << key;
    EXPECT_EQ(name.find('/'), std::string::npos) << key;
    EXPECT_EQ(iconCacheKey(name), key);
  }
}

TEST(IconCacheFiles, ForeignNamesGiveNoKey) {
  EXPECT_EQ(iconCacheKey("YnVuZGxlOmE"), std::nullopt);                   // no suffix
  EXPECT_EQ(iconCacheKey("YnVuZGxlOmE.raw64.tmp-a1b2c3"), std::nullopt);  // an unfinished write
  EXPECT_EQ(iconCacheKey("Ynv+ZGxl.raw64"), std::nullopt);                // the standard alphabet
  EXPECT_EQ(iconCacheKey("Yn=u.raw64"), std::nullopt);                    // padding in the name
  EXPECT_EQ(iconCacheKey("YnVuZ.raw64"), std::nullopt);                   // one character too many
  EXPECT_EQ(iconCacheKey(".DS_Store"), std::nullopt);
  EXPECT_EQ(iconCacheKey(iconCacheFileName("\xff\xfe not text")), std::nullopt);
}

}  // namespace
}  // namespace tolv
