#pragma once

#include "core/TessarinMenu.h"
#include "ui/qt/Binder.h"

namespace tessarin {

// Each lays one page of the main window out inside its panel.
void LayOutFilePage(TessarinMenu& window, const FilePanes& panes, QWidget& panel, Binder& bind);
void LayOutSmsPage(TessarinMenu& window, QWidget& panel, Binder& bind);
void LayOutCalendarPage(TessarinMenu& window, QWidget& panel, Binder& bind);
void LayOutPhonebookPage(TessarinMenu& window, QWidget& panel, Binder& bind);

}  // namespace tessarin
