#include <gtest/gtest.h>

#include <QApplication>

#include "platform/qt/QtTextMeasurer.h"
#include "support/TestApplication.h"

namespace tolv {
namespace {

class QtTextMeasure : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { tolv::testing::ensureTestApplication(); }
  qt::QtTextMeasurer measure;
};

TEST_F(QtTextMeasure, WidthsGrowWithTheTextAndTheFontSize) {
  EXPECT_DOUBLE_EQ(measure.width("", 12), 0);
  double one = measure.width("Mail", 12);
  double two = measure.width("Mail Mail", 12);
  EXPECT_GT(one, 0);
  EXPECT_GT(two, one * 1.8);
  EXPECT_GT(measure.width("Mail", 24), one * 1.7);
  // Non-ASCII text measures as text, not as bytes of zero width.
  EXPECT_GT(measure.width("\xC3\x9C"
                          "ber \xE2\x80\x94 Caf\xC3\xA9",
                          12),
            one);
}

}  // namespace
}  // namespace tolv
