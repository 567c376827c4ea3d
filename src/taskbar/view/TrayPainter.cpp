#include "taskbar/view/TrayPainter.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

#include "taskbar/view/Glyphs.h"
#include "taskbar/view/TabPainter.h"

namespace tolv {

namespace {

constexpr double kClockFontSize = 11;
constexpr double kCornerOpacity = 0.3;
constexpr double kDisabledOpacity = 0.35;
const QColor kCloseRed(255, 46, 46);

QRectF toQt(const Rect& rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

QColor fromRgba(const Rgba& color) {
  return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                          static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

QRectF centred(const QRectF& frame, double width, double height) {
  return {frame.center().x() - width / 2, frame.center().y() - height / 2, width, height};
}

// The speaker with as many waves as its symbol has; a slash when muted.
void paintVolume(QPainter& painter, const QRectF& frame, double level, const QColor& color) {
  QRectF speaker = centred(frame, 12, 10).translated(-3, 0);
  drawGlyph(painter, Glyph::Speaker, QRectF(speaker.left(), speaker.top(), 6, 10), color, 1);
  std::string symbol = volumeSymbol(level);
  painter.setPen(QPen(color, 1.2, Qt::SolidLine, Qt::RoundCap));
  if (symbol == "speaker.slash.fill") {
    painter.drawLine(QPointF(speaker.left(), speaker.top()),
                     QPointF(speaker.right(), speaker.bottom()));
    return;
  }
  int waves = symbol == "speaker.wave.1.fill" ? 1 : symbol == "speaker.wave.2.fill" ? 2 : 3;
  for (int wave = 1; wave <= waves; ++wave) {
    double r = 2.5 * wave;
    QRectF arc(speaker.left() + 5 - r, speaker.center().y() - r, 2 * r, 2 * r);
    painter.drawArc(arc, -45 * 16, 90 * 16);
  }
}

void paintBattery(QPainter& painter, const QRectF& frame, const TrayLook& look) {
  if (!look.battery) return;
  int64_t percentage = look.battery->percentage;
  QRectF body = centred(frame, 12, 7);
  painter.setPen(QPen(Qt::white, 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(body.adjusted(0, 0, -1.5, 0), 1.5, 1.5);
  painter.fillRect(QRectF(body.right() - 1.2, body.center().y() - 1.5, 1.2, 3), Qt::white);
  // The symbol's steps: empty, a quarter, a half, three quarters, full.
  const std::string symbol = batterySymbol(percentage);
  double filled = symbol == "battery.0percent"    ? 0
                  : symbol == "battery.25percent" ? 0.25
                  : symbol == "battery.50percent" ? 0.5
                  : symbol == "battery.75percent" ? 0.75
                                                  : 1;
  QRectF inside = body.adjusted(1.5, 1.5, -3, -1.5);
  inside.setWidth(inside.width() * filled);
  painter.fillRect(inside, fromRgba(batteryLevelColor(percentage, look.batteryColors)));
  if (look.battery->isCharging) {
    QRectF plug = centred(frame, 5, 7);
    QPainterPath bolt;
    bolt.moveTo(plug.center().x() + 1, plug.top());
    bolt.lineTo(plug.left(), plug.center().y() + 0.5);
    bolt.lineTo(plug.center().x(), plug.center().y() + 0.5);
    bolt.lineTo(plug.center().x() - 1, plug.bottom());
    bolt.lineTo(plug.right(), plug.center().y() - 0.5);
    bolt.lineTo(plug.center().x(), plug.center().y() - 0.5);
    bolt.closeSubpath();
    painter.fillPath(bolt.translated(0.6, 0.6), QColor(0, 0, 0, 204));
    painter.fillPath(bolt, Qt::white);
  }
}

void paintLevelBar(QPainter& painter, const QRectF& frame, double level) {
  QRectF track(frame.left() + 2, frame.bottom() - 3, frame.width() - 4, 2);
  painter.fillRect(track, QColor(255, 255, 255, 70));
  painter.fillRect(QRectF(track.left(), track.top(), track.width() * level, 2), Qt::white);
}

void paintAttention(QPainter& painter, const QRectF& frame, const TrayControl& control,
                    const TrayLook& look) {
  drawGlyph(painter, Glyph::Bell, centred(frame, 10, 11), QColor(255, 255, 255, 200), 1);
  if (control.text.empty()) return;
  painter.setFont(systemFont(8, true));
  QFontMetricsF metrics(painter.font());
  double width =
      std::max(12.0, metrics.horizontalAdvance(QString::fromStdString(control.text)) + 6);
  QRectF badge(frame.right() - width + 3, frame.top() + 3, width, 12);
  QPainterPath pill;
  pill.addRoundedRect(badge, 6, 6);
  painter.fillPath(pill, look.badgeColor);
  painter.setPen(Qt::white);
  painter.drawText(badge, Qt::AlignCenter, QString::fromStdString(control.text));
}

}  // namespace

void paintTrayControl(QPainter& painter, const TrayControl& control, const TrayLook& look) {
  painter.save();
  QRectF frame = toQt(control.frame);
  QColor white(Qt::white);
  if (!control.enabled) painter.setOpacity(kDisabledOpacity);
  switch (control.kind) {
    case TrayKind::Time:
    case TrayKind::Date:
      painter.setFont(systemFont(kClockFontSize));
      painter.setPen(white);
      painter.drawText(frame, Qt::AlignRight | Qt::AlignVCenter,
                       QString::fromStdString(control.text));
      break;
    case TrayKind::Volume:
      paintVolume(painter, frame, control.value.value_or(0), white);
      if (look.volumeSliderShown && control.value) paintLevelBar(painter, frame, *control.value);
      break;
    case TrayKind::Brightness: {
      double level = control.value.value_or(0);
      std::string symbol = brightnessSymbol(level);
      double size = symbol == "sun.min.fill" ? 9 : 12;
      drawGlyph(painter, Glyph::Sun, centred(frame, size, size), white,
                symbol == "sun.max" ? 1.0 : 1.5);
      if (look.brightnessSliderShown && control.value) paintLevelBar(painter, frame, level);
      break;
    }
    case TrayKind::Battery:
      paintBattery(painter, frame, look);
      break;
    case TrayKind::Attention:
      paintAttention(painter, frame, control, look);
      break;
    case TrayKind::Desktop:
      painter.setFont(systemFont(14, true));
      painter.setPen(white);
      painter.drawText(frame, Qt::AlignCenter, QString::fromStdString(control.text));
      break;
    case TrayKind::Refresh:
      drawGlyph(painter, Glyph::ArrowClockwise, centred(frame, 10, 10), white, 1.3);
      break;
    case TrayKind::Lock:
      drawGlyph(painter, Glyph::Lock, centred(frame, 9, 11), white, 1);
      break;
    case TrayKind::HideAll:
      painter.setOpacity(kCornerOpacity);
      drawGlyph(painter, Glyph::ArrowDown, centred(frame, 7, 9), white, 1.5);
      break;
    case TrayKind::CloseAll:
      painter.setOpacity(kCornerOpacity);
      drawGlyph(painter, Glyph::XMark, centred(frame, 7, 7), kCloseRed, 2);
      break;
  }
  painter.restore();
}

}  // namespace tolv
