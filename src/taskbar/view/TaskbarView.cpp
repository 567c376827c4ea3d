#include "taskbar/view/TaskbarView.h"

#include <algorithm>

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWheelEvent>

#include "model/AppModel.h"
#include "platform/qt/QtImages.h"
#include "taskbar/TabColors.h"
#include "taskbar/TaskbarLocation.h"
#include "taskbar/TaskbarPanels.h"
#include "taskbar/view/Glyphs.h"
#include "taskbar/view/RoundedPath.h"
#include "taskbar/view/TabPainter.h"
#include "taskbar/view/TrayPainter.h"

namespace tolv {

namespace {

constexpr double kStripFontSize = 8;
constexpr double kStripLeading = 12;
const QColor kFallbackBase(0x90, 0x91, 0x96);
const QColor kLockMarker(255, 214, 10);
const QColor kDropCue(10, 132, 255);
constexpr double kCueBarWidth = 3;
constexpr double kCueBarHeight = 30;
constexpr double kCueRadius = 4;
constexpr double kOverflowCueShift = 3;

QRectF toQt(const Rect& rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

QColor settingColor(const std::string& value, const QColor& fallback, double opacity) {
  QColor color(QString::fromStdString(value));
  if (!color.isValid()) color = fallback;
  color.setAlphaF(static_cast<float>(opacity));
  return color;
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

// The insertion mark of the drop cue on the tab it names, and the armed
// resize handle, in the tab's row.
void paintDragMarks(QPainter& painter, const TabDrawing& tab, const TaskDragState& drag,
                    bool mirrored) {
  const Rect& f = tab.frame;
  if (drag.taskDropCue) {
    const std::string& cue = *drag.taskDropCue;
    if (cue == "into:" + tab.id) {
      painter.setPen(QPen(kDropCue, 2));
      painter.setBrush(Qt::NoBrush);
      painter.drawRoundedRect(toQt(f), kCueRadius, kCueRadius);
    }
    bool before = cue == "before:" + tab.id;
    bool after = cue == "after:" + tab.id;
    if (before || after) {
      // Leading side before, trailing side after; in the overflow cards moved outwards.
      bool atLeft = before != mirrored;
      double shift = tab.row != 0 ? kOverflowCueShift : 0;
      double x = atLeft ? f.minX() - kCueBarWidth / 2 - shift : f.maxX() - kCueBarWidth / 2 + shift;
      painter.fillRect(QRectF(x, f.midY() - kCueBarHeight / 2, kCueBarWidth, kCueBarHeight),
                       kDropCue);
    }
  }
  if (drag.armedResizeID == tab.id) {
    Rect handle = resizeHandleRect(f.width, drag.resize);
    double x = mirrored ? f.maxX() - handle.maxX() : f.x + handle.x;
    QColor white(Qt::white);
    white.setAlphaF(0.95f);
    QPainterPath path;
    path.addRoundedRect(QRectF(x, f.y + handle.y, handle.width, handle.height), 1.5, 1.5);
    painter.fillPath(path, white);
  }
}

// The start button: its picture or its letter, and a yellow lock while the
// menu is locked open.
void paintStartButton(QPainter& painter, const StartButtonDrawing& button, double iconSize) {
  QRectF frame = toQt(button.frame);
  if (button.locked) {
    drawGlyph(painter, Glyph::Lock, QRectF(frame.center().x() - 7, frame.center().y() - 7, 14, 14),
              kLockMarker, 2);
    return;
  }
  QImage image = qt::unwrap(button.icon);
  double side = std::min({iconSize, frame.width(), frame.height()});
  QRectF square(frame.center().x() - side / 2, frame.center().y() - side / 2, side, side);
  if (!image.isNull()) {
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(square, image);
    painter.restore();
    return;
  }
  painter.setPen(Qt::white);
  painter.setFont(systemFont(side * 0.8, true));
  painter.drawText(frame, Qt::AlignCenter, QString::fromStdString(button.glyph));
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
                         PointerHandler onPointer, WheelHandler onWheel)
    : QWidget(parent),
      model_(model),
      panel_(panel),
      onPointer_(std::move(onPointer)),
      onWheel_(std::move(onWheel)) {
  setAttribute(Qt::WA_TranslucentBackground);
}

void TaskbarView::report(QMouseEvent* event, PointerPhase phase) {
  if (!onPointer_) return;
  Qt::MouseButton button = event->button();
  if (phase == PointerPhase::Move) {
    if (!(event->buttons() & Qt::LeftButton)) return;
    button = Qt::LeftButton;
  }
  if (button == Qt::LeftButton) onPointer_(event->position(), MouseButton::Left, phase);
  if (button == Qt::RightButton) onPointer_(event->position(), MouseButton::Right, phase);
}

void TaskbarView::mousePressEvent(QMouseEvent* event) {
  report(event, PointerPhase::Press);
}

void TaskbarView::mouseMoveEvent(QMouseEvent* event) {
  report(event, PointerPhase::Move);
}

void TaskbarView::mouseReleaseEvent(QMouseEvent* event) {
  report(event, PointerPhase::Release);
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
  const bool mirrored = isRightAnchored(settings.taskbarLocation);
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
      if (tab.row != card.rowID) continue;
      paintTab(painter, tab);
      if (tab.shown) paintDragMarks(painter, tab, model_.taskDrag, mirrored);
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
  if (drawing.startButton) {
    paintStartButton(painter, *drawing.startButton, settings.appContainerIconSize);
  }
  for (const auto& tab : drawing.tabs) {
    if (tab.row != 0) continue;
    paintTab(painter, tab);
    paintDragMarks(painter, tab, model_.taskDrag, mirrored);
  }
  for (const auto& control : drawing.tray) {
    if (control.row == 0) paintTrayControl(painter, control, look);
  }
  if (drawing.accessibilityNotice)
    paintAccessibilityNotice(painter, toQt(*drawing.accessibilityNotice));
}

}  // namespace tolv
