#include <gtest/gtest.h>

#include <QFont>
#include <QGlyphRun>
#include <QTextLayout>

#include "arrangement/GroupLabels.h"
#include "model/Settings.h"
#include "support/TestApplication.h"
#include "taskbar/TaskTexts.h"

namespace tolv {
namespace {

// Glyph 0 is the box a font draws for a character it lacks.
bool drawsWithoutBoxes(const QString& text) {
  QTextLayout layout(text, QFont());
  layout.beginLayout();
  layout.createLine();
  layout.endLayout();
  for (const QGlyphRun& run : layout.glyphRuns()) {
    for (quint32 glyph : run.glyphIndexes()) {
      if (glyph == 0) return false;
    }
  }
  return !layout.glyphRuns().isEmpty();
}

TEST(SymbolFont, TheSymbolsAndEmojiOfTheBarsOwnTextsHaveGlyphs) {
  testing::ensureTestApplication();
  const std::vector<std::string> texts = {std::string(kFullscreenToggleTitle),
                                          kDefaultGroupIcon,
                                          Settings{}.customStartIcon,
                                          "Ⓣ",
                                          "𝙩",
                                          "🔔",
                                          "🔊",
                                          "☀",
                                          "⏱︎",
                                          "🏃"};
  for (const auto& text : texts)
    EXPECT_TRUE(drawsWithoutBoxes(QString::fromStdString(text))) << text;
}

}  // namespace
}  // namespace tolv
