#include "taskbar/view/TaskbarPanelController.h"

#include <QBuffer>
#include <QPainter>

#include "model/AppModel.h"
#include "taskbar/PanelDescription.h"
#include "taskbar/view/QtPanelWindow.h"

namespace tolv {

namespace {

const QColor kDesktop(40, 44, 52);

}  // namespace

class TaskbarPanelController::WindowFactory : public PanelWindowFactory {
 public:
  explicit WindowFactory(AppModel& model) : model_(model) {}

  std::unique_ptr<PanelWindow> makePanel(const PanelSpec& spec) override {
    return std::make_unique<QtPanelWindow>(spec, [this] {
      auto screens = model_.platform().screens->screens();
      return screens.empty() ? 0.0 : screens.front().frame.maxY();
    });
  }

 private:
  AppModel& model_;
};

TaskbarPanelController::TaskbarPanelController(AppModel& model, TextMeasurer& measurer,
                                               AutoHideHooks hooks)
    : model_(model),
      factory_(std::make_unique<WindowFactory>(model)),
      panels_(std::make_unique<TaskbarPanels>(model, *factory_, measurer)),
      autoHide_(std::make_unique<AutoHide>(model, *panels_, std::move(hooks))) {
  subscriptions_.push_back(panels_->didRebuild().subscribe([this] { showViews(); }));
  subscriptions_.push_back(panels_->contentChanged().subscribe([this] { redraw(); }));
}

TaskbarPanelController::~TaskbarPanelController() = default;

void TaskbarPanelController::rebuildPanels() {
  panels_->rebuildPanels();
}

QtPanelWindow& TaskbarPanelController::window(const TaskbarPanel& panel) const {
  return static_cast<QtPanelWindow&>(*panel.window);
}

void TaskbarPanelController::showViews() {
  for (const auto& panel : panels_->panels())
    window(*panel).showTaskbar(model_, *panel);
}

void TaskbarPanelController::redraw() {
  for (const auto& panel : panels_->panels())
    window(*panel).redraw();
}

nlohmann::json TaskbarPanelController::describePanels() const {
  return tolv::describePanels(*panels_);
}

nlohmann::json TaskbarPanelController::describeRows() const {
  const TaskRowLayout* layout = panels_->mainLayout();
  return layout ? describeTaskRows(*layout) : nlohmann::json::array();
}

QImage TaskbarPanelController::snapshot(const TaskbarPanel& panel) const {
  const Rect& screen = panel.screen.frame;
  Rect frame = panel.window->frame();
  QImage canvas(qRound(screen.width), qRound(screen.height), QImage::Format_ARGB32_Premultiplied);
  canvas.fill(kDesktop);

  QWidget* view = window(panel).content();
  if (!view) return canvas;
  QImage bar(qRound(frame.width), qRound(frame.height), QImage::Format_ARGB32_Premultiplied);
  bar.fill(Qt::transparent);
  view->render(&bar, QPoint(), QRegion(), QWidget::DrawChildren);

  QPainter painter(&canvas);
  painter.setOpacity(panel.window->alpha());
  // Image rows run down from the screen's top.
  painter.drawImage(QPointF(frame.x - screen.x, screen.maxY() - frame.maxY()), bar);
  return canvas;
}

std::vector<std::string> TaskbarPanelController::saveSnapshots(
    const std::string& directory, const std::string& checkpoint) const {
  FileSystem& files = *model_.platform().fileSystem;
  std::vector<std::string> written;
  if (!files.createDirectories(directory)) return written;
  for (const auto& panel : panels_->panels()) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!snapshot(*panel).save(&buffer, "PNG")) continue;
    std::string path =
        directory + "/" +
        snapshotFileName(checkpoint, panelKindName(PanelKind::Taskbar), panel->screenIndex);
    if (files.writeFileAtomically(path, std::vector<uint8_t>(png.begin(), png.end()))) {
      written.push_back(path);
    }
  }
  return written;
}

std::string snapshotFileName(const std::string& checkpoint, const char* panel, size_t screen) {
  std::string name = checkpoint;
  for (char& c : name) {
    bool safe = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                c == '.' || c == '-' || c == '_';
    if (!safe) c = '_';
  }
  return name + "-" + panel + "-" + std::to_string(screen) + ".png";
}

}  // namespace tolv
