#include "taskbar/view/WorkspacePopupView.h"

#include <QMouseEvent>
#include <QPainter>

#include "taskbar/view/Glyphs.h"
#include "taskbar/view/TabPainter.h"

namespace tolv {

namespace {

constexpr double kPadding = 10;
constexpr double kHeaderHeight = 36;
constexpr double kRowHeight = 34;
constexpr double kRowSpacing = 4;
constexpr double kChevronWidth = 20;
constexpr Size kCloseSize{18, 28};

}  // namespace

WorkspacePopupView::WorkspacePopupView(std::vector<WorkspacePopupRow> rows,
                                       bool headerOpensOverview, QSize size, ClickHandler onClick,
                                       QWidget* parent)
    : QWidget(parent),
      rows_(std::move(rows)),
      headerOpensOverview_(headerOpensOverview),
      onClick_(std::move(onClick)) {
  resize(size);
}

QRectF WorkspacePopupView::rowRect(int row) const {
  return {kPadding, kHeaderHeight + row * (kRowHeight + kRowSpacing), width() - 2 * kPadding,
          kRowHeight};
}

QRectF WorkspacePopupView::chevronRect(int row) const {
  QRectF r = rowRect(row);
  return {r.left(), r.top(), kChevronWidth, r.height()};
}

QRectF WorkspacePopupView::closeRect(int row) const {
  QRectF r = rowRect(row);
  return {r.right() - kCloseSize.width, r.center().y() - kCloseSize.height / 2, kCloseSize.width,
          kCloseSize.height};
}

std::optional<std::pair<int, WorkspaceRowPart>> WorkspacePopupView::partAt(QPointF point) const {
  if (point.y() < kHeaderHeight) {
    if (!headerOpensOverview_) return std::nullopt;
    return std::pair{-1, WorkspaceRowPart::Body};
  }
  for (int row = 0; row < static_cast<int>(rows_.size()); ++row) {
    if (!rowRect(row).contains(point)) continue;
    if (closeRect(row).contains(point)) return std::pair{row, WorkspaceRowPart::Close};
    if (rows_[static_cast<size_t>(row)].leavesFullScreen && chevronRect(row).contains(point)) {
      return std::pair{row, WorkspaceRowPart::LeaveFullScreen};
    }
    return std::pair{row, WorkspaceRowPart::Body};
  }
  return std::nullopt;
}

void WorkspacePopupView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), palette().window());
  painter.setPen(headerOpensOverview_ ? QColor(Qt::white) : QColor(255, 255, 255, 115));
  painter.setFont(systemFont(13, true));
  painter.drawText(QRectF(kPadding, 0, width() - 2 * kPadding, kHeaderHeight),
                   Qt::AlignVCenter | Qt::AlignLeft, QStringLiteral("WORKSPACES"));
  painter.setFont(systemFont(kTabTitleFontSize));
  for (int row = 0; row < static_cast<int>(rows_.size()); ++row) {
    const WorkspacePopupRow& entry = rows_[static_cast<size_t>(row)];
    QRectF r = rowRect(row);
    paintTabBackground(painter, r, entry.look);
    double left = r.left() + 4;
    if (entry.leavesFullScreen) {
      QRectF box = chevronRect(row);
      drawGlyph(painter, Glyph::ChevronDown,
                QRectF(box.center().x() - 4, box.center().y() - 2, 8, 4), Qt::white, 1.5);
      left = box.right() + 2;
    }
    painter.setPen(Qt::white);
    QRectF title(left + 28, r.top(), closeRect(row).left() - left - 46, r.height());
    painter.drawText(title, Qt::AlignVCenter | Qt::AlignLeft, QString::fromStdString(entry.title));
    if (entry.checked) {
      drawGlyph(painter, Glyph::Checkmark,
                QRectF(closeRect(row).left() - 16, r.center().y() - 5, 10, 10), Qt::white, 1.5);
    }
    QRectF close = closeRect(row);
    drawGlyph(painter, Glyph::XMark, QRectF(close.center().x() - 4, close.center().y() - 4, 8, 8),
              Qt::white, 1.2);
    paintTabOverlays(painter, r, entry.look);
  }
}

void WorkspacePopupView::mousePressEvent(QMouseEvent* event) {
  auto part = partAt(event->position());
  if (!part || !onClick_) return;
  MouseButton button = event->button() == Qt::RightButton ? MouseButton::Right : MouseButton::Left;
  onClick_(part->first, part->second, button);
}

}  // namespace tolv
