#include "ui/windows/PageParts.h"

#include "ui/windows/Style.h"

namespace tessarin {

QVBoxLayout* PageColumn(TessarinMenu& window, int page, QWidget& panel, Binder& bind) {
  auto* column = new QVBoxLayout(&panel);
  column->setContentsMargins(kGap, kGap, kGap, kGap);
  column->setSpacing(kGap / 2);
  auto* about = bind.Bind(*window.lblAbout[static_cast<std::size_t>(page)]);
  about->setForegroundRole(QPalette::PlaceholderText);
  column->addWidget(about);
  return column;
}

QSplitter* Splitter(Qt::Orientation orientation, std::initializer_list<QWidget*> parts) {
  auto* splitter = new QSplitter(orientation);
  splitter->setChildrenCollapsible(false);
  splitter->setHandleWidth(kGap / 2);
  for (QWidget* part : parts) splitter->addWidget(part);
  return splitter;
}

}  // namespace tessarin
