#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>

#include "taskbar/TabAppearance.h"
#include "taskbar/TaskbarDrawing.h"

class QPainter;

namespace tolv {

QColor toQColor(const Rgba& color);
QFont systemFont(double size, bool bold = false);

// Paints one tab as its drawing says: background, icon, title, chevron,
// strip and badge.
void paintTab(QPainter& painter, const TabDrawing& tab);

// The parts of a tab's look that lie under and over its label, in `frame`.
void paintTabBackground(QPainter& painter, const QRectF& frame, const TabAppearance& look);
void paintTabOverlays(QPainter& painter, const QRectF& frame, const TabAppearance& look);

// The plea to grant accessibility, behind the settings tab.
void paintAccessibilityNotice(QPainter& painter, const QRectF& area);

}  // namespace tolv
