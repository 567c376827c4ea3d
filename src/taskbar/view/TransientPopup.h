#pragma once

#include <functional>

class QWidget;

namespace tolv {

// Makes a top-level window a transient popup: frameless, above the others, and
// closed by a click outside it. That click only closes it, so a click on the
// tab that opened it doesn't open it again at once. `onClosed` runs from the
// event loop after the toolkit has hidden the window, unless the window is
// gone by then.
void makeTransientPopup(QWidget& window, std::function<void()> onClosed);

}  // namespace tolv
