#pragma once

// Binds controls to widgets: once for each kind of control, whatever the window. A layout asks for
// the widget of each control and puts it in its place; from then on the widget follows the
// control's state and the user's acts come in as the control's signals.

#include <QObject>
#include <QPoint>
#include <functional>
#include <vector>

#include "controls/Basics.h"
#include "controls/Grid.h"
#include "controls/HtmlView.h"
#include "controls/ItemList.h"
#include "controls/ListView.h"
#include "controls/Menu.h"
#include "controls/OptionButton.h"
#include "controls/StatusBar.h"
#include "controls/Steppers.h"
#include "controls/TextEditor.h"
#include "controls/Toolbar.h"
#include "controls/TreeView.h"

class QAbstractButton;
class QAbstractItemView;
class QCheckBox;
class QComboBox;
class QDateTimeEdit;
class QLabel;
class QLineEdit;
class QListWidget;
class QMainWindow;
class QMenuBar;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QStatusBar;
class QTableView;
class QTextBrowser;
class QToolBar;
class QTreeView;
class QWidget;

namespace tessarin {

class WindowHost;

// Lives as long as the visible window. Every widget is made as a child of `top`, has the control's
// name as its object name, and its acts run through the host's RunEvent.
class Binder : public QObject {
 public:
  Binder(WindowHost& host, QWidget& top) : host_(host), top_(top) {}

  QLabel* Bind(Label& label);
  // On one line that leaves its middle out where there is no room; the tool tip has the whole.
  QLabel* BindElided(Label& label);
  QLineEdit* Bind(TextBox& box);
  QPlainTextEdit* BindMultiLine(TextBox& box);
  QPlainTextEdit* Bind(TextEditor& editor);
  QPushButton* Bind(Button& button);
  QCheckBox* Bind(CheckBox& box);
  QRadioButton* Bind(OptionButton& option);
  QComboBox* Bind(ComboBox& box);
  // The items beside each other as buttons, of which the selected one is pressed.
  QWidget* BindAsButtons(ComboBox& box);
  QListWidget* Bind(ListBox& box);
  QTreeView* Bind(ListView& list);
  QTreeView* Bind(TreeView& tree);
  QTableView* Bind(Grid& grid);
  QWidget* Bind(UpDown& arrows);
  QDateTimeEdit* Bind(DateTimePicker& picker);
  QProgressBar* Bind(ProgressBar& bar);
  QWidget* Bind(Picture& picture, int width, int height);
  QWidget* Bind(Animation& animation, int width, int height);
  QToolBar* Bind(Toolbar& bar, bool wordsBelow);
  QStatusBar* Bind(StatusBar& bar);
  QMenuBar* Bind(Menu& menu);
  QWidget* Bind(Panel& panel);
  QTextBrowser* Bind(HtmlView& view);
  void Bind(Timer& timer);

  // Parts the widgets from the controls for good: from here on neither hears of the other, and the
  // controls may be destroyed before the widgets are.
  void Release();

  // Runs now, and again at each change of the control, for as long as the window is seen.
  void Follow(Control& control, std::function<void()> update);
  // Runs what the user did to `control` as an event of the program. While something waits, or
  // another window stands modally before this one, no click comes this far, but what a screen
  // reader does comes: then nothing runs, and the widget goes back to what the control says.
  void Act(Control& control, const std::function<void()>& act);

 private:
  // Runs what happens by itself, such as a tick.
  void Run(const std::function<void()>& event);
  bool TakesActs() const;
  // The state that every control has. `update` brings the rest.
  void BindState(Control& control, QWidget& widget, std::function<void()> update = nullptr);
  void BindChecked(CheckBox& box, QAbstractButton& widget);

  WindowHost& host_;
  QWidget& top_;
  bool released_ = false;
  QPoint menuPlace_;                       // where a context menu was asked for last
  std::vector<QAbstractItemView*> views_;  // whose models read a control
  std::vector<Connection> connections_;
};

}  // namespace tessarin
