#include "platform/x11/DockWindow.h"

#include <QWidget>

#include "platform/x11/X11Connection.h"

namespace tolv::x11 {

namespace {

void setAtoms(X11Connection& connection, xcb_window_t window, const char* property,
              const std::vector<const char*>& values) {
  std::vector<xcb_atom_t> atoms;
  for (const char* value : values)
    atoms.push_back(connection.atom(value));
  xcb_change_property(connection.raw(), XCB_PROP_MODE_REPLACE, window, connection.atom(property),
                      XCB_ATOM_ATOM, 32, static_cast<uint32_t>(atoms.size()), atoms.data());
}

}  // namespace

void makeDockWindow(X11Connection& connection, QWidget& widget) {
  QWidget& window = *widget.window();
  // Changing the flags makes a new native window; a window that has them keeps its own.
  const Qt::WindowFlags wanted =
      Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus;
  if ((window.windowFlags() & wanted) != wanted)
    window.setWindowFlags(window.windowFlags() | wanted);
  window.setAttribute(Qt::WA_X11NetWmWindowTypeDock);
  window.setAttribute(Qt::WA_ShowWithoutActivating);
  // The native window exists from here on; its properties are read when it is mapped.
  const auto id = static_cast<xcb_window_t>(window.winId());
  setAtoms(connection, id, "_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DOCK"});
  setAtoms(connection, id, "_NET_WM_STATE",
           {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_STICKY", "_NET_WM_STATE_SKIP_TASKBAR",
            "_NET_WM_STATE_SKIP_PAGER"});
  const uint32_t everyDesktop = 0xFFFFFFFF;
  xcb_change_property(connection.raw(), XCB_PROP_MODE_REPLACE, id,
                      connection.atom("_NET_WM_DESKTOP"), XCB_ATOM_CARDINAL, 32, 1, &everyDesktop);
  connection.flush();
}

}  // namespace tolv::x11
