#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

#include "core/PageTable.h"
#include "core/TessarinMenu.h"
#include "ui/qt/Icons.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/PageLayouts.h"
#include "ui/windows/StartPanelLayout.h"
#include "ui/windows/Style.h"

namespace tessarin {

void LayOut(TessarinMenu& window, QWidget& top, Binder& bind) {
  auto& frame = static_cast<QMainWindow&>(top);
  frame.setWindowIcon(QApplication::windowIcon());
  auto* menu = bind.Bind(window.MainMenu);
  auto* state = bind.Bind(window.Lbstatus);
  state->setContentsMargins(0, 3, kGap, 0);
  state->setWordWrap(false);
  // A menu bar measures its corner anew only when it is told of the widget.
  bind.Follow(window.Lbstatus, [menu, state] { menu->setCornerWidget(state); });
  frame.setMenuBar(menu);
  frame.setContextMenuPolicy(Qt::NoContextMenu);
  auto* pages = bind.Bind(window.Toolbar2, true);
  auto* actions = bind.Bind(window.Toolbar1, false);
  frame.addToolBar(Qt::TopToolBarArea, pages);
  frame.addToolBarBreak();
  frame.addToolBar(Qt::TopToolBarArea, actions);
  bind.Follow(window.Toolbar1,
              [&window, actions] { actions->setVisible(!window.Toolbar1.buttons().empty()); });

  // All panels have the same place; the session shows one of them at a time.
  auto* middle = new QWidget(&frame);
  auto* place = new QVBoxLayout(middle);
  place->setContentsMargins(0, 0, 0, 0);
  std::vector<QWidget*> panels;
  for (int index = 0; index <= kStartPanel; ++index) {
    auto* panel = bind.Bind(*window.ToolFrame[static_cast<std::size_t>(index)]);
    panels.push_back(panel);
    place->addWidget(panel);
  }
  for (const FilePanes& panes : window.filePanes()) {
    LayOutFilePage(window, panes, *panels[static_cast<std::size_t>(panes.panel)], bind);
  }
  LayOutSmsPage(window, *panels[1], bind);
  LayOutCalendarPage(window, *panels[kCalendarPanel], bind);
  LayOutPhonebookPage(window, *panels[kPhonebookPanel], bind);
  LayOutStartPanel(window.start, *panels[kStartPanel], bind);
  frame.setCentralWidget(middle);

  auto* status = bind.Bind(window.StatusBar1);
  status->setContentsMargins(kGap / 2, 0, 0, 0);
  frame.setStatusBar(status);
  frame.setMinimumSize(800, 560);
  frame.resize(1000, 680);
}

}  // namespace tessarin
