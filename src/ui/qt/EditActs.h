#pragma once

// Cut, copy and the like on a widget: text fields know all of them, lists and grids give the cells
// that are selected to the clipboard.

#include "controls/WindowHost.h"

class QWidget;

namespace tessarin {

// Whether the act would do something to `widget` just now.
bool CanEdit(const QWidget& widget, EditAct act);

// Does it; nothing happens where the widget has no such act.
void Edit(QWidget& widget, EditAct act);

}  // namespace tessarin
