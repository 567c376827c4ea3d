#include "taskbar/view/TaskbarView.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWheelEvent>

#include "model/AppModel.h"
#include "taskbar/TabColors.h"
#include "taskbar/TaskbarPanels.h"
#include "taskbar/view/Glyphs.h"
#include "taskbar/view/TabPainter.h"
#include "taskbar/view/TrayPainter.h"

namespace tolv {

namespace {

constexpr double kStripFontSize = 8;
constexpr double kStripLeading = 12;
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

void drawBufferStrip(QPainter& painter, const QRectF& strip, const QColor& base) {
  painter.fillRect(strip, base);
  QColor gray(Qt::gray);
  painter.setPen(gray);
  painter.setFont(systemFont(kStripFontSize));
  drawGlyph(painter, Glyph::ChevronDown,
            QRectF(strip.left() + kStripLeading + 1, strip.center().y() - 2, 8, 4), gray, 1.5);
  painter.drawText(QRectF(strip.left() + kStripLeading + 10, strip.top(), 200, strip.height()),
                   Qt::AlignVCenter | Qt::AlignLeft, " MacOS Menu");
  QRectF arrow(strip.right() - 18, strip.top(), 18, strip.height());
  drawGlyph(painter, Glyph::ChevronUp, QRectF(arrow.center().x() - 4, arrow.center().y() - 2, 8, 4),
            gray, 1.5);
  painter.drawText(QRectF(arrow.left() - 3 - 200, strip.top(), 200, strip.height()),
                   Qt::AlignVCenter | Qt::AlignRight, "Hide Tolv. ");
}

TrayLook trayLook(const AppModel& model) {
  TrayLook look;
  look.batteryColors = model.tray.batteryColors;
  look.battery = model.batteryStatus.get();
  Rgba badge = badgeColor(model.settings.notificationBadgeColor);
  look.badgeColor = QColor::fromRgbF(static_cast<float>(badge.red), static_cast<float>(badge.green),
                                     static_cast<float>(badge.blue));
  look.volumeSliderShown = model.tray.volumeSliderShown;
  look.brightnessSliderShown = model.tray.brightnessSliderShown;
  return look;
}

}  // namespace

TaskbarView::TaskbarView(const AppModel& model, const TaskbarPanel& panel, QWidget* parent,
                         ClickHandler onClick, WheelHandler onWheel)
    : QWidget(parent),
      model_(model),
      panel_(panel),
      onClick_(std::move(onClick)),
      onWheel_(std::move(onWheel)) {
  setAttribute(Qt::WA_TranslucentBackground);
}

void TaskbarView::mousePressEvent(QMouseEvent* event) {
  if (!onClick_) return;
  if (event->button() == Qt::LeftButton) onClick_(event->position(), MouseButton::Left);
  if (event->button() == Qt::RightButton) onClick_(event->position(), MouseButton::Right);
}

void TaskbarView::wheelEvent(QWheelEvent* event) {
  if (!onWheel_) return event->ignore();
  // Trackpads give points; wheels give eighths of a degree, 120 to a step.
  bool precise = !event->pixelDelta().isNull();
  double deltaY = precise ? event->pixelDelta().y() : event->angleDelta().y() / 120.0;
  onWheel_(event->position(), deltaY, precise);
}

void TaskbarView::paintEvent(QPaintEvent*) {
  const Settings& settings = model_.settings;
  const TaskbarDrawing& drawing = panel_.drawing;
  QColor base = settingColor(settings.interfaceBaseColor, kFallbackBase, settings.barOpacity);
  QColor edge = settingColor(settings.edgeColor, Qt::gray, 1);

  TrayLook look = trayLook(model_);
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
      if (tab.row == card.rowID) paintTab(painter, tab);
    }
    for (const auto& control : drawing.tray) {
      if (control.row == card.rowID) paintTrayControl(painter, control, look);
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
    if (tab.row == 0) paintTab(painter, tab);
  }
  for (const auto& control : drawing.tray) {
    if (control.row == 0) paintTrayControl(painter, control, look);
  }
  if (drawing.accessibilityNotice)
    paintAccessibilityNotice(painter, toQt(*drawing.accessibilityNotice));
}

}  // namespace tolv
