#include <QPlainTextEdit>
#include <QSplitter>
#include <QTreeView>

#include "core/PageTable.h"
#include "ui/windows/PageLayouts.h"
#include "ui/windows/PageParts.h"

namespace tessarin {

namespace {

constexpr int kDetailsTab = 170;  // as far as the labels of all languages reach

}  // namespace

void LayOutPhonebookPage(TessarinMenu& window, QWidget& panel, Binder& bind) {
  auto* column = PageColumn(window, kPhonebookPanel, panel, bind);
  auto* memories = Splitter(
      Qt::Vertical, {bind.Bind(window.tvwPhonePhonebook), bind.Bind(window.tvwPCPhonebook)});
  auto* details = bind.BindMultiLine(window.rtbPhonebook);
  details->setReadOnly(true);
  details->setFont(QFont(QStringLiteral("Times New Roman"), 12));
  details->setTabStopDistance(kDetailsTab);
  auto* contacts = Splitter(Qt::Vertical, {bind.Bind(window.lvwPhonePhonebook), details});
  auto* both = Splitter(Qt::Horizontal, {memories, contacts});
  both->setSizes({240, 760});
  column->addWidget(both, 1);
}

}  // namespace tessarin
