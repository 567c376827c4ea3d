#include "switcher/view/LumoSwitcherPanel.h"

#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include "platform/Images.h"
#include "platform/qt/QtImages.h"
#include "switcher/LumoSwitcherController.h"
#include "switcher/SwitcherLists.h"

namespace tolv {

namespace {

QRectF qtRect(const Rect& rect) {
  return QRectF(rect.x, rect.y, rect.width, rect.height);
}

QString text(const std::string& value) {
  return QString::fromStdString(value);
}

const QColor kSelection(64, 132, 255, 200);
const QColor kText(240, 240, 245);
const QColor kNote(170, 170, 180);
// The chevron at the start of a group's row.
constexpr double kChevronWidth = 18;

}  // namespace

LumoSwitcherPanel::LumoSwitcherPanel(Images& images, std::function<double()> mainScreenHeight)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::X11BypassWindowManagerHint | Qt::WindowDoesNotAcceptFocus),
      images_(images),
      mainScreenHeight_(std::move(mainScreenHeight)) {
  setAttribute(Qt::WA_TranslucentBackground);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setObjectName("lumoSwitcherPanel");
  setMouseTracking(true);
  setWindowTitle("Lumo Switcher");
}

LumoSwitcherPanel::~LumoSwitcherPanel() = default;

void LumoSwitcherPanel::attach(LumoSwitcherController& controller) {
  controller_ = &controller;
}

void LumoSwitcherPanel::showCovering(const Rect& screenFrame) {
  const double top = mainScreenHeight_() - screenFrame.maxY();
  setGeometry(qRound(screenFrame.x), qRound(top), qRound(screenFrame.width),
              qRound(screenFrame.height));
  shown_ = true;
  desktopAsked_ = false;
  relayout();
  show();
  raise();
}

void LumoSwitcherPanel::hide() {
  shown_ = false;
  visibleTiles_.clear();
  QWidget::hide();
}

void LumoSwitcherPanel::bringToFront() {
  if (shown_) raise();
}

void LumoSwitcherPanel::stateChanged() {
  if (!shown_ || relayingOut_) return;
  relayout();
  update();
}

// Lays the card out again and tells the controller which tiles came into sight
// and which went out of it.
void LumoSwitcherPanel::relayout() {
  if (!controller_) return;
  relayingOut_ = true;
  layout_ = layoutOverlay(controller_->state(), Size{double(width()), double(height())});
  std::map<std::string, RunningAppItem> tiles;
  for (const auto& row : layout_.rows) {
    if (row.kind == OverlayRow::Kind::Tile && row.item) tiles.emplace(row.item->id, *row.item);
  }
  auto previous = std::move(visibleTiles_);
  visibleTiles_ = tiles;
  for (const auto& [id, item] : previous) {
    if (!tiles.count(id)) controller_->setTileVisible(item, false);
  }
  for (const auto& [id, item] : tiles) {
    if (!previous.count(id)) controller_->setTileVisible(item, true);
  }
  const bool tileMode = controller_->state().previewMode == LumoPreviewMode::Tiles;
  if (tileMode && !desktopAsked_) {
    for (const auto& row : layout_.rows) {
      if (row.kind != OverlayRow::Kind::Desktop) continue;
      desktopAsked_ = true;
      controller_->requestDesktopPreview(true);
    }
  }
  relayingOut_ = false;
  // What the calls published is drawn from the state as it is now.
  layout_ = layoutOverlay(controller_->state(), Size{double(width()), double(height())});
}

QImage LumoSwitcherPanel::toolkitImage(const Image& image) {
  QImage direct = qt::unwrap(image);
  if (!direct.isNull()) return direct;
  auto bitmap = images_.firstBitmap(image);
  if (!bitmap || bitmap->width <= 0 || bitmap->height <= 0) return {};
  return QImage(bitmap->bytes.data(), bitmap->width, bitmap->height, bitmap->bytesPerRow,
                QImage::Format_RGBA8888_Premultiplied)
      .copy();
}

void LumoSwitcherPanel::paintRow(QPainter& painter, const OverlayRow& row) {
  const QRectF frame = qtRect(row.frame);
  using Kind = OverlayRow::Kind;
  if (row.selected) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(kSelection);
    painter.drawRoundedRect(frame.adjusted(-4, 1, 4, -1), 6, 6);
  }
  QFont font = painter.font();
  if (row.kind == Kind::SectionTitle) {
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(kNote);
    painter.drawText(frame, Qt::AlignLeft | Qt::AlignBottom, text(row.title));
    font.setBold(false);
    painter.setFont(font);
    return;
  }
  if (row.kind == Kind::Tile) {
    const QRectF picture(frame.x(), frame.y(), frame.width(), frame.height() - 20);
    const auto& images = controller_->state().thumbnailImages;
    QImage shown;
    if (auto found = images.find(row.item->id); found != images.end()) {
      shown = toolkitImage(found->second);
    }
    painter.setPen(QColor(255, 255, 255, 60));
    painter.setBrush(QColor(40, 40, 48));
    painter.drawRoundedRect(picture, 6, 6);
    if (!shown.isNull()) {
      QSizeF size = QSizeF(shown.size()).scaled(picture.size(), Qt::KeepAspectRatio);
      QRectF target(picture.center().x() - size.width() / 2,
                    picture.center().y() - size.height() / 2, size.width(), size.height());
      painter.drawImage(target, shown);
    } else if (row.item->icon) {
      // The application's icon stands in until an image comes, or for good.
      QImage icon = toolkitImage(row.item->icon);
      if (!icon.isNull()) {
        painter.drawImage(QRectF(picture.center().x() - 24, picture.center().y() - 24, 48, 48),
                          icon);
      }
    }
    painter.setPen(row.closed ? kNote : kText);
    painter.drawText(
        QRectF(frame.x(), frame.bottom() - 20, frame.width(), 20),
        Qt::AlignHCenter | Qt::AlignVCenter,
        painter.fontMetrics().elidedText(text(row.title), Qt::ElideRight, int(frame.width())));
    return;
  }
  double x = frame.x() + 8;
  if (row.kind == Kind::Desktop) {
    // The desktop picture, once captured, stands where a window's icon would.
    const auto& images = controller_->state().thumbnailImages;
    if (auto found = images.find(lumo_id::ShowDesktop); found != images.end()) {
      QImage picture = toolkitImage(found->second);
      if (!picture.isNull())
        painter.drawImage(QRectF(x, frame.y() + 4, 36, frame.height() - 8), picture);
    }
    x += 44;
  }
  if (row.kind == Kind::Group) {
    painter.setPen(kNote);
    const bool open = sectionExpanded(controller_->state(), *row.target.applicationID);
    painter.drawText(QRectF(frame.x(), frame.y(), kChevronWidth, frame.height()), Qt::AlignCenter,
                     open ? "▾" : "▸");
    x += kChevronWidth;
  }
  if (row.activeStrip || row.previousStrip) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(row.activeStrip ? QColor(64, 132, 255) : QColor(255, 170, 60));
    painter.drawRect(QRectF(frame.x(), frame.y() + 6, 3, frame.height() - 12));
  }
  if (row.item && row.item->icon) {
    QImage icon = toolkitImage(row.item->icon);
    if (!icon.isNull()) painter.drawImage(QRectF(x, frame.center().y() - 9, 18, 18), icon);
    x += 26;
  }
  if (row.kind == Kind::Window && controller_->state().previewMode != LumoPreviewMode::Tiles &&
      row.target.applicationID && row.target.applicationID->starts_with("auto:")) {
    x += 16;
  }
  QFont titleFont = font;
  titleFont.setStrikeOut(row.closed);
  painter.setFont(titleFont);
  painter.setPen(row.closed ? kNote : kText);
  const QRectF titleArea(x, frame.y(), frame.right() - x - 150, frame.height());
  painter.drawText(
      titleArea, Qt::AlignLeft | Qt::AlignVCenter,
      painter.fontMetrics().elidedText(text(row.title), Qt::ElideRight, int(titleArea.width())));
  painter.setFont(font);
  painter.setPen(kNote);
  painter.drawText(QRectF(frame.right() - 150, frame.y(), 142, frame.height()),
                   Qt::AlignRight | Qt::AlignVCenter, text(row.note));
}

void LumoSwitcherPanel::paintEvent(QPaintEvent*) {
  if (!controller_) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), QColor(0, 0, 0, qRound(255 * kOverlayDimOpacity)));

  const QRectF card = qtRect(layout_.card);
  for (int i = 6; i >= 1; --i) {
    // A soft shadow below the card.
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, int(0.45 * 255 / 6)));
    painter.drawRoundedRect(card.translated(0, 10).adjusted(-i * 4, -i * 4, i * 4, i * 4), 14 + i,
                            14 + i);
  }
  painter.setBrush(QColor(28, 28, 34, 245));
  painter.setPen(QPen(QColor(255, 255, 255, qRound(255 * 0.18)), 1));
  painter.drawRoundedRect(card, 14, 14);

  QFont font = painter.font();
  font.setPixelSize(13);
  painter.setFont(font);
  QFont title = font;
  title.setPixelSize(17);
  title.setBold(true);
  painter.setFont(title);
  painter.setPen(kText);
  painter.drawText(QRectF(card.x() + 16, card.y(), card.width() - 32, kOverlayTopBarHeight),
                   Qt::AlignLeft | Qt::AlignVCenter, text(layout_.title));
  painter.setFont(font);
  painter.setPen(controller_->state().lockOpen ? QColor(255, 200, 80) : kNote);
  painter.drawText(QRectF(card.x() + 16, card.y(), card.width() - 32, kOverlayTopBarHeight),
                   Qt::AlignRight | Qt::AlignVCenter, "Lock Open");

  for (const auto& row : layout_.rows)
    paintRow(painter, row);

  const auto& state = controller_->state();
  if (state.previewMode == LumoPreviewMode::Thumbnails) {
    QRectF preview(card.x() + 16 + (card.width() - 32) * 0.6 + 12, card.y() + kOverlayTopBarHeight,
                   (card.width() - 32) * 0.4 - 12,
                   card.height() - kOverlayTopBarHeight - kOverlayFooterHeight);
    painter.setPen(QColor(255, 255, 255, 60));
    painter.setBrush(QColor(40, 40, 48));
    painter.drawRoundedRect(preview, 8, 8);
    if (state.thumbnailImage) {
      QImage shown = toolkitImage(*state.thumbnailImage);
      if (!shown.isNull()) {
        QSizeF size =
            QSizeF(shown.size()).scaled(preview.size() - QSizeF(16, 16), Qt::KeepAspectRatio);
        painter.drawImage(
            QRectF(preview.center().x() - size.width() / 2,
                   preview.center().y() - size.height() / 2, size.width(), size.height()),
            shown);
      }
    }
  }

  painter.setPen(kNote);
  QFont hint = font;
  hint.setPixelSize(11);
  painter.setFont(hint);
  painter.drawText(QRectF(card.x() + 16, card.bottom() - kOverlayFooterHeight, card.width() - 32,
                          kOverlayFooterHeight),
                   Qt::AlignLeft | Qt::AlignVCenter, text(layout_.hint));
}

const OverlayRow* LumoSwitcherPanel::rowAt(QPointF point) const {
  for (const auto& row : layout_.rows) {
    if (qtRect(row.frame).contains(point)) return &row;
  }
  return nullptr;
}

void LumoSwitcherPanel::mouseMoveEvent(QMouseEvent* event) {
  const OverlayRow* row = controller_ ? rowAt(event->position()) : nullptr;
  if (!row || row->selected) return;
  const Selection& target = row->target;
  switch (row->kind) {
    case OverlayRow::Kind::Window:
    case OverlayRow::Kind::Tile:
      controller_->selectSpecialWindow(*target.applicationID, *target.windowID);
      return;
    case OverlayRow::Kind::Workspace:
      controller_->selectWorkspace(*target.windowID);
      return;
    case OverlayRow::Kind::Desktop:
      controller_->selectShowDesktop();
      return;
    case OverlayRow::Kind::Group:
      controller_->selectApplication(*target.applicationID);
      return;
    case OverlayRow::Kind::Lock:
    case OverlayRow::Kind::SectionTitle:
    case OverlayRow::Kind::Empty:
      return;
  }
}

void LumoSwitcherPanel::mousePressEvent(QMouseEvent* event) {
  if (!controller_) return;
  const OverlayRow* row = rowAt(event->position());
  if (event->button() == Qt::RightButton) {
    showMenu(row, event->globalPosition().toPoint());
    return;
  }
  if (!row || event->button() != Qt::LeftButton) return;
  const Selection& target = row->target;
  switch (row->kind) {
    case OverlayRow::Kind::Lock:
      controller_->toggleLock();
      return;
    case OverlayRow::Kind::Workspace:
      controller_->openWorkspace(*target.windowID);
      return;
    case OverlayRow::Kind::Desktop:
      controller_->openShowDesktop();
      return;
    case OverlayRow::Kind::Group:
      if (event->position().x() < row->frame.x + kChevronWidth) {
        // The chevron stores the opposite of what it shows.
        controller_->setExpanded(*target.applicationID,
                                 !sectionExpanded(controller_->state(), *target.applicationID));
      } else {
        controller_->openApplication(*target.applicationID);
      }
      return;
    case OverlayRow::Kind::Window:
    case OverlayRow::Kind::Tile:
      controller_->openWindow(*target.windowID);
      return;
    case OverlayRow::Kind::SectionTitle:
    case OverlayRow::Kind::Empty:
      return;
  }
}

void LumoSwitcherPanel::showMenu(const OverlayRow* row, QPoint globalPosition) {
  QMenu menu;
  LumoSwitcherController& controller = *controller_;
  if (row && row->item) {
    const RunningAppItem item = *row->item;
    menu.addAction("Close Window", [&controller, item] { controller.closeWindow(item); });
    menu.addAction("Quit " + text(item.appName),
                   [&controller, item] { controller.quitWindow(item); });
    menu.addSeparator();
  }
  menu.addAction("Hide All", [&controller] { controller.hideAllWindows(); });
  menu.addAction("Quit All", [&controller] { controller.closeAllWindows(); });
  menu.addAction("Desktop", [&controller] { controller.openShowDesktop(); });
  menu.addAction("Refresh", [&controller] { controller.refreshList(); });
  QMenu* modes = menu.addMenu("Preview");
  for (auto mode : {LumoPreviewMode::Tiles, LumoPreviewMode::Thumbnails,
                    LumoPreviewMode::FocusWindow, LumoPreviewMode::NoPreview}) {
    QAction* action = modes->addAction(text(previewModeText(mode)),
                                       [&controller, mode] { controller.setPreviewMode(mode); });
    action->setCheckable(true);
    action->setChecked(controller.state().previewMode == mode);
  }
  menu.addAction("Cancel", [] {});
  menu.exec(globalPosition);
}

QImage LumoSwitcherPanel::snapshot() {
  return grab().toImage();
}

}  // namespace tolv
