#include <gtest/gtest.h>

#include <QApplication>

#include "platform/qt/QtPlatform.h"
#include "platform/qt/QtTextMeasurer.h"
#include "taskbar/TabWidths.h"

namespace tolv {
namespace {

class QtTextMeasure : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    static int argc = 1;
    static char name[] = "tolv_ui_tests";
    static char* argv[] = {name, nullptr};
    qt::ensureApplication(argc, argv);
  }
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

TEST_F(QtTextMeasure, TabWidthsFromRealFontsStayWithinTheTabLimits) {
  EXPECT_DOUBLE_EQ(naturalTabWidth("a", false, measure), 64);
  EXPECT_DOUBLE_EQ(naturalTabWidth(std::string(200, 'W'), false, measure), 280);
  double width = naturalTabWidth("Inbox \xE2\x80\x94 Mail", false, measure);
  EXPECT_EQ(width, std::ceil(width));
}

}  // namespace
}  // namespace tolv
