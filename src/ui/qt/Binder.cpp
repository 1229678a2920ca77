#include "ui/qt/Binder.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTimer>

#include "controls/WindowHost.h"
#include "ui/qt/Convert.h"
#include "ui/qt/ElidedLabel.h"
#include "ui/qt/Films.h"
#include "ui/qt/Icons.h"

namespace tessarin {

void Binder::Follow(Control& control, std::function<void()> update) {
  update();
  connections_.push_back(control.changed.Connect(std::move(update)));
}

void Binder::Run(const std::function<void()>& event) {
  if (!released_) host_.RunEvent(event);
}

bool Binder::TakesActs() const {
  const QWidget* modal = QApplication::activeModalWidget();
  const QWidget* widget = &top_;
  while (modal != nullptr && widget != nullptr && widget != modal) widget = widget->parentWidget();
  return !host_.IsYielding() && (modal == nullptr || widget == modal);
}

void Binder::Act(Control& control, const std::function<void()>& act) {
  if (released_) return;
  if (TakesActs()) return Run(act);
  const auto restore = [this, &control] {
    if (!released_) control.changed();
  };
  QMetaObject::invokeMethod(this, restore, Qt::QueuedConnection);
}

void Binder::Release() {
  released_ = true;
  connections_.clear();
  for (QTimer* timer : findChildren<QTimer*>()) timer->stop();
  for (QAbstractItemView* view : views_) view->setModel(nullptr);
}

void Binder::BindState(Control& control, QWidget& widget, std::function<void()> update) {
  widget.setObjectName(QString::fromStdString(control.name()));
  connect(&widget, &QWidget::customContextMenuRequested, this,
          [this, &control, &widget](const QPoint& place) {
            // What scrolls tells the place within what is seen of it.
            const auto* area = qobject_cast<QAbstractScrollArea*>(&widget);
            menuPlace_ = (area == nullptr ? &widget : area->viewport())->mapToGlobal(place);
            Act(control, [&] { control.contextMenuRequested(); });
          });
  connections_.push_back(
      control.focusWanted.Connect([&widget] { widget.setFocus(Qt::OtherFocusReason); }));
  Follow(control, [&control, &widget, update = std::move(update)] {
    if (update != nullptr) update();
    widget.setEnabled(control.enabled);
    widget.setVisible(control.visible);
    widget.setToolTip(ToQt(control.toolTip));
    widget.setAccessibleName(ToQt(control.accessibleName));
  });
}

QLabel* Binder::Bind(Label& label) {
  auto* widget = new QLabel(&top_);
  widget->setWordWrap(true);
  widget->setTextFormat(Qt::PlainText);
  BindState(label, *widget, [&label, widget] { widget->setText(ToQt(label.text)); });
  return widget;
}

QLabel* Binder::BindElided(Label& label) {
  auto* widget = new ElidedLabel(&top_);
  BindState(label, *widget);
  Follow(label, [&label, widget] { widget->SetWords(ToQt(label.text)); });
  return widget;
}

namespace {

// What is selected stays so while a menu has the focus: the menu may be about to cut it.
class FieldWidget : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

 protected:
  void focusOutEvent(QFocusEvent* event) override {
    const bool byMenu = event->reason() == Qt::MenuBarFocusReason;
    QFocusEvent told(QEvent::FocusOut, byMenu ? Qt::PopupFocusReason : event->reason());
    QLineEdit::focusOutEvent(&told);
  }
};

}  // namespace

QLineEdit* Binder::Bind(TextBox& box) {
  auto* widget = new FieldWidget(&top_);
  BindState(box, *widget, [&box, widget] {
    const QSignalBlocker quiet(widget);
    if (box.maximumLength > 0) widget->setMaxLength(box.maximumLength);
    if (widget->text() != ToQt(box.text)) widget->setText(ToQt(box.text));
  });
  connect(widget, &QLineEdit::textEdited, this, [this, &box](const QString& text) {
    Act(box, [&] {
      box.text = FromQt(text);
      box.edited();
    });
  });
  return widget;
}

QPlainTextEdit* Binder::BindMultiLine(TextBox& box) {
  auto* widget = new QPlainTextEdit(&top_);
  BindState(box, *widget, [&box, widget] {
    const QSignalBlocker quiet(widget);
    if (widget->toPlainText() != ToQt(box.text)) widget->setPlainText(ToQt(box.text));
  });
  connect(widget, &QPlainTextEdit::textChanged, this, [this, &box, widget] {
    Act(box, [&] {
      Text text = FromQt(widget->toPlainText());
      const int limit = box.maximumLength;
      if (limit > 0) text.resize(std::min(text.size(), static_cast<std::size_t>(limit)));
      box.text = std::move(text);
      if (widget->toPlainText() != ToQt(box.text)) {
        const QSignalBlocker quiet(widget);
        widget->setPlainText(ToQt(box.text));
        widget->moveCursor(QTextCursor::End);
      }
      box.edited();
    });
  });
  return widget;
}

QPushButton* Binder::Bind(Button& button) {
  auto* widget = new QPushButton(&top_);
  widget->setAutoDefault(false);
  BindState(button, *widget, [&button, widget] {
    widget->setText(ToQt(button.caption));
    widget->setIcon(Icon(button.image));
  });
  connect(widget, &QAbstractButton::clicked, this,
          [this, &button] { Act(button, [&] { button.clicked(); }); });
  return widget;
}

void Binder::BindChecked(CheckBox& box, QAbstractButton& widget) {
  BindState(box, widget, [&box, &widget] {
    const QSignalBlocker quiet(&widget);
    widget.setText(ToQt(box.caption));
    widget.setChecked(box.checked);
  });
  // A screen reader toggles without a click. An option goes out when another one is chosen, which
  // is no act of its own.
  connect(&widget, &QAbstractButton::toggled, this, [this, &box, &widget](bool checked) {
    if (!checked && widget.autoExclusive()) return;
    Act(box, [&] {
      box.checked = checked;
      box.clicked();
    });
  });
}

QCheckBox* Binder::Bind(CheckBox& box) {
  auto* widget = new QCheckBox(&top_);
  BindChecked(box, *widget);
  return widget;
}

QRadioButton* Binder::Bind(OptionButton& option) {
  auto* widget = new QRadioButton(&top_);
  BindChecked(option, *widget);
  return widget;
}

namespace {

// Combo box and list widget name the same steps in the same way but for the current one.
template <class Widget, class SetCurrent>
void FillItems(const ItemList& list, Widget& widget, SetCurrent setCurrent) {
  const QSignalBlocker quiet(&widget);
  widget.clear();
  for (int index = 0; index < list.Count(); ++index) widget.addItem(ToQt(list.Item(index)));
  setCurrent(list.Selected());
}

}  // namespace

QComboBox* Binder::Bind(ComboBox& box) {
  auto* widget = new QComboBox(&top_);
  BindState(box, *widget, [&box, widget] {
    FillItems(box, *widget, [widget](int index) { widget->setCurrentIndex(index); });
    // On this platform Qt tells a screen reader the chosen text in place of the name.
    widget->setAccessibleDescription(ToQt(box.accessibleName));
  });
  connect(widget, &QComboBox::activated, this, [this, &box](int index) {
    Act(box, [&] {
      box.Select(index);
      box.clicked();
    });
  });
  return widget;
}

QListWidget* Binder::Bind(ListBox& box) {
  auto* widget = new QListWidget(&top_);
  BindState(box, *widget, [&box, widget] {
    FillItems(box, *widget, [widget](int index) { widget->setCurrentRow(index); });
  });
  connect(widget, &QListWidget::currentRowChanged, this, [this, &box](int index) {
    Act(box, [&] {
      box.Select(index);
      box.clicked();
    });
  });
  return widget;
}

QProgressBar* Binder::Bind(ProgressBar& bar) {
  auto* widget = new QProgressBar(&top_);
  widget->setTextVisible(false);
  BindState(bar, *widget, [&bar, widget] {
    widget->setMaximum(bar.maximum);
    widget->setValue(bar.value);
  });
  return widget;
}

QWidget* Binder::Bind(Picture& picture, int width, int height) {
  auto* widget = new PictureWidget(&top_);
  widget->setMinimumSize(width, height);
  BindState(picture, *widget, [&picture, widget] {
    widget->SetImage(picture.image);
    widget->SetContent(picture.content);
    widget->SetEmptyText(ToQt(picture.emptyText));
  });
  return widget;
}

QWidget* Binder::Bind(Animation& animation, int width, int height) {
  auto* widget = new FilmWidget(&top_);
  widget->setMinimumSize(width, height);
  BindState(animation, *widget, [&animation, widget] {
    widget->SetFilm(ToQt(animation.file));
    widget->SetPlaying(animation.playing);
  });
  return widget;
}

QWidget* Binder::Bind(Panel& panel) {
  auto* widget = new QWidget(&top_);
  BindState(panel, *widget);
  return widget;
}

void Binder::Bind(Timer& timer) {
  auto* clock = new QTimer(this);
  clock->setObjectName(QString::fromStdString(timer.name()));
  Follow(timer, [&timer, clock] {
    if (clock->interval() != timer.interval) clock->setInterval(timer.interval);
    if (clock->isActive() == timer.enabled) return;
    if (timer.enabled) {
      clock->start();
    } else {
      clock->stop();
    }
  });
  connect(clock, &QTimer::timeout, this, [this, &timer] { Run([&] { timer.tick(); }); });
}

}  // namespace tessarin
