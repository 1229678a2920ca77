// The widgets of grids and of what steps through numbers, dates and times.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QDateTimeEdit>
#include <QHeaderView>
#include <QPalette>
#include <QTableView>
#include <QTest>

#include "ui/qt/Binder.h"
#include "ui/qt/QtWindowHost.h"

namespace tessarin {
namespace {

class Sample : public Window {
 public:
  explicit Sample(WindowHost& windowHost) : Window(windowHost, "Sample") {}

  Grid grid{*this, "grid"};
  ComboBox views{*this, "views"};
  UpDown arrows{*this, "arrows"};
  DateTimePicker date{*this, "date", DateTimePicker::Kind::Date};
  DateTimePicker time{*this, "time", DateTimePicker::Kind::Time};
};

class GridBindingTest : public testing::Test {
 protected:
  GridBindingTest() {
    sample.grid.SetSize(3, 3);
    sample.grid.SetText(0, 1, u"Head");
    sample.grid.SetText(1, 1, u"some words");
    for (const char16_t* view : {u"All", u"Month", u"Day"}) sample.views.Add(view);
    sample.views.Select(0);
    sample.date.value = sample.time.value = modDate::ReadSystemDate(u"29/02/2004 09:05");
    sample.Show(Modality::Modeless);
  }
  ~GridBindingTest() override { sample.Unload(); }

  static void LayOut(Window& window, QWidget&, Binder& bind) {
    auto& sample = static_cast<Sample&>(window);
    bind.Bind(sample.grid)->resize(500, 300);
    bind.BindAsButtons(sample.views)->move(0, 300);
    bind.Bind(sample.arrows)->move(0, 350);
    bind.Bind(sample.date)->move(0, 400);
    bind.Bind(sample.time)->move(200, 400);
  }
  template <class Widget>
  Widget& Get(const char* name) {
    return *host.WidgetOf(sample)->findChild<Widget*>(QLatin1String(name));
  }
  QVariant Data(int row, int column, int role) {
    auto& model = *Get<QTableView>("grid").model();
    return model.index(row - 1, column).data(role);
  }

  QtWindowHost host{{{"Sample", Layout::Kind::Dialog, LayOut}}};
  Sample sample{host};
};

TEST_F(GridBindingTest, KeysGoToTheLogicFirst) {
  std::vector<GridKey> asked;
  sample.grid.keyPressed = [&](GridKey key) {
    asked.push_back(key);
    return key != GridKey::Down;
  };
  auto& view = Get<QTableView>("grid");
  sample.grid.SetCurrent(1, 1);
  for (const auto key : {Qt::Key_Left, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_Space}) {
    QTest::keyClick(&view, key);
  }
  EXPECT_EQ(sample.grid.CurrentRow(), 1);
  EXPECT_EQ(sample.grid.CurrentColumn(), 1) << "the logic took them all";
  QTest::keyClick(&view, Qt::Key_Down);
  EXPECT_EQ(sample.grid.CurrentRow(), 2) << "left to the view";
  QTest::keyClick(&view, Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(asked, (std::vector<GridKey>{GridKey::Left, GridKey::PageUp, GridKey::Home,
                                         GridKey::Space, GridKey::Down}));
}

TEST_F(GridBindingTest, OnlyTheMouseClicks) {
  int clicks = 0;
  sample.grid.clicked.Always([&] { ++clicks; });
  auto& view = Get<QTableView>("grid");
  const QPoint place = view.visualRect(view.model()->index(1, 2)).center();
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
  EXPECT_EQ(sample.grid.CurrentRow(), 2);
  EXPECT_EQ(sample.grid.CurrentColumn(), 2);
  EXPECT_EQ(clicks, 1);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
  EXPECT_EQ(clicks, 2) << "on the current cell too";
  QTest::keyClick(&view, Qt::Key_Up);
  EXPECT_EQ(sample.grid.CurrentRow(), 1);
  EXPECT_EQ(clicks, 2);
}

TEST_F(GridBindingTest, CellsAreShownAndTold) {
  GridCell cell;
  cell.image = "check-on";
  cell.description = u"selected";
  cell.background = CellColour{0xFFCC99, 0x112233};
  sample.grid.SetCell(2, 0, cell);
  EXPECT_FALSE(Data(2, 0, Qt::DecorationRole).isNull());
  EXPECT_EQ(Data(2, 0, Qt::AccessibleTextRole).toString(), "selected");
  const QPalette before = QApplication::palette();
  for (const auto& [base, colour] : {std::pair(Qt::white, 0xFFCC99), {Qt::black, 0x112233}}) {
    QPalette palette = before;
    palette.setColor(QPalette::Base, base);
    QApplication::setPalette(palette);
    EXPECT_EQ(Data(2, 0, Qt::BackgroundRole).value<QColor>(), QColor(QRgb(colour)));
  }
  QApplication::setPalette(before);
}

TEST_F(GridBindingTest, ColumnsFitHideOrFillThePlace) {
  auto& view = Get<QTableView>("grid");
  sample.grid.SetColumnWidth(0, Grid::kHidden);
  sample.grid.SetColumnWidth(1, Grid::kFitToText);
  EXPECT_TRUE(view.isColumnHidden(0));
  EXPECT_GE(view.columnWidth(1), view.fontMetrics().horizontalAdvance("some words"));
  const int fitted = view.columnWidth(1);
  sample.grid.SetText(1, 2, u"other words");
  EXPECT_EQ(view.columnWidth(1), fitted) << "fitting again changes nothing";
  sample.grid.fillsPlace = true;
  EXPECT_EQ(view.horizontalHeader()->length(), view.viewport()->width());
  EXPECT_EQ(view.verticalHeader()->length(), view.viewport()->height());
}

TEST_F(GridBindingTest, OneOfTheButtonsIsPressed) {
  int clicks = 0;
  sample.views.clicked.Always([&] { ++clicks; });
  const auto buttons = Get<QWidget>("views").findChildren<QAbstractButton*>();
  ASSERT_EQ(buttons.size(), 3);
  QTest::mouseClick(buttons[1], Qt::LeftButton);
  EXPECT_EQ(sample.views.Selected(), 1);
  EXPECT_EQ(clicks, 1);
  sample.views.Select(2);
  EXPECT_TRUE(buttons[2]->isChecked());
  EXPECT_EQ(clicks, 1) << "the logic's own choice is no click";
  auto* told = QAccessible::queryAccessibleInterface(buttons[0]);
  told->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_EQ(sample.views.Selected(), 0) << "as a screen reader does";
  EXPECT_EQ(clicks, 2);
  const auto arrows = Get<QWidget>("arrows").findChildren<QAbstractButton*>();
  int stepped = 0;
  sample.arrows.stepped.Always([&](int step) { stepped = stepped * 10 + step; });
  QTest::mouseClick(arrows[0], Qt::LeftButton);
  QTest::mouseClick(arrows[1], Qt::LeftButton);
  EXPECT_EQ(stepped, 9) << "up, then down";
}

TEST_F(GridBindingTest, PickersShowAndGiveTheirPart) {
  auto& date = Get<QDateTimeEdit>("date");
  auto& time = Get<QDateTimeEdit>("time");
  EXPECT_EQ(date.text(), "29/02/2004");
  EXPECT_EQ(time.text(), "09:05");
  int edits = 0;
  sample.date.edited.Always([&] { ++edits; });
  sample.time.edited.Always([&] { ++edits; });
  sample.date.value =
      modDate::ReadSystemDate(u"31/03/2004 02:30");  // skipped by some zones' clocks
  sample.time.value = modDate::ReadSystemDate(u"31/03/2004 02:30");
  EXPECT_EQ(date.text(), "31/03/2004");
  EXPECT_EQ(time.text(), "02:30");
  EXPECT_EQ(edits, 0);
  date.setDate({2005, 1, 2});
  time.setTime({23, 59});
  EXPECT_EQ(edits, 2);
  EXPECT_EQ(sample.date.text(), u"02/01/2005");
  EXPECT_EQ(sample.time.text(), u"23:59");
}

}  // namespace
}  // namespace tessarin
