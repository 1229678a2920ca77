#include <QPlainTextEdit>
#include <QSplitter>
#include <QTreeView>

#include "ui/qt/Convert.h"
#include "ui/windows/PageLayouts.h"
#include "ui/windows/PageParts.h"

namespace tessarin {

namespace {

constexpr int kReadingTab = 150;  // as far as the labels of all languages reach

}  // namespace

void LayOutSmsPage(TessarinMenu& window, QWidget& panel, Binder& bind) {
  auto* column = PageColumn(window, 1, panel, bind);
  auto* folders =
      Splitter(Qt::Vertical, {bind.Bind(window.tvwPhoneSMS), bind.Bind(window.tvwPCSMS)});
  auto* text = bind.BindMultiLine(window.rtbSMS);
  text->setReadOnly(true);
  text->setFont(QFont(QStringLiteral("Times New Roman"), 12, QFont::Bold));
  text->setTabStopDistance(kReadingTab);
  bind.Follow(window.rtbSMS,
              [&window, text] { text->setPlaceholderText(ToQt(window.rtbSMS.toolTip)); });
  auto* messages = Splitter(Qt::Vertical, {bind.Bind(window.lvwPhoneSMS), text});
  messages->setSizes({300, 200});
  auto* both = Splitter(Qt::Horizontal, {folders, messages});
  both->setSizes({200, 800});
  column->addWidget(both, 1);
}

}  // namespace tessarin
