#pragma once

#include "core/StartPanel.h"
#include "ui/qt/Binder.h"

namespace tessarin {

// The phone's picture on the left; who it is, what it has and what to do next on the right.
void LayOutStartPanel(StartPanel& start, QWidget& panel, Binder& bind);

}  // namespace tessarin
