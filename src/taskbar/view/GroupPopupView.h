#pragma once

#include <QWidget>

#include <functional>
#include <optional>
#include <utility>

#include "taskbar/GroupPopup.h"
#include "taskbar/TabClicks.h"

namespace tolv {

// The window list of a group: header, rows and footer as the popup's content
// says. It only paints and reports which part a click met; `row` is the
// row's index for the row parts, else -1.
class GroupPopupView : public QWidget {
  Q_OBJECT

 public:
  using ClickHandler = std::function<void(GroupPopupPart, int row, MouseButton)>;
  GroupPopupView(GroupPopupContent content, ClickHandler onClick, QWidget* parent = nullptr);

  QSize sizeHint() const override;
  // The part under a point of the view, and its row.
  std::optional<std::pair<GroupPopupPart, int>> partAt(QPointF point) const;
  QRectF rowRect(int row) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  QRectF headerRect() const;
  QRectF headerCloseRect() const;
  QRectF rowCloseRect(int row) const;
  QRectF footerRect() const;
  QRectF closeGroupRect() const;

  GroupPopupContent content_;
  ClickHandler onClick_;
};

}  // namespace tolv
