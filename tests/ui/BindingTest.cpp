// The bindings both ways: state reaches the widget, the user's acts reach the control, and neither
// comes back as an echo.

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QToolBar>
#include <QTreeView>
#include <utility>

#include "ui/qt/Convert.h"
#include "ui/qt/QtWindowHost.h"

namespace tessarin {
namespace {

class Sample : public Window {
 public:
  explicit Sample(WindowHost& windowHost) : Window(windowHost, "Sample") {}

  TextBox box{*this, "box"};
  Button button{*this, "button"};
  CheckBox check{*this, "check"};
  ComboBox combo{*this, "combo"};
  ListView list{*this, "list"};
  TreeView tree{*this, "tree"};
  Grid grid{*this, "grid"};
  Toolbar bar{*this, "bar"};
  Menu menu{*this, "menu"};
  Timer timer{*this, "timer", 1};
};

class BindingTest : public testing::Test {
 protected:
  BindingTest() {
    sample.list.columns = {{u"Name", 100}, {u"Size", 60, true}};
    sample.list.Fill({Row(u"one", u"1"), Row(u"two", u"2"), Row(u"three", u"3")});
    sample.tree.Add(u"", u"root", u"Root", "", "");
    sample.tree.Add(u"root", u"root\\child", u"Child", "", "");
    sample.tree.Expand(u"root");
    sample.combo.Add(u"first");
    sample.combo.Add(u"second");
    sample.grid.SetSize(3, 2);
    sample.Show(Modality::Modeless);
  }

  ~BindingTest() override { sample.Unload(); }

  template <class Widget>
  Widget& Get(const char* name) {
    return *host.WidgetOf(sample)->findChild<Widget*>(QLatin1String(name));
  }

  static ListRow Row(Text name, Text size) {
    ListRow row;
    row.cells = {std::move(name), std::move(size)};
    return row;
  }

  static void LayOut(Window& window, QWidget&, Binder& bind) {
    auto& sample = static_cast<Sample&>(window);
    bind.Bind(sample.box);
    bind.Bind(sample.button);
    bind.Bind(sample.check);
    bind.Bind(sample.combo);
    bind.Bind(sample.list)->resize(300, 200);
    bind.Bind(sample.tree)->resize(300, 200);
    bind.Bind(sample.grid)->resize(300, 200);
    bind.Bind(sample.bar, false);
    bind.Bind(sample.menu);
  }

  static void ClickItem(QAbstractItemView& view, const QModelIndex& index) {
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
  }

  QtWindowHost host{{{"Sample", Layout::Kind::Dialog, LayOut}}};
  Sample sample{host};
};

TEST_F(BindingTest, TextBoxButtonAndCheckBox) {
  int edits = 0, clicks = 0;
  sample.box.edited.Always([&] { ++edits; });
  sample.button.clicked.Always([&] { ++clicks; });
  sample.box.maximumLength = 5;
  sample.box.text = u"ab";
  EXPECT_EQ(Get<QLineEdit>("box").text(), "ab");
  EXPECT_EQ(edits, 0) << "setting a text is no edit of the user's";
  QTest::keyClicks(&Get<QLineEdit>("box"), "cdefg");
  EXPECT_EQ(sample.box.text(), u"abcde");
  EXPECT_EQ(edits, 3);

  QTest::mouseClick(&Get<QPushButton>("button"), Qt::LeftButton);
  sample.button.enabled = false;
  QTest::mouseClick(&Get<QPushButton>("button"), Qt::LeftButton);
  EXPECT_EQ(clicks, 1);

  Get<QCheckBox>("check").click();
  EXPECT_TRUE(sample.check.checked);
  sample.check.checked = false;
  EXPECT_FALSE(Get<QCheckBox>("check").isChecked());
}

TEST_F(BindingTest, NamesForAScreenReader) {
  sample.tree.accessibleName = u"Folders";
  sample.list.toolTip = u"Files";
  EXPECT_EQ(Get<QTreeView>("tree").accessibleName(), "Folders");
  EXPECT_EQ(Get<QTreeView>("list").toolTip(), "Files");
}

TEST_F(BindingTest, ComboBoxTellsOnlyOfTheUsersChoice) {
  int chosen = 0;
  sample.combo.clicked.Always([&] { ++chosen; });
  sample.combo.Select(1);
  auto& widget = Get<QComboBox>("combo");
  EXPECT_EQ(widget.currentText(), "second");
  EXPECT_EQ(chosen, 0);
  QTest::keyClick(&widget, Qt::Key_Up);
  EXPECT_EQ(sample.combo.SelectedText(), u"first");
  EXPECT_EQ(chosen, 1);
}

TEST_F(BindingTest, ListKeepsItsSelectionWhenItChanges) {
  auto& view = Get<QTreeView>("list");
  int selections = 0;
  sample.list.selectionChanged.Always([&] { ++selections; });
  ClickItem(view, view.model()->index(1, 0));
  EXPECT_EQ(sample.list.Current(), 1);
  EXPECT_EQ(selections, 1);

  sample.list.SetCell(1, 1, u"22");
  EXPECT_EQ(view.model()->index(1, 1).data().toString(), "22");
  EXPECT_EQ(view.currentIndex().row(), 1) << "a changed cell must not lose the user's place";
  EXPECT_EQ(selections, 1);

  sample.list.multipleSelection = true;
  QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
  EXPECT_TRUE(sample.list.Row(0).selected && sample.list.Row(2).selected);

  sample.list.Clear();
  EXPECT_EQ(view.model()->rowCount(), 0);
  EXPECT_EQ(sample.list.Current(), -1);
}

TEST_F(BindingTest, ColumnHeadsAreClickable) {
  int column = -1;
  sample.list.columnClicked.Always([&](int clicked) { column = clicked; });
  auto* header = Get<QTreeView>("list").header();
  const QPoint second(header->sectionViewportPosition(1) + 5, header->height() / 2);
  QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, second);
  EXPECT_EQ(column, 1);
}

TEST_F(BindingTest, TreeFollowsTheKeysOfItsNodes) {
  auto& view = Get<QTreeView>("tree");
  const auto root = view.model()->index(0, 0);
  ASSERT_TRUE(view.isExpanded(root));
  int clicks = 0;
  sample.tree.nodeClicked.Always([&] { ++clicks; });
  ClickItem(view, view.model()->index(0, 0, root));
  EXPECT_EQ(sample.tree.SelectedKey(), u"root\\child");
  EXPECT_EQ(clicks, 1);
  ClickItem(view, view.currentIndex());
  EXPECT_EQ(clicks, 2) << "a click on the selected node loads it again";
  QTest::keyClick(&view, Qt::Key_Up);
  EXPECT_EQ(sample.tree.SelectedKey(), u"root");

  sample.tree.Select(u"root\\child");
  EXPECT_EQ(view.currentIndex().data().toString(), "Child");
  EXPECT_EQ(clicks, 3) << "the logic's own choice is no click";
  sample.tree.Clear();
  EXPECT_EQ(view.model()->rowCount(), 0);
  EXPECT_EQ(clicks, 3);
}

TEST_F(BindingTest, GridCellsBehindTheHeader) {
  sample.grid.SetText(0, 1, u"Subject");
  sample.grid.SetText(2, 1, u"Lunch");
  sample.grid.SetBackground(2, 1, CellColour{0xFFFF00, 0x404000});
  auto& view = Get<QAbstractItemView>("grid");
  EXPECT_EQ(view.model()->headerData(1, Qt::Horizontal).toString(), "Subject");
  EXPECT_EQ(view.model()->index(1, 1).data().toString(), "Lunch");
  ClickItem(view, view.model()->index(1, 1));
  EXPECT_EQ(sample.grid.CurrentRow(), 2);
  EXPECT_EQ(sample.grid.CurrentColumn(), 1);
}

TEST_F(BindingTest, ToolbarIsBuiltOnceAndUpdated) {
  std::string pressed;
  sample.bar.clicked.Always([&](const std::string& key) { pressed = key; });
  ToolbarButton refresh;
  refresh.key = "Refresh";
  refresh.caption = u"Refresh";
  sample.bar.Add(refresh);
  auto& widget = Get<QToolBar>("bar");
  const auto* action = widget.actions().constFirst();
  refresh.caption = u"Neu laden";
  sample.bar.Add(refresh);
  ASSERT_EQ(widget.actions().size(), 1);
  EXPECT_EQ(widget.actions().constFirst(), action) << "new words are no new button";
  EXPECT_EQ(action->text(), "Neu laden");
  widget.actions().constFirst()->trigger();
  EXPECT_EQ(pressed, "Refresh");
  sample.bar.Enable("Refresh", false);
  EXPECT_FALSE(action->isEnabled());
}

TEST_F(BindingTest, AMenusEntryChangesAlone) {
  std::vector<MenuEntry> entries(1);
  entries[0].key = "File";
  entries[0].entries.resize(2);
  entries[0].entries[0].key = "Open";
  entries[0].entries[1].key = "Exit";
  sample.menu.Define(entries);
  auto& open = Get<QAction>("Open");
  int changes = 0;
  QObject::connect(&Get<QAction>("Exit"), &QAction::changed, [&] { ++changes; });
  sample.menu.SetCaption("Open", u"Open it");
  sample.menu.Enable("Open", false);
  EXPECT_EQ(open.text(), "Open it");
  EXPECT_FALSE(open.isEnabled());
  EXPECT_EQ(changes, 0) << "each change of an entry would touch all of them";
  sample.menu.SetCaption("File", u"Document");
  EXPECT_EQ(Get<QAction>("File").text(), "Document");
}

// A screen reader's acts come past the queue that holds clicks back.
TEST_F(BindingTest, AScreenReadersActsWaitLikeClicks) {
  int acts = 0;
  const auto count = [&] { ++acts; };
  sample.button.clicked.Always(count);
  sample.check.clicked.Always(count);
  sample.tree.nodeClicked.Always(count);
  const auto act = [this] {
    for (const char* name : {"button", "check"}) {
      auto* told = QAccessible::queryAccessibleInterface(&Get<QWidget>(name));
      told->actionInterface()->doAction(told->actionInterface()->actionNames().constFirst());
    }
    auto& tree = Get<QTreeView>("tree");
    tree.setCurrentIndex(tree.model()->index(0, 0));
  };
  // A press shows for a tenth of a second before it counts.
  const auto isPressed = [this] { return Get<QPushButton>("button").isDown(); };
  const auto expectNothing = [&](const char* when) {
    QApplication::processEvents();
    EXPECT_EQ(acts, 0) << when;
    EXPECT_FALSE(sample.check.checked || Get<QCheckBox>("check").isChecked()) << when;
    EXPECT_FALSE(Get<QTreeView>("tree").currentIndex().isValid()) << when;
  };
  QMetaObject::invokeMethod(&host, act, Qt::QueuedConnection);
  do {
    host.YieldToScreen();
  } while (isPressed());
  expectNothing("while something waits");

  Sample front{host};
  int ticks = 0;
  sample.timer.tick.Always([&] { ++ticks; });
  front.timer.tick.Always([&, isDone = false]() mutable {
    if (!std::exchange(isDone, true)) act();
    if (ticks > 0 && !isPressed()) front.Unload();
  });
  sample.timer.enabled = front.timer.enabled = true;
  front.Show(Modality::Modal);
  expectNothing("behind a modal window");
  EXPECT_GT(ticks, 0) << "ticks go on there";

  act();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !isPressed(); }));
  EXPECT_EQ(acts, 3);
  EXPECT_TRUE(sample.check.checked);
}

TEST_F(BindingTest, TimersTickOnlyWhileEnabledAndShown) {
  int ticks = 0;
  sample.timer.tick.Always([&] {
    if (++ticks == 3) sample.timer.enabled = false;
  });
  sample.timer.enabled = true;
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks == 3; }, 2000));
  QTest::qWait(20);
  EXPECT_EQ(ticks, 3);
  sample.timer.enabled = true;
  sample.Unload();
  QTest::qWait(20);
  EXPECT_EQ(ticks, 3) << "an unloaded window's timers stand still";
}

TEST_F(BindingTest, EscapeClosesADialogThatAllowsIt) {
  sample.escapeCloses = false;
  QTest::keyClick(host.WidgetOf(sample), Qt::Key_Escape);
  EXPECT_TRUE(sample.IsLoaded());
  sample.escapeCloses = true;
  QTest::keyClick(host.WidgetOf(sample), Qt::Key_Escape);
  EXPECT_FALSE(sample.IsLoaded());
  EXPECT_EQ(host.WidgetOf(sample), nullptr);
}

}  // namespace
}  // namespace tessarin
