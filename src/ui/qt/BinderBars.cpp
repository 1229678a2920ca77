// The bindings of menus, toolbars and status bars.

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include "controls/WindowHost.h"
#include "ui/qt/Binder.h"
#include "ui/qt/Convert.h"
#include "ui/qt/Films.h"
#include "ui/qt/Icons.h"
#include "ui/qt/PageTabs.h"

namespace tessarin {

namespace {

constexpr QSize kBatterySize(32, 20);

void ShowEntry(const MenuEntry& entry, QAction& action) {
  action.setText(ToQt(entry.caption));
  action.setIcon(Icon(entry.image));
  action.setEnabled(entry.enabled);
  action.setVisible(entry.visible);
  action.setCheckable(entry.checkable);
  action.setChecked(entry.checked);
  action.setShortcut(QKeySequence::fromString(QString::fromStdString(entry.shortcut)));
}

// The actions of a menu bar by their entries' keys; built anew when the menu was defined anew.
class MenuActions {
 public:
  using Tell = std::function<void(const std::string&)>;
  MenuActions(QMenuBar& bar, Tell clicked, Tell opening, Tell closed)
      : bar_(bar),
        clicked_(std::move(clicked)),
        opening_(std::move(opening)),
        closed_(std::move(closed)) {}

  void Show(const std::vector<MenuEntry>& entries) {
    if (Keys(entries) != keys_) {
      bar_.clear();
      actions_.clear();
      keys_ = Keys(entries);
      for (const auto& entry : entries) Build(entry, bar_);
    }
    for (const auto& entry : entries) Update(entry);
  }

  void Update(const MenuEntry& entry) {
    ShowEntry(entry, *actions_.at(entry.key));
    for (const auto& below : entry.entries) Update(below);
  }

  QMenu* MenuOf(const std::string& key) const {
    const auto found = actions_.find(key);
    return found == actions_.end() ? nullptr : found->second->menu();
  }

 private:
  static std::string Keys(const std::vector<MenuEntry>& entries) {
    std::string keys;
    for (const auto& entry : entries) keys += entry.key + "(" + Keys(entry.entries) + ")";
    return keys;
  }

  template <class Parent>
  void Build(const MenuEntry& entry, Parent& parent) {
    if (entry.separatorBefore) parent.addSeparator();
    if (entry.entries.empty()) {
      actions_[entry.key] = parent.addAction(QString());
      QObject::connect(actions_[entry.key], &QAction::triggered, &bar_, [this, key = entry.key] {
        // The click toggled the tick; only the logic decides where it stands.
        QAction& action = *actions_[key];
        if (action.isCheckable()) action.setChecked(!action.isChecked());
        clicked_(key);
      });
    } else {
      QMenu* menu = parent.addMenu(QString());
      QObject::connect(menu, &QMenu::aboutToShow, &bar_,
                       [this, key = entry.key] { opening_(key); });
      QObject::connect(menu, &QMenu::aboutToHide, &bar_, [this, key = entry.key] { closed_(key); });
      actions_[entry.key] = menu->menuAction();
      for (const auto& below : entry.entries) Build(below, *menu);
    }
    actions_[entry.key]->setObjectName(QString::fromStdString(entry.key));
  }

  QMenuBar& bar_;
  Tell clicked_;
  Tell opening_;
  Tell closed_;
  std::string keys_;
  std::map<std::string, QAction*> actions_;
};

void ShowButton(const ToolbarButton& button, QAction& action) {
  action.setText(ToQt(button.caption));
  action.setToolTip(ToQt(button.toolTip.empty() ? button.caption : button.toolTip));
  action.setIcon(Icon(button.image));
  action.setShortcut(QKeySequence::fromString(QString::fromStdString(button.shortcut)));
  action.setEnabled(button.enabled);
  action.setChecked(button.pressed);
}

// One status panel: a picture and a text, either of which may be empty.
struct PanelWidget {
  QWidget* frame;
  PictureWidget* picture;
  QLabel* words;

  explicit PanelWidget(QWidget* parent)
      : frame(new QWidget(parent)), picture(new PictureWidget(frame)), words(new QLabel(frame)) {
    auto* row = new QHBoxLayout(frame);
    row->setContentsMargins(6, 0, 6, 0);
    row->addWidget(picture);
    row->addWidget(words);
    picture->setFixedSize(kBatterySize);
    words->setTextFormat(Qt::PlainText);
  }

  void Show(const StatusPanel& panel) const {
    words->setText(ToQt(panel.text));
    words->setAccessibleName(ToQt(
        panel.accessibleName.empty() ? panel.text : panel.accessibleName + u": " + panel.text));
    picture->SetImage(panel.image);
    picture->setVisible(!panel.image.empty());
    frame->setVisible(panel.visible && !(panel.text.empty() && panel.image.empty()));
  }
};

}  // namespace

QMenuBar* Binder::Bind(Menu& menu) {
  auto* widget = new QMenuBar(&top_);
  const auto tell = [this](Signal<const std::string&>& signal) {
    return [this, &signal](const std::string& key) { Run([&] { signal(key); }); };
  };
  const auto clicked = [this, &menu](const std::string& key) {
    Act(menu, [&] { menu.clicked(key); });
  };
  auto actions =
      std::make_shared<MenuActions>(*widget, clicked, tell(menu.opening), tell(menu.closed));
  // A menu that is open when its window goes hides later than this binder lets go of everything.
  connect(widget, &QObject::destroyed, widget, [actions] {});
  BindState(menu, *widget, [&menu, actions] { actions->Show(menu.entries()); });
  connections_.push_back(
      menu.entryChanged.Connect([actions](const MenuEntry& entry) { actions->Update(entry); }));
  connections_.push_back(menu.popUpRequested.Connect([this, actions](const std::string& key) {
    if (QMenu* context = actions->MenuOf(key)) context->popup(menuPlace_);
  }));
  return widget;
}

QToolBar* Binder::Bind(Toolbar& bar, bool wordsBelow) {
  auto* widget = new QToolBar(&top_);
  if (wordsBelow) TellOfPageTabs();
  widget->setMovable(false);
  widget->setIconSize(wordsBelow ? QSize(36, 36) : QSize(20, 20));
  widget->setToolButtonStyle(wordsBelow ? Qt::ToolButtonTextUnderIcon
                                        : Qt::ToolButtonTextBesideIcon);
  auto keys = std::make_shared<std::vector<std::string>>();
  BindState(bar, *widget, [this, &bar, widget, keys, wordsBelow] {
    std::vector<std::string> now;
    for (const auto& button : bar.buttons()) now.push_back(button.key);
    if (now != *keys) {
      for (QAction* old : widget->actions()) {
        widget->removeAction(old);
        old->deleteLater();  // it may be the one that was just clicked
      }
      for (const auto& key : now) {
        auto* action = widget->addAction(QString());
        action->setObjectName(QString::fromStdString(key));
        action->setCheckable(wordsBelow);
        connect(action, &QAction::triggered, this, [this, &bar, action, key] {
          // Which page's button stands pressed is the logic's decision, not the click's.
          if (const auto* button = bar.Find(key)) action->setChecked(button->pressed);
          Act(bar, [&] { bar.clicked(key); });
        });
      }
      *keys = now;
    }
    const auto actions = widget->actions();
    for (std::size_t i = 0; i < now.size(); ++i) {
      ShowButton(bar.buttons()[i], *actions[static_cast<qsizetype>(i)]);
    }
  });
  return widget;
}

QStatusBar* Binder::Bind(StatusBar& bar) {
  auto* widget = new QStatusBar(&top_);
  widget->setSizeGripEnabled(true);
  std::vector<PanelWidget> panels;
  for (std::size_t i = 0; i < bar.panels().size(); ++i) {
    panels.emplace_back(widget);
    panels.back().words->setObjectName(QStringLiteral("panel%1").arg(i + 1));
    widget->addWidget(panels.back().frame);
  }
  BindState(bar, *widget, [&bar, panels] {
    for (std::size_t i = 0; i < panels.size(); ++i) panels[i].Show(bar.panels()[i]);
  });
  return widget;
}

}  // namespace tessarin
