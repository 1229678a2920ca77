#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>

#include "core/frmPhoneInfo.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/Style.h"

namespace tessarin {

void LayOut(frmPhoneInfo& window, QWidget& top, Binder& bind) {
  auto* facts = new QFormLayout;
  facts->setHorizontalSpacing(kMargin);
  facts->setVerticalSpacing(kGap);
  const std::pair<Label*, Label*> rows[] = {{&window.Label1, &window.LabManu},
                                            {&window.Label3, &window.LabModel},
                                            {&window.Label5, &window.LabFirmware},
                                            {&window.Label7, &window.LabIMEI}};
  for (const auto& [caption, value] : rows) {
    auto* words = bind.Bind(*caption);
    words->setForegroundRole(QPalette::PlaceholderText);
    auto* shown = bind.Bind(*value);
    shown->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    facts->addRow(words, shown);
  }
  auto* middle = new QHBoxLayout;
  middle->setSpacing(kMargin);
  middle->addWidget(bind.Bind(window.Image1, 70, 140));
  middle->addLayout(facts, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  auto* close = bind.Bind(window.Command1);
  close->setDefault(true);
  buttons->addWidget(close);
  auto* column = Column(top, 400);
  column->addLayout(middle);
  column->addLayout(buttons);
}

}  // namespace tessarin
