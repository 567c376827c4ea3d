#include "taskbar/view/TabPainter.h"

#include <QFontDatabase>
#include <QPainter>
#include <QPainterPath>
#include <QTextBoundaryFinder>

#include "platform/qt/QtImages.h"
#include "taskbar/TaskTexts.h"
#include "taskbar/view/Glyphs.h"

namespace tolv {

namespace {

constexpr double kGlyphScale = 0.64;
constexpr double kChevronSize = 8;
constexpr double kChevronAlpha = 0.65;
constexpr double kNoticeFontSize = 18;
constexpr double kExclamationSize = 8;

QString firstCharacter(const QString& text) {
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
  qsizetype end = finder.toNextBoundary();
  return end > 0 ? text.left(end) : QString();
}

QRectF toQt(const Rect& rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

QRectF inFrame(const QRectF& frame, const Rect& part) {
  return toQt(part).translated(frame.topLeft());
}

void paintIcon(QPainter& painter, const TabDrawing& tab, const QRectF& icon) {
  painter.setPen(Qt::white);
  if (tab.glyph) {
    painter.setFont(systemFont(kTabIconSize * kGlyphScale));
    painter.drawText(icon, Qt::AlignCenter, QString::fromStdString(*tab.glyph));
    return;
  }
  QImage image = qt::unwrap(tab.icon);
  if (!image.isNull()) {
    painter.drawImage(icon, image);
    return;
  }
  // An application without a picture shows its initial.
  QPainterPath plate;
  plate.addRoundedRect(icon, 6, 6);
  painter.fillPath(plate, toQColor(whiteAt(0.22)));
  painter.setFont(systemFont(13, true));
  painter.drawText(icon, Qt::AlignCenter,
                   firstCharacter(QString::fromStdString(tab.title)).toUpper());
}

void paintBadge(QPainter& painter, const QRectF& frame, const BadgeDrawing& badge) {
  QRectF box = inFrame(frame, badge.frame);
  QColor color = toQColor(badge.color);
  painter.save();
  if (badge.style == "dot") {
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(box);
    if (badge.exclamation) {
      double h = kExclamationSize * 0.75;
      QRectF mark(box.center().x() - h / 2, box.center().y() - h / 2 - 0.5, h, h);
      drawGlyph(painter, Glyph::Exclamation, mark, Qt::white, 0);
    }
    painter.restore();
    return;
  }
  painter.translate(box.center());
  if (badge.turn == BadgeTurn::FlipVertical) painter.scale(1, -1);
  if (badge.turn == BadgeTurn::QuarterCounterClockwise) painter.rotate(-90);
  painter.translate(-box.width() / 2, -box.height() / 2);
  if (badge.style == "stripe") {
    double end = std::min(box.width(), 10.0);
    painter.setPen(QPen(color, 4));
    painter.drawLine(QPointF(0, end), QPointF(end, 0));
  } else {
    double leg = badgeTriangleLeg({box.width(), box.height()});
    QPainterPath corner;
    corner.moveTo(0, 0);
    corner.lineTo(leg, 0);
    corner.lineTo(0, leg);
    corner.closeSubpath();
    painter.fillPath(corner, color);
  }
  painter.restore();
}

}  // namespace

QColor toQColor(const Rgba& color) {
  return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                          static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

QFont systemFont(double size, bool bold) {
  QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
  font.setPixelSize(std::max(1, qRound(size)));
  font.setBold(bold);
  return font;
}

void paintTabBackground(QPainter& painter, const QRectF& frame, const TabAppearance& look) {
  QPainterPath background;
  background.addRoundedRect(frame, kTabCornerRadius, kTabCornerRadius);
  painter.fillPath(background, toQColor(look.fill));
}

void paintTabOverlays(QPainter& painter, const QRectF& frame, const TabAppearance& look) {
  if (look.strip) {
    QRectF strip = inFrame(frame, look.strip->frame);
    QPainterPath path;
    double radius = strip.height() / 2;
    path.addRoundedRect(strip, radius, radius);
    painter.fillPath(path, toQColor(look.strip->color));
  }
  if (look.badge) paintBadge(painter, frame, *look.badge);
}

void paintTab(QPainter& painter, const TabDrawing& tab) {
  QRectF frame = toQt(tab.frame);
  paintTabBackground(painter, frame, tab.look);

  QRectF icon(frame.left() + kTabHorizontalPadding, frame.center().y() - kTabIconSize / 2,
              kTabIconSize, kTabIconSize);
  paintIcon(painter, tab, icon);

  double titleLeft = icon.right() + kTabIconSpacing;
  double titleRight = frame.right() - kTabHorizontalPadding;
  if (tab.look.chevron) titleRight -= kChevronSize + kTabIconSpacing;
  QFont font = systemFont(kTabTitleFontSize);
  QFontMetricsF metrics(font);
  QString title = metrics.elidedText(QString::fromStdString(tab.title), Qt::ElideRight,
                                     std::max(titleRight - titleLeft, 0.0));
  painter.setFont(font);
  painter.setPen(Qt::white);
  QRectF titleRect(titleLeft, frame.top(), std::max(titleRight - titleLeft, 0.0), frame.height());
  painter.drawText(titleRect, Qt::AlignVCenter | Qt::AlignLeft, title);

  if (tab.look.chevron) {
    double left = titleLeft + metrics.horizontalAdvance(title) + kTabIconSpacing;
    QRectF box(left, frame.center().y() - kChevronSize / 4, kChevronSize, kChevronSize / 2);
    Glyph glyph = *tab.look.chevron == ChevronDirection::Up ? Glyph::ChevronUp : Glyph::ChevronDown;
    drawGlyph(painter, glyph, box, toQColor(whiteAt(kChevronAlpha)), 1.6);
  }
  paintTabOverlays(painter, frame, tab.look);
}

void paintAccessibilityNotice(QPainter& painter, const QRectF& area) {
  painter.save();
  painter.setFont(systemFont(kNoticeFontSize, true));
  painter.setPen(Qt::red);
  painter.drawText(area, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                   QString::fromUtf8(kAccessibilityNotice.data(),
                                     static_cast<qsizetype>(kAccessibilityNotice.size())));
  painter.restore();
}

}  // namespace tolv
