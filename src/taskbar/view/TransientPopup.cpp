#include "taskbar/view/TransientPopup.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>

namespace tolv {

namespace {

class HideWatcher : public QObject {
 public:
  HideWatcher(QWidget& window, std::function<void()> onHidden)
      : QObject(&window), window_(window), onHidden_(std::move(onHidden)) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == &window_ && event->type() == QEvent::Hide) {
      // The window may be hiding inside its own event handling: act once it's done.
      QTimer::singleShot(0, &window_, onHidden_);
    }
    return false;
  }

 private:
  QWidget& window_;
  std::function<void()> onHidden_;
};

}  // namespace

void makeTransientPopup(QWidget& window, std::function<void()> onClosed) {
  window.setWindowFlags(Qt::Popup | Qt::FramelessWindowHint);
  window.setAttribute(Qt::WA_NoMouseReplay);
  window.installEventFilter(new HideWatcher(window, std::move(onClosed)));
}

}  // namespace tolv
