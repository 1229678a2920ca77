#include "ui/qt/PageTabs.h"

#include <QAccessibleWidget>
#include <QToolButton>

namespace tessarin {

namespace {

class PageTab : public QAccessibleWidget {
 public:
  explicit PageTab(QToolButton& button)
      : QAccessibleWidget(&button, QAccessible::PageTab), button_(button) {}

  QString text(QAccessible::Text kind) const override {
    const QString words = QAccessibleWidget::text(kind);
    return kind == QAccessible::Name && words.isEmpty() ? button_.text() : words;
  }

  QAccessible::State state() const override {
    auto state = QAccessibleWidget::state();
    state.selectable = true;
    state.selected = button_.isChecked();
    return state;
  }

  QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (button_.isEnabled()) names.prepend(pressAction());
    return names;
  }

  void doAction(const QString& name) override {
    if (name != pressAction()) return QAccessibleWidget::doAction(name);
    if (button_.isEnabled()) button_.click();
  }

 private:
  QToolButton& button_;
};

QAccessibleInterface* Make(const QString&, QObject* object) {
  auto* button = qobject_cast<QToolButton*>(object);
  if (button == nullptr || !button->isCheckable() || button->defaultAction() == nullptr)
    return nullptr;
  return new PageTab(*button);
}

}  // namespace

void TellOfPageTabs() { QAccessible::installFactory(Make); }

}  // namespace tessarin
