#include "taskbar/view/TaskbarView.h"

#include <QFontDatabase>
#include <QPainter>
#include <QPainterPath>
#include <QTextBoundaryFinder>

#include "model/AppModel.h"
#include "taskbar/TaskbarPanels.h"

namespace tolv {

namespace {

constexpr double kTabRadius = 4;
constexpr double kTabPadding = 7;
constexpr double kIconSize = 25;
constexpr double kIconSpacing = 7;
constexpr double kTitleFontSize = 12;
constexpr double kGlyphScale = 0.64;
constexpr double kStripFontSize = 8;
constexpr double kStripLeading = 12;
constexpr double kActiveHighlight = 0.13;
constexpr double kQuietHighlight = 0.035;
const QColor kFallbackBase(0x90, 0x91, 0x96);
const QColor kLockMarker(255, 214, 10);

QRectF toQt(const Rect& rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

QColor settingColor(const std::string& value, const QColor& fallback, double opacity) {
  QColor color(QString::fromStdString(value));
  if (!color.isValid()) color = fallback;
  color.setAlphaF(static_cast<float>(opacity));
  return color;
}

QColor white(double opacity) {
  QColor color(Qt::white);
  color.setAlphaF(static_cast<float>(opacity));
  return color;
}

QFont systemFont(double size, bool bold = false) {
  QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
  font.setPixelSize(std::max(1, qRound(size)));
  font.setBold(bold);
  return font;
}

QPainterPath roundedRect(const QRectF& r, const CornerRadii& radii) {
  QPainterPath path;
  path.moveTo(r.left() + radii.topLeft, r.top());
  path.lineTo(r.right() - radii.topRight, r.top());
  path.quadTo(r.right(), r.top(), r.right(), r.top() + radii.topRight);
  path.lineTo(r.right(), r.bottom() - radii.bottomRight);
  path.quadTo(r.right(), r.bottom(), r.right() - radii.bottomRight, r.bottom());
  path.lineTo(r.left() + radii.bottomLeft, r.bottom());
  path.quadTo(r.left(), r.bottom(), r.left(), r.bottom() - radii.bottomLeft);
  path.lineTo(r.left(), r.top() + radii.topLeft);
  path.quadTo(r.left(), r.top(), r.left() + radii.topLeft, r.top());
  path.closeSubpath();
  return path;
}

QString firstCharacter(const QString& text) {
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
  qsizetype end = finder.toNextBoundary();
  return end > 0 ? text.left(end) : QString();
}

void drawChevron(QPainter& painter, const QPointF& centre, bool up, const QColor& color) {
  QPainterPath path;
  double dy = up ? -2 : 2;
  path.moveTo(centre.x() - 4, centre.y() - dy);
  path.lineTo(centre.x(), centre.y() + dy);
  path.lineTo(centre.x() + 4, centre.y() - dy);
  painter.save();
  painter.setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(path);
  painter.restore();
}

void drawTab(QPainter& painter, const TabDrawing& tab, bool inverted) {
  QRectF frame = toQt(tab.frame);
  double highlight = tab.isActive == inverted ? kQuietHighlight : kActiveHighlight;
  painter.fillPath(roundedRect(frame, {kTabRadius, kTabRadius, kTabRadius, kTabRadius}),
                   white(highlight));

  QRectF icon(frame.left() + kTabPadding, frame.center().y() - kIconSize / 2, kIconSize, kIconSize);
  QString title = QString::fromStdString(tab.title);
  painter.setPen(Qt::white);
  if (tab.glyph) {
    painter.setFont(systemFont(kIconSize * kGlyphScale));
    painter.drawText(icon, Qt::AlignCenter, QString::fromStdString(*tab.glyph));
  } else {
    // Stands in for the application's picture until images carry pixels.
    painter.fillPath(roundedRect(icon, {6, 6, 6, 6}), white(0.22));
    painter.setFont(systemFont(13, true));
    painter.drawText(icon, Qt::AlignCenter, firstCharacter(title).toUpper());
  }

  double titleLeft = icon.right() + kIconSpacing;
  QRectF titleRect(titleLeft, frame.top(), std::max(frame.right() - kTabPadding - titleLeft, 0.0),
                   frame.height());
  QFont font = systemFont(kTitleFontSize);
  painter.setFont(font);
  QString shown = QFontMetricsF(font).elidedText(title, Qt::ElideRight, titleRect.width());
  painter.drawText(titleRect, Qt::AlignVCenter | Qt::AlignLeft, shown);
}

void drawBufferStrip(QPainter& painter, const QRectF& strip, const QColor& base) {
  painter.fillRect(strip, base);
  QColor gray(Qt::gray);
  painter.setPen(gray);
  painter.setFont(systemFont(kStripFontSize));
  drawChevron(painter, {strip.left() + kStripLeading + 5, strip.center().y()}, false, gray);
  painter.drawText(QRectF(strip.left() + kStripLeading + 10, strip.top(), 200, strip.height()),
                   Qt::AlignVCenter | Qt::AlignLeft, " MacOS Menu");
  QRectF arrow(strip.right() - 18, strip.top(), 18, strip.height());
  drawChevron(painter, arrow.center(), true, gray);
  painter.drawText(QRectF(arrow.left() - 3 - 200, strip.top(), 200, strip.height()),
                   Qt::AlignVCenter | Qt::AlignRight, "Hide Tolv. ");
}

}  // namespace

TaskbarView::TaskbarView(const AppModel& model, const TaskbarPanel& panel, QWidget* parent)
    : QWidget(parent), model_(model), panel_(panel) {
  setAttribute(Qt::WA_TranslucentBackground);
}

void TaskbarView::paintEvent(QPaintEvent*) {
  const Settings& settings = model_.settings;
  const TaskbarDrawing& drawing = panel_.drawing;
  QColor base = settingColor(settings.interfaceBaseColor, kFallbackBase, settings.barOpacity);
  QColor edge = settingColor(settings.edgeColor, Qt::gray, 1);
  bool inverted = settings.invertTaskbarButtonHighlight;

  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setRenderHint(QPainter::TextAntialiasing);
  HideTransform hide = panel_.window->transform();
  if (!hide.isIdentity()) {
    // Scaled about the middle, then moved; the design's y grows upward.
    painter.translate(width() / 2.0, height() / 2.0);
    painter.scale(hide.scale, hide.scale);
    painter.translate(-width() / 2.0, -height() / 2.0);
    painter.translate(hide.dx, -hide.dy);
  }
  const ContentTransform& t = drawing.toPanel;
  painter.setTransform(QTransform(t.m11, t.m12, t.m21, t.m22, t.dx, t.dy), true);

  if (drawing.stackBackground) {
    painter.fillPath(roundedRect(toQt(*drawing.stackBackground), {8, 8, 8, 8}), base.darker(115));
  }
  for (const auto& card : drawing.cards) {
    painter.save();
    painter.setClipRect(toQt(card.visible));
    painter.fillPath(roundedRect(toQt(card.frame), card.corners), base);
    painter.fillRect(toQt(card.border), edge);
    if (card.innerCorner) {
      QPainterPath fillet;
      fillet.addRect(toQt(card.innerCorner->square));
      QPainterPath round;
      double r = card.innerCorner->square.width;
      round.addEllipse(QPointF(card.innerCorner->circleCenter.x, card.innerCorner->circleCenter.y),
                       r, r);
      painter.setClipping(false);
      painter.fillPath(fillet.subtracted(round), base);
      painter.setClipRect(toQt(card.visible));
    }
    for (const auto& tab : drawing.tabs) {
      if (tab.row == card.rowID) drawTab(painter, tab, inverted);
    }
    if (card.rowID == 1 && drawing.lockMarker) {
      QColor marker = kLockMarker;
      marker.setAlphaF(0.7f);
      painter.fillRect(toQt(*drawing.lockMarker), marker);
    }
    painter.restore();
  }
  if (drawing.bufferStrip) drawBufferStrip(painter, toQt(*drawing.bufferStrip), base);
  painter.fillRect(toQt(drawing.primaryRow), base);
  for (const auto& tab : drawing.tabs) {
    if (tab.row == 0) drawTab(painter, tab, inverted);
  }
}

}  // namespace tolv
