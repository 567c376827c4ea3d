#pragma once

#include <QWidget>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "taskbar/TabClicks.h"
#include "taskbar/WorkspacePopup.h"

namespace tolv {

// The list of workspaces: the "WORKSPACES" header and one row per space. It
// paints and reports which part of which row a click met; the header is row -1.
class WorkspacePopupView : public QWidget {
  Q_OBJECT

 public:
  using ClickHandler = std::function<void(int row, WorkspaceRowPart, MouseButton)>;
  WorkspacePopupView(std::vector<WorkspacePopupRow> rows, bool headerOpensOverview, QSize size,
                     ClickHandler onClick, QWidget* parent = nullptr);

  std::optional<std::pair<int, WorkspaceRowPart>> partAt(QPointF point) const;
  QRectF rowRect(int row) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  QRectF chevronRect(int row) const;
  QRectF closeRect(int row) const;

  std::vector<WorkspacePopupRow> rows_;
  bool headerOpensOverview_;
  ClickHandler onClick_;
};

}  // namespace tolv
