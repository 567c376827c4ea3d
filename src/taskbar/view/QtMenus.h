#pragma once

#include <QMenu>

#include <functional>
#include <memory>

#include "taskbar/TaskMenus.h"

namespace tolv {

// A toolkit menu of a menu tree: separators, submenus and greyed items as the
// tree says; choosing an item hands its action to `choose`.
std::unique_ptr<QMenu> makeQMenu(const Menu& menu, std::function<void(const MenuAction&)> choose);

}  // namespace tolv
