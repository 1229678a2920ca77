#pragma once

// What the layouts of several pages share.

#include <QSplitter>
#include <QVBoxLayout>
#include <initializer_list>

#include "core/TessarinMenu.h"
#include "ui/qt/Binder.h"

namespace tessarin {

// A page's column: what the page is for, then its body.
QVBoxLayout* PageColumn(TessarinMenu& window, int page, QWidget& panel, Binder& bind);

// Widgets with a handle between them that the user can draw.
QSplitter* Splitter(Qt::Orientation orientation, std::initializer_list<QWidget*> parts);

}  // namespace tessarin
