#include <gtest/gtest.h>

#include "codecs/Faults.h"
#include "controls/Grid.h"
#include "controls/ItemList.h"
#include "controls/ListView.h"
#include "controls/Menu.h"
#include "controls/StatusBar.h"
#include "controls/Toolbar.h"
#include "controls/TreeView.h"
#include "tests/support/ScriptedHost.h"

namespace tessarin {
namespace {

ListRow Row(std::vector<Text> cells) {
  ListRow row;
  row.cells = std::move(cells);
  return row;
}

ToolbarButton ButtonOf(const char* key, const char16_t* caption) {
  ToolbarButton button;
  button.key = key;
  button.caption = caption;
  return button;
}

class ControlsTest : public testing::Test {
 protected:
  // How often the control told of a change since the last call.
  int Changes(Control& control) {
    if (counted_ != &control) {
      counted_ = &control;
      count_ = 0;
      counting_ = control.changed.Connect([this] { ++count_; });
    }
    return std::exchange(count_, 0);
  }

  ScriptedHost host_;
  Window window_{host_, "window"};

 private:
  const Control* counted_ = nullptr;
  Connection counting_;
  int count_ = 0;
};

TEST_F(ControlsTest, AWindowFindsItsControlsByName) {
  Label label(window_, "Label1");
  Timer timer(window_, "Timer1", 10);
  EXPECT_EQ(window_.Find("Timer1"), &timer);
  EXPECT_EQ(window_.Find("label1"), nullptr);
  EXPECT_TRUE(label.enabled);
  EXPECT_FALSE(timer.enabled) << "a timer has to be started";
}

TEST_F(ControlsTest, AnItemListHoldsAtMostOneSelection) {
  ComboBox list(window_, "list");
  EXPECT_EQ(list.SelectedText(), u"");
  list.Add(u"a");
  list.Add(u"b");
  list.Select(1);
  EXPECT_EQ(list.SelectedText(), u"b");
  for (const int index : {-1, 2}) EXPECT_THROW(list.Item(index), BoundsError) << index;
  for (const int index : {-2, 2}) EXPECT_THROW(list.Select(index), BoundsError) << index;
  EXPECT_EQ(list.Selected(), 1);
  Changes(list);
  list.Select(1);
  EXPECT_EQ(Changes(list), 0);
  list.Clear();
  EXPECT_EQ(list.Selected(), -1);
}

TEST_F(ControlsTest, AListViewKeepsRowsCellsAndTheSelection) {
  ListView list(window_, "list");
  list.Fill({Row({u"a"}), Row({u"b", u"1"}), Row({})});
  EXPECT_EQ(list.Cell(0, 1), u"") << "a row may have fewer cells than the list has columns";
  list.SetCell(2, 2, u"z");
  EXPECT_EQ(list.Row(2).cells, (std::vector<Text>{u"", u"", u"z"}));
  list.SetSelected(0, true);
  list.SetCurrent(1);
  EXPECT_FALSE(list.Row(0).selected);
  EXPECT_TRUE(list.Row(1).selected);

  int told = 0;
  list.selectionChanged.Always([&] { ++told; });
  Changes(list);
  list.SelectByUser({0, 2}, 2);
  EXPECT_EQ(told, 1);
  EXPECT_EQ(Changes(list), 0) << "the screen shows the user's selection already";
  EXPECT_EQ(list.Current(), 2);
  EXPECT_FALSE(list.Row(1).selected);

  for (const int row : {-1, 3}) EXPECT_THROW(list.Row(row), BoundsError) << row;
  EXPECT_THROW(list.SetCurrent(3), BoundsError);
  EXPECT_EQ(list.Current(), 2);
  list.Fill({Row({u"c"})});
  EXPECT_EQ(Changes(list), 1) << "many rows are one change";
  EXPECT_EQ(list.Current(), -1);
}

TEST_F(ControlsTest, ATreeKnowsItsNodesByKey) {
  TreeView tree(window_, "tree");
  EXPECT_TRUE(tree.Add(u"", u"root", u"Root", "", ""));
  EXPECT_TRUE(tree.Add(u"root", u"root\\a", u"a", "", ""));
  EXPECT_TRUE(tree.Add(u"root\\a", u"root\\a\\b", u"b", "", ""));
  EXPECT_FALSE(tree.Add(u"root", u"root\\a", u"again", "", "")) << "keys are unique";
  EXPECT_FALSE(tree.Add(u"unknown", u"x", u"x", "", ""));
  EXPECT_EQ(tree.Find(u"root\\a")->text, u"a");
  EXPECT_EQ(tree.Find(u"root\\a\\b")->parent, tree.Find(u"root\\a"));
  EXPECT_EQ(tree.Count(), 3);

  std::string acts;
  tree.nodeClicked.Always([&] { acts += "click " + ToUtf8(tree.SelectedKey()) + ";"; });
  tree.nodeExpanded.Always([&](const Text& key) { acts += "open " + ToUtf8(key) + ";"; });
  tree.SelectByUser(u"root\\a\\b");
  tree.SelectByUser(u"unknown");
  tree.ExpandByUser(u"root", true);
  tree.ExpandByUser(u"root", true);
  tree.ExpandByUser(u"root", false);
  EXPECT_EQ(acts, "click root\\a\\b;open root;");

  tree.FillChildren(u"root", {});
  EXPECT_EQ(tree.Count(), 1) << "whole branches are forgotten";
  EXPECT_EQ(tree.SelectedKey(), u"") << "and the selection with them";
  EXPECT_TRUE(tree.Add(u"root", u"root\\a", u"a", "", ""));
  tree.Select(u"root\\a");
  tree.Select(u"root\\a\\b");
  EXPECT_EQ(tree.SelectedKey(), u"");
  tree.Clear();
  EXPECT_TRUE(tree.roots().empty());
  EXPECT_EQ(tree.Find(u"root"), nullptr);
}

// The page that shows the phone from its root has a root node whose key is empty.
TEST_F(ControlsTest, ATreeMayHaveARootWithoutAKey) {
  TreeView tree(window_, "tree");
  EXPECT_TRUE(tree.Add(u"", u"", u"T610", "", ""));
  EXPECT_TRUE(tree.Add(u"", u"Phone", u"Phone", "", ""));
  ASSERT_EQ(tree.roots().size(), 1u);
  EXPECT_EQ(tree.Find(u"Phone")->parent, tree.roots()[0].get());
}

TEST_F(ControlsTest, AToolbarKeepsTheOrderOfItsKeys) {
  Toolbar bar(window_, "bar");
  bar.Add(ButtonOf("New", u"New"));
  bar.Add(ButtonOf("Save", u"Save"));
  bar.Add(ButtonOf("New", u"Neu"));
  ASSERT_EQ(bar.buttons().size(), 2u);
  EXPECT_EQ(bar.buttons()[0].caption, u"Neu");
  EXPECT_EQ(bar.Find("Delete"), nullptr);
  Changes(bar);
  bar.Enable("New", false);
  bar.Enable("New", false);
  bar.Enable("Delete", false);
  EXPECT_EQ(Changes(bar), 1);
  bar.EnableAll();
  bar.EnableAll();
  EXPECT_EQ(Changes(bar), 1);
  EXPECT_TRUE(bar.Find("New")->enabled);
  bar.Press("Save");
  bar.Press("New");
  EXPECT_TRUE(bar.Find("New")->pressed);
  EXPECT_FALSE(bar.Find("Save")->pressed);
}

TEST_F(ControlsTest, PanelsCellsAndEntriesThatAreNotThereRaise) {
  StatusBar status(window_, "status", 6);
  status.SetText(6, u"85%");
  EXPECT_EQ(status.panels().back().text, u"85%");
  for (const int panel : {0, 7, -1}) {
    EXPECT_THROW(status.SetText(panel, u"x"), BoundsError) << panel;
    EXPECT_THROW(status.Panel(panel), BoundsError) << panel;
  }

  Grid grid(window_, "grid");
  EXPECT_THROW(grid.Cell(0, 0), BoundsError);
  grid.SetSize(2, 3);
  grid.SetText(1, 2, u"x");
  EXPECT_EQ(grid.Cell(1, 2).text, u"x");
  EXPECT_THROW(grid.SetText(2, 0, u"x"), BoundsError);
  EXPECT_THROW(grid.SetText(0, 3, u"x"), BoundsError);
  EXPECT_THROW(grid.SelectByUser(0, -1), BoundsError);
  const int version = grid.version();
  Changes(grid);
  grid.SetText(1, 2, u"x");
  grid.SelectByUser(1, 2);
  EXPECT_EQ(grid.version(), version) << "neither changes a cell";
  {
    const Grid::Update outer(grid), inner(grid);
    grid.SetBackground(1, 2, CellColour{0xFFCC99, 0x6B4A2B});
    grid.SetColumnWidth(2, Grid::kFitToText);
    EXPECT_EQ(Changes(grid), 1) << "the current cell alone";
  }
  EXPECT_EQ(Changes(grid), 1);
  EXPECT_NE(grid.version(), version);
  grid.SetSize(2, 3);
  EXPECT_EQ(grid.Cell(1, 2), GridCell());

  Menu menu(window_, "menu");
  MenuEntry file, language;
  file.key = "File";
  language.key = "Language";
  language.entries = {MenuEntry{}};
  language.entries[0].key = "German";
  file.entries = {language};
  menu.Define({file});
  Changes(menu);
  std::vector<std::string> changed;
  menu.entryChanged.Always([&](const MenuEntry& entry) { changed.push_back(entry.key); });
  menu.SetCaption("German", u"Deutsch");
  menu.Check("German", true);
  menu.Check("German", true);
  EXPECT_EQ(changed, (std::vector<std::string>{"German", "German"}));
  EXPECT_EQ(Changes(menu), 0) << "the menu as a whole is as it was";
  EXPECT_EQ(menu.entries()[0].entries[0].entries[0].caption, u"Deutsch");
  EXPECT_THROW(menu.Enable("Klingon", true), BoundsError);
}

}  // namespace
}  // namespace tessarin
