#include "platform/qt/QtTextMeasurer.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QString>

namespace tolv::qt {

double QtTextMeasurer::width(std::string_view text, double fontSize) {
  QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
  // Lengths are points, one to a logical pixel.
  font.setPixelSize(std::max(1, qRound(fontSize)));
  QFontMetricsF metrics(font);
  return metrics.horizontalAdvance(
      QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

}  // namespace tolv::qt
