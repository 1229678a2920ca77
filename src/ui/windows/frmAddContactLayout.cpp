#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "phonebook/frmAddContact.h"
#include "ui/windows/Layouts.h"
#include "ui/windows/Style.h"

namespace tessarin {

namespace {

constexpr int kBoxWidth = 230;

// A column of labels, each with its box.
class Fields {
 public:
  explicit Fields(Binder& bind) : bind_(bind), grid_(new QGridLayout) {
    grid_->setHorizontalSpacing(kGap);
    grid_->setVerticalSpacing(kGap / 2);
    grid_->setColumnMinimumWidth(1, kBoxWidth);
    grid_->setColumnStretch(1, 1);
  }

  void Head(Label& label) {
    if (row_ > 0) grid_->setRowMinimumHeight(row_++, kGap / 2);
    grid_->addWidget(AsHeading(bind_.Bind(label), 1.0), row_++, 0, 1, 2);
  }
  void Add(Label& label, TextBox& box) {
    auto* words = bind_.Bind(label);
    auto* edit = bind_.Bind(box);
    words->setBuddy(edit);
    grid_->addWidget(words, row_, 0);
    grid_->addWidget(edit, row_++, 1);
  }
  template <std::size_t N>
  void Add(std::array<Label, N>& labels, std::array<TextBox, N>& boxes) {
    for (std::size_t i = 0; i < N; ++i) Add(labels[i], boxes[i]);
  }
  QVBoxLayout* Column() const {
    auto* column = new QVBoxLayout;
    column->addLayout(grid_);
    column->addStretch(1);
    return column;
  }

 private:
  Binder& bind_;
  QGridLayout* grid_;
  int row_ = 0;
};

QHBoxLayout* Memories(frmAddContact& window, Binder& bind) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kMargin);
  row->addWidget(bind.Bind(window.lblSaveIn));
  row->addWidget(bind.Bind(window.Option1));
  row->addWidget(bind.Bind(window.Option2));
  row->addStretch(1);
  return row;
}

}  // namespace

void LayOut(frmAddContact& window, QWidget& top, Binder& bind) {
  auto* column = Column(top, 680);
  column->addLayout(Memories(window, bind));
  Fields left(bind), right(bind);
  left.Add(window.Label1, window.Text1);
  left.Head(window.lblNumbers);
  left.Add(window.NumberLabels, window.Text2);
  left.Add(window.Label10, window.Text5);
  left.Add(window.Label8, window.Text3);
  left.Add(window.Label2, window.Text6);
  left.Add(window.Label9, window.Text4);
  left.Add(window.Label11, window.Text7);
  right.Head(window.Frame1);
  right.Add(window.HomeLabels, window.HomeAddress);
  right.Head(window.Frame2);
  right.Add(window.WorkLabels, window.WorkAddress);
  auto* both = new QHBoxLayout;
  both->setSpacing(2 * kMargin);
  both->addLayout(left.Column(), 1);
  both->addLayout(right.Column(), 1);
  column->addLayout(both);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  auto* save = bind.Bind(window.Command1);
  save->setDefault(true);
  buttons->addWidget(save);
  buttons->addWidget(bind.Bind(window.Command2));
  column->addLayout(buttons);
  top.findChild<QLineEdit*>(QString::fromStdString(window.Text1.name()))->setFocus();
}

}  // namespace tessarin
