#include "startmenu/view/StartMenuView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include "model/AppModel.h"
#include "model/Text.h"
#include "platform/qt/QtImages.h"
#include "startmenu/StartMenuPlacement.h"
#include "taskbar/view/RoundedPath.h"
#include "taskbar/view/TabPainter.h"

namespace tolv {

namespace {

constexpr double kIconSize = 27;
constexpr double kRowPadding = 7;
constexpr double kRowSpacing = 9;
constexpr double kSearchRadius = 8;
constexpr const char* kProductLine = "Tolv Desktop • ";

QRectF toQt(const Rect& rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

QColor layerColor(double red, double green, double blue, double opacity) {
  return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green),
                          static_cast<float>(blue), static_cast<float>(opacity));
}

QColor menuWhite(double opacity) {
  return layerColor(1, 1, 1, opacity);
}

QPainterPath notchPath(const NotchOutline& notch) {
  QPainterPath path;
  path.moveTo(notch.start.x, notch.start.y);
  path.lineTo(notch.straightEnd.x, notch.straightEnd.y);
  path.quadTo(notch.control.x, notch.control.y, notch.curveEnd.x, notch.curveEnd.y);
  path.lineTo(notch.edgeEnd.x, notch.edgeEnd.y);
  path.closeSubpath();
  return path;
}

void paintInitial(QPainter& painter, const QRectF& box, const QString& name) {
  QPainterPath plate;
  plate.addRoundedRect(box, 6, 6);
  painter.fillPath(plate, menuWhite(0.22));
  painter.setPen(Qt::white);
  painter.setFont(systemFont(13, true));
  painter.drawText(box, Qt::AlignCenter, name.left(1).toUpper());
}

}  // namespace

StartMenuView::StartMenuView(AppModel& model, QWidget* parent, PressHandler onPress,
                             KeyHandler onKey)
    : QWidget(parent), model_(model), onPress_(std::move(onPress)), onKey_(std::move(onKey)) {
  setAttribute(Qt::WA_TranslucentBackground);
  setFocusPolicy(Qt::StrongFocus);
}

StartMenuLayout StartMenuView::currentLayout() const {
  const std::string& search = model_.startMenu.applicationSearch;
  StartMenuList list = model_.startMenuList();
  return layoutStartMenu(
      {.location = model_.settings.taskbarLocation,
       .panelSize = {static_cast<double>(width()), static_cast<double>(height())},
       .rowCount = list.rows.size(),
       .searching = model_.showsSearchFilesRow(),
       .searched = !trimmedWhitespaceAndNewlines(search).empty()});
}

void StartMenuView::paintEvent(QPaintEvent*) {
  const Settings& settings = model_.settings;
  const std::string& location = settings.taskbarLocation;
  StartMenuLayout layout = currentLayout();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setRenderHint(QPainter::TextAntialiasing);

  QPainterPath shape = roundedRect(QRectF(rect()), startMenuOuterCorners(location));
  painter.setClipPath(shape);
  double opacity = settings.menuOpacity;
  painter.fillRect(rect(), layerColor(0.08, 0.09, 0.087, opacity));
  painter.fillRect(toQt(layout.header), layerColor(0.075, 0.09, 0.085, opacity));
  painter.fillRect(toQt(layout.leftColumn), layerColor(0.105, 0.115, 0.11, opacity));
  painter.fillRect(toQt(layout.rightPane), layerColor(0.065, 0.075, 0.072, opacity));

  // The header: the picture, the title and the version line.
  QRectF header = toQt(layout.header);
  QRectF picture(header.left() + 8, header.center().y() - 22, 44, 44);
  QImage own = qt::unwrap(model_.ownApplicationIcon());
  if (!own.isNull()) {
    painter.drawImage(picture, own);
  } else {
    paintInitial(painter, picture, "T");
  }
  painter.setPen(QPen(layerColor(0, 0, 0, 0.33), 2));
  painter.drawRoundedRect(picture, 8, 8);
  painter.setPen(Qt::white);
  painter.setFont(systemFont(14, true));
  painter.drawText(QRectF(picture.right() + 10, header.top() + 8, 300, 20),
                   Qt::AlignLeft | Qt::AlignVCenter, "My Applications Container");
  auto version = model_.platform().workspace->mainBundle().shortVersion;
  painter.setPen(menuWhite(0.55));
  painter.setFont(systemFont(10));
  painter.drawText(QRectF(picture.right() + 10, header.top() + 28, 300, 16),
                   Qt::AlignLeft | Qt::AlignVCenter,
                   QString::fromStdString(kProductLine + version.value_or("Unknown")));

  // The tab strip.
  StartMenuListKind shown = model_.shownStartMenuList();
  for (const auto& segment : layout.segments) {
    QRectF box = toQt(segment.frame).adjusted(1, 0, -1, 0);
    bool selected =
        segment.list == model_.startMenu.selectedList ||
        (segment.list == start_menu_list::Favorites &&
         (shown == StartMenuListKind::Favorites || shown == StartMenuListKind::SearchResults));
    QPainterPath pill;
    pill.addRoundedRect(box, 6, 6);
    painter.fillPath(pill, menuWhite(selected ? 0.22 : 0.07));
    painter.setPen(Qt::white);
    painter.setFont(systemFont(11, selected));
    painter.drawText(box, Qt::AlignCenter, QString::fromStdString(segment.label));
  }
  paintList(painter, layout);
  paintSearch(painter, layout);

  // The strip cut out where the start button meets the menu.
  NotchOutline notch =
      startMenuNotch(location, {static_cast<double>(width()), static_cast<double>(height())});
  if (notch.present) {
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(notchPath(notch), Qt::black);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  }
}

void StartMenuView::paintList(QPainter& painter, const StartMenuLayout& layout) {
  StartMenuList list = model_.startMenuList();
  if (list.rows.empty()) {
    if (!list.placeholder) return;
    painter.setPen(menuWhite(0.55));
    painter.setFont(systemFont(12));
    painter.drawText(toQt(layout.placeholder), Qt::AlignCenter,
                     QString::fromStdString(*list.placeholder));
    return;
  }
  for (size_t i = 0; i < layout.rows.size(); ++i) {
    const StartMenuRow& row = list.rows[i];
    QRectF box = toQt(layout.rows[i]);
    QRectF icon(box.left() + kRowPadding, box.center().y() - kIconSize / 2, kIconSize, kIconSize);
    QImage image;
    if (row.kind == StartMenuRowKind::Application) {
      image = qt::unwrap(model_.applicationIcon(row.key, std::nullopt));
    }
    if (!image.isNull()) {
      painter.drawImage(icon, image);
    } else {
      paintInitial(painter, icon, QString::fromStdString(row.title));
    }
    painter.setPen(Qt::white);
    painter.setFont(systemFont(13));
    QRectF text(icon.right() + kRowSpacing, box.top(), box.right() - icon.right() - kRowSpacing,
                box.height());
    QString title = painter.fontMetrics().elidedText(QString::fromStdString(row.title),
                                                     Qt::ElideRight, qRound(text.width()));
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, title);
  }
}

void StartMenuView::paintSearch(QPainter& painter, const StartMenuLayout& layout) {
  const std::string& search = model_.startMenu.applicationSearch;
  if (layout.searchFilesRow) {
    QRectF row = toQt(*layout.searchFilesRow);
    painter.setPen(menuWhite(0.8));
    painter.setFont(systemFont(11));
    painter.drawText(row.adjusted(4, 0, -30, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     "Search Files & Folders");
    painter.setFont(systemFont(10, true));
    painter.drawText(QRectF(row.right() - 28, row.top(), 12, row.height()), Qt::AlignCenter, "↩");
    painter.drawText(QRectF(row.right() - 12, row.top(), 12, row.height()), Qt::AlignCenter, "✕");
  }
  QRectF box = toQt(layout.searchBox);
  QPainterPath field;
  field.addRoundedRect(box, kSearchRadius, kSearchRadius);
  painter.fillPath(field, layerColor(0.08, 0.09, 0.087, model_.settings.menuOpacity));
  painter.setPen(QPen(menuWhite(0.12), 1));
  painter.drawPath(field);
  painter.setFont(systemFont(13));
  QRectF text = box.adjusted(10, 0, -10, 0);
  if (search.empty()) {
    painter.setPen(menuWhite(0.45));
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, "Find Anything");
  } else {
    painter.setPen(Qt::white);
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, QString::fromStdString(search));
  }
}

void StartMenuView::mousePressEvent(QMouseEvent* event) {
  if (!onPress_) return;
  if (event->button() == Qt::LeftButton) onPress_(event->position(), MouseButton::Left);
  if (event->button() == Qt::RightButton) onPress_(event->position(), MouseButton::Right);
}

void StartMenuView::keyPressEvent(QKeyEvent* event) {
  if (!onKey_) return;
  switch (event->key()) {
    case Qt::Key_Escape:
      return onKey_("escape");
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return onKey_("return");
    case Qt::Key_Backspace:
      return onKey_("backspace");
    case Qt::Key_Space:
      return onKey_("space");
    default:
      break;
  }
  QString text = event->text();
  if (!text.isEmpty() && text.at(0).isPrint()) onKey_(text.toStdString());
}

}  // namespace tolv
