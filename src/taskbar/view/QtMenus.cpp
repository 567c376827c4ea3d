#include "taskbar/view/QtMenus.h"

namespace tolv {

namespace {

void fill(QMenu& target, const Menu& menu,
          const std::shared_ptr<std::function<void(const MenuAction&)>>& choose) {
  for (const auto& item : menu) {
    if (item.separator) {
      target.addSeparator();
      continue;
    }
    QString title = QString::fromStdString(item.title);
    if (!item.children.empty()) {
      QMenu* sub = target.addMenu(title);
      sub->setEnabled(item.enabled);
      fill(*sub, item.children, choose);
      continue;
    }
    QAction* action = target.addAction(title);
    action->setEnabled(item.enabled && item.action.has_value());
    if (item.action) {
      MenuAction chosen = *item.action;
      QObject::connect(action, &QAction::triggered, [choose, chosen] { (*choose)(chosen); });
    }
  }
}

}  // namespace

std::unique_ptr<QMenu> makeQMenu(const Menu& menu, std::function<void(const MenuAction&)> choose) {
  auto result = std::make_unique<QMenu>();
  fill(*result, menu, std::make_shared<std::function<void(const MenuAction&)>>(std::move(choose)));
  return result;
}

}  // namespace tolv
