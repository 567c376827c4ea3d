#pragma once

class QWidget;

namespace tolv::x11 {

class X11Connection;

// Makes a top-level toolkit window a dock of the X desktop, before it is first
// shown: a dock window on every desktop, above others, left out of task lists
// and pagers, never taking the keyboard focus. The window manager reserves no
// space for it; the panels place themselves.
void makeDockWindow(X11Connection& connection, QWidget& window);

}  // namespace tolv::x11
