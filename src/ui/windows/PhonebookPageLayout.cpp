#include <QPlainTextEdit>
#include <QSplitter>
#include <QTreeView>

#include "core/PageTable.h"
#include "ui/windows/PageLayouts.h"
#include "ui/windows/PageParts.h"

namespace tessarin {

void LayOutPhonebookPage(TessarinMenu& window, QWidget& panel, Binder& bind) {
  auto* column = PageColumn(window, kPhonebookPanel, panel, bind);
  auto* memories = Splitter(
      Qt::Vertical, {bind.Bind(window.tvwPhonePhonebook), bind.Bind(window.tvwPCPhonebook)});
  auto* details = bind.BindMultiLine(window.rtbPhonebook);
  details->setReadOnly(true);
  auto* contacts = Splitter(Qt::Vertical, {bind.Bind(window.lvwPhonePhonebook), details});
  auto* both = Splitter(Qt::Horizontal, {memories, contacts});
  both->setSizes({240, 760});
  column->addWidget(both, 1);
}

}  // namespace tessarin
