#include "taskbar/view/GroupPopupView.h"

#include <QMouseEvent>
#include <QPainter>

#include "platform/qt/QtImages.h"
#include "taskbar/view/Glyphs.h"
#include "taskbar/view/TabPainter.h"

namespace tolv {

namespace {

constexpr double kPadding = 4;
constexpr double kHeaderHeight = 34;
constexpr double kRowHeight = 36;
constexpr double kRowSpacing = 4;
constexpr double kFooterHeight = 38;
constexpr double kDividerHeight = 1;
constexpr double kRowIcon = 20;
constexpr double kCloseGlyph = 11;
const QColor kCloseGroupRed = QColor::fromRgbF(1.0f, 0.18f, 0.18f);

QColor white(double alpha) {
  return toQColor(whiteAt(alpha));
}

}  // namespace

GroupPopupView::GroupPopupView(GroupPopupContent content, ClickHandler onClick, QWidget* parent)
    : QWidget(parent), content_(std::move(content)), onClick_(std::move(onClick)) {
  resize(sizeHint());
}

QSize GroupPopupView::sizeHint() const {
  double rows = static_cast<double>(content_.rows.size());
  double height = kPadding + kHeaderHeight + kDividerHeight + rows * (kRowHeight + kRowSpacing) +
                  kDividerHeight + kFooterHeight + kPadding;
  return {qRound(kGroupPopupWidth), qRound(height)};
}

QRectF GroupPopupView::headerRect() const {
  return {8, kPadding, kGroupPopupWidth - 16 - 24, kHeaderHeight};
}

QRectF GroupPopupView::headerCloseRect() const {
  return {kGroupPopupWidth - 8 - 24, kPadding, 24, kHeaderHeight};
}

QRectF GroupPopupView::rowRect(int row) const {
  double top = kPadding + kHeaderHeight + kDividerHeight + row * (kRowHeight + kRowSpacing) +
               kRowSpacing / 2;
  return {8, top, kGroupPopupWidth - 16, kRowHeight};
}

QRectF GroupPopupView::rowCloseRect(int row) const {
  QRectF r = rowRect(row);
  return {r.right() - 8 - kCloseGlyph, r.center().y() - kCloseGlyph / 2, kCloseGlyph, kCloseGlyph};
}

QRectF GroupPopupView::footerRect() const {
  double top = height() - kPadding - kFooterHeight;
  return {8, top, kGroupPopupWidth - 16 - 30, kFooterHeight};
}

QRectF GroupPopupView::closeGroupRect() const {
  QRectF footer = footerRect();
  return {footer.right(), footer.top(), 30 - kPadding, kFooterHeight};
}

std::optional<std::pair<GroupPopupPart, int>> GroupPopupView::partAt(QPointF point) const {
  if (headerCloseRect().contains(point)) return std::pair{GroupPopupPart::HeaderClose, -1};
  if (headerRect().contains(point)) return std::pair{GroupPopupPart::Header, -1};
  for (int row = 0; row < static_cast<int>(content_.rows.size()); ++row) {
    if (rowCloseRect(row).adjusted(-3, -3, 3, 3).contains(point)) {
      return std::pair{GroupPopupPart::RowClose, row};
    }
    if (rowRect(row).contains(point)) return std::pair{GroupPopupPart::Row, row};
  }
  if (closeGroupRect().contains(point)) return std::pair{GroupPopupPart::CloseGroup, -1};
  if (footerRect().contains(point)) return std::pair{GroupPopupPart::HideAll, -1};
  return std::nullopt;
}

void GroupPopupView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), toQColor(content_.background.withAlpha(1)));

  QRectF header = headerRect();
  painter.setPen(Qt::white);
  painter.setFont(systemFont(15, true));
  QRectF icon(header.left(), header.center().y() - 11, 22, 22);
  painter.drawText(header.adjusted(icon.width() + 8, 0, -18, 0), Qt::AlignVCenter | Qt::AlignLeft,
                   QString::fromStdString(content_.title));
  Glyph chevron = content_.chevron == ChevronDirection::Up ? Glyph::ChevronUp : Glyph::ChevronDown;
  drawGlyph(painter, chevron, QRectF(header.right() - 12, header.center().y() - 3, 10, 5),
            white(0.6), 2);
  drawGlyph(painter, Glyph::XMark, headerCloseRect().adjusted(8, 13, -8, -13), white(0.8), 1.5);
  painter.fillRect(QRectF(0, kPadding + kHeaderHeight, width(), kDividerHeight), white(0.2));

  painter.setFont(systemFont(kTabTitleFontSize));
  for (int row = 0; row < static_cast<int>(content_.rows.size()); ++row) {
    const GroupPopupRow& entry = content_.rows[static_cast<size_t>(row)];
    QRectF r = rowRect(row);
    paintTabBackground(painter, r, entry.look);
    QRectF rowIcon(r.left() + 8, r.center().y() - kRowIcon / 2, kRowIcon, kRowIcon);
    QImage image = qt::unwrap(entry.window.icon);
    if (image.isNull()) {
      painter.fillRect(rowIcon, white(0.22));
    } else {
      painter.drawImage(rowIcon, image);
    }
    double left = rowIcon.right() + 8;
    if (entry.time) {
      painter.setFont(systemFont(9));
      painter.setPen(white(0.7));
      painter.drawText(QRectF(left, r.top() + 4, 50, r.height() / 2 - 4),
                       Qt::AlignLeft | Qt::AlignVCenter, QString::fromStdString(*entry.time));
      painter.drawText(QRectF(left, r.center().y(), 50, r.height() / 2 - 4),
                       Qt::AlignLeft | Qt::AlignVCenter,
                       QString::fromStdString(entry.date.value_or("")));
      left += 54;
      painter.setFont(systemFont(kTabTitleFontSize));
    }
    painter.setPen(Qt::white);
    QRectF title(left, r.top(), rowCloseRect(row).left() - 8 - left, r.height());
    painter.drawText(title, Qt::AlignVCenter | Qt::AlignLeft,
                     painter.fontMetrics().elidedText(QString::fromStdString(entry.window.name),
                                                      Qt::ElideRight, qRound(title.width())));
    drawGlyph(painter, Glyph::XMark, rowCloseRect(row).adjusted(3, 3, -3, -3), white(0.55), 1.2);
    paintTabOverlays(painter, r, entry.look);
  }

  QRectF footer = footerRect();
  painter.fillRect(QRectF(0, footer.top() - kDividerHeight, width(), kDividerHeight), white(0.2));
  drawGlyph(painter, Glyph::ArrowDown, QRectF(footer.left() + 8, footer.center().y() - 6, 10, 12),
            Qt::white, 1.5);
  painter.setPen(Qt::white);
  painter.drawText(footer.adjusted(26, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                   QStringLiteral("Hide All Windows"));
  QRectF closeGroup = closeGroupRect();
  drawGlyph(painter, Glyph::XMark,
            QRectF(closeGroup.center().x() - 5, closeGroup.center().y() - 5, 10, 10),
            kCloseGroupRed, 2);
}

void GroupPopupView::mousePressEvent(QMouseEvent* event) {
  auto part = partAt(event->position());
  if (!part || !onClick_) return;
  MouseButton button = event->button() == Qt::RightButton ? MouseButton::Right : MouseButton::Left;
  onClick_(part->first, part->second, button);
}

}  // namespace tolv
