#include "taskbar/view/DesktopScenePainter.h"

#include <QFontMetricsF>
#include <QPainter>

namespace tolv {

namespace {

constexpr double kTitleBarHeight = 22;
constexpr double kTitleInset = 8;
const QColor kBody(236, 236, 236);
const QColor kFocusedTitleBar(214, 214, 218);
const QColor kTitleBar(232, 232, 234);
const QColor kEdge(0, 0, 0, 90);
const QColor kFocusedTitle(30, 30, 30);
const QColor kTitle(120, 120, 120);

}  // namespace

void paintDesktopScene(QPainter& painter, const DesktopScene& scene, const Rect& screen) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  for (const SceneWindow& window : scene) {
    const QRectF frame(window.frame.x - screen.x, screen.maxY() - window.frame.maxY(),
                       window.frame.width, window.frame.height);
    painter.setPen(kEdge);
    painter.setBrush(kBody);
    painter.drawRoundedRect(frame, 6, 6);
    const QRectF titleBar(frame.x(), frame.y(), frame.width(),
                          std::min(kTitleBarHeight, frame.height()));
    painter.setPen(Qt::NoPen);
    painter.setBrush(window.focused ? kFocusedTitleBar : kTitleBar);
    painter.drawRoundedRect(titleBar.adjusted(0.5, 0.5, -0.5, 0), 6, 6);
    const QRectF text = titleBar.adjusted(kTitleInset, 0, -kTitleInset, 0);
    painter.setPen(window.focused ? kFocusedTitle : kTitle);
    const QString title =
        QFontMetricsF(painter.font())
            .elidedText(QString::fromStdString(window.title), Qt::ElideRight, text.width());
    painter.drawText(text, Qt::AlignCenter, title);
  }
  painter.restore();
}

}  // namespace tolv
