#pragma once

// What the layouts of both synchronisation windows share.

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "outlook/SyncDialog.h"
#include "ui/qt/Binder.h"

namespace tessarin {

// A pane below its heads, above its tick box.
QVBoxLayout* SyncPane(SyncDialog& window, int pane, QWidget* head, Binder& bind);
// The commands between the panes.
QVBoxLayout* SyncArrows(SyncDialog& window, Binder& bind);
// The progress of a run or what came of it, and the buttons.
QVBoxLayout* SyncFoot(SyncDialog& window, Binder& bind);
// Makes the window as large as its lists want to be.
void SizeSyncDialog(QWidget& top);

}  // namespace tessarin
