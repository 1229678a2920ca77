// What the pages of files need of the widgets: what the user did to a list, drag and drop, pictures
// and long names.

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QDropEvent>
#include <QImage>
#include <QLabel>
#include <QMimeData>
#include <QTest>
#include <QUrl>

#include "phonesim/SampleMedia.h"
#include "ui/qt/Convert.h"
#include "ui/qt/Films.h"
#include "ui/qt/QtWindowHost.h"
#include "ui/qt/RowsWidget.h"

namespace tessarin {
namespace {

class Panes : public Window {
 public:
  explicit Panes(WindowHost& windowHost) : Window(windowHost, "Panes") {}

  ListView phone{*this, "phone"};
  ListView computer{*this, "computer"};
  Picture picture{*this, "picture"};
  Label name{*this, "name"};
};

class FilesWidgetsTest : public testing::Test {
 protected:
  FilesWidgetsTest() {
    for (ListView* list : {&panes_.phone, &panes_.computer}) {
      list->columns = {{u"Name", 100}};
      ListRow one, two;
      one.cells = {u"one"};
      two.cells = {u"two"};
      list->Fill({one, two});
      list->givesRows = true;
    }
    panes_.phone.takesRows = panes_.phone.takesFiles = true;
    panes_.phone.released.Always([this](ListAct act) { acts_.push_back(act); });
    panes_.phone.rowsDropped.Always([this](ListView& from) { from_ = &from; });
    panes_.phone.filesDropped.Always([this](const auto& files) { files_ = files; });
    panes_.Show(Modality::Modeless);
  }
  ~FilesWidgetsTest() override { panes_.Unload(); }

  RowsWidget& Rows(const char* name) {
    auto* widget = host_.WidgetOf(panes_)->findChild<QTreeView*>(QLatin1String(name));
    return dynamic_cast<RowsWidget&>(*widget);
  }
  std::vector<ListAct> Taken() { return std::exchange(acts_, {}); }
  // Whether the widget takes what is dropped.
  static bool Drop(QWidget& target, const QMimeData& data) {
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &drop);
    QApplication::processEvents();
    return drop.isAccepted();
  }

  static void LayOut(Window& window, QWidget& top, Binder& bind) {
    auto& panes = static_cast<Panes&>(window);
    top.resize(700, 400);
    bind.Bind(panes.phone)->setGeometry(0, 0, 200, 200);
    bind.Bind(panes.computer)->setGeometry(200, 0, 200, 200);
    bind.Bind(panes.picture, 10, 10)->setGeometry(400, 0, 250, 250);
    bind.BindElided(panes.name)->setGeometry(0, 250, 200, 30);
  }

  QtWindowHost host_{{{"Panes", Layout::Kind::Dialog, LayOut}}};
  Panes panes_{host_};
  std::vector<ListAct> acts_;
  ListView* from_ = nullptr;
  std::vector<std::filesystem::path> files_;
};

TEST_F(FilesWidgetsTest, AListTellsOfMouseAndKeys) {
  using Acts = std::vector<ListAct>;
  RowsWidget& rows = Rows("phone");
  const QPoint second = rows.visualRect(rows.model()->index(1, 0)).center();
  QTest::mouseClick(rows.viewport(), Qt::LeftButton, Qt::NoModifier, second);
  EXPECT_EQ(Taken(), Acts{ListAct::LeftButton}) << "once, when the button is let go";
  EXPECT_EQ(panes_.phone.Current(), 1);
  QTest::mouseClick(rows.viewport(), Qt::MiddleButton, Qt::NoModifier, second);
  EXPECT_EQ(Taken(), Acts{ListAct::OtherButton});
  Q_EMIT rows.customContextMenuRequested(second);
  EXPECT_EQ(Taken(), Acts{ListAct::RightButton});
  QTest::keyClick(&rows, Qt::Key_Up);
  QTest::keyClick(&rows, Qt::Key_Home);
  QTest::keyClick(&rows, Qt::Key_Shift);
  QTest::keyClick(&rows, Qt::Key_Tab);
  EXPECT_EQ(Taken(), (Acts{ListAct::ArrowKey, ListAct::OtherKey}));
  rows.selectionModel()->select(rows.model()->index(1, 0),
                                QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  EXPECT_EQ(Taken(), Acts{ListAct::LeftButton}) << "a screen reader's choice";
  panes_.phone.SetCurrent(0);
  EXPECT_EQ(Taken(), Acts()) << "not the program's own";
}

TEST_F(FilesWidgetsTest, FilesOfTheDesktopCanBeDroppedWhereTheyAreTaken) {
  QMimeData files, web, text;
  files.setUrls({QUrl::fromLocalFile(QStringLiteral("/a b/ü.mid")),
                 QUrl::fromLocalFile(QStringLiteral("/c"))});
  web.setUrls({QUrl(QStringLiteral("https://example.org/x.mid"))});
  text.setText(QStringLiteral("x"));
  EXPECT_TRUE(Drop(*Rows("phone").viewport(), files));
  EXPECT_EQ(files_, (std::vector<std::filesystem::path>{"/a b/ü.mid", "/c"}));
  EXPECT_FALSE(Drop(*Rows("phone").viewport(), web));
  EXPECT_FALSE(Drop(*Rows("phone").viewport(), text));
  EXPECT_FALSE(Drop(*Rows("computer").viewport(), files));
  panes_.phone.enabled = false;
  EXPECT_FALSE(Drop(*Rows("phone").viewport(), files));
  EXPECT_EQ(from_, nullptr);
}

// A picture of 64 by 64 dots in a place of 250 by 250 is three times as large, each dot a square.
TEST_F(FilesWidgetsTest, APictureKeepsItsProportionsAndItsEdges) {
  const auto chess = phonesim::MakeGif(64, 64, [](std::size_t x, std::size_t y) {
    return (x / 8 + y / 8) % 2 == 0 ? phonesim::Colour{255, 255, 255} : phonesim::Colour{85, 0, 0};
  });
  panes_.picture.content = Bytes(chess.begin(), chess.end());
  auto* widget = host_.WidgetOf(panes_)->findChild<QWidget*>(QStringLiteral("picture"));
  const QImage seen = widget->grab().toImage();
  const int left = (seen.width() - 192) / 2;
  const QColor behind = seen.pixelColor(2, 2);
  const QColor light(255, 252, 255);  // of the 128 colours that the picture has
  EXPECT_EQ(seen.pixelColor(left + 2, left + 2), light);
  EXPECT_EQ(seen.pixelColor(left + 24 + 2, left + 2), QColor(85, 0, 0));
  EXPECT_EQ(seen.pixelColor(left + 23, left + 2), light) << "a sharp edge";
  EXPECT_EQ(seen.pixelColor(left + 190, left + 190), light);
  EXPECT_EQ(seen.pixelColor(left + 194, left + 100), behind);
  panes_.picture.content = Bytes{'n', 'o', 'n', 'e'};
  EXPECT_EQ(widget->grab().toImage().pixelColor(left + 30, left + 2), behind);
}

TEST_F(FilesWidgetsTest, ALongNameLosesItsMiddle) {
  panes_.name.text = u"Receiving: " + Text(300, u'n') + u".mid";
  auto* label = host_.WidgetOf(panes_)->findChild<QLabel*>(QStringLiteral("name"));
  EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()), label->width());
  EXPECT_TRUE(label->text().startsWith(QStringLiteral("Receiving")));
  EXPECT_TRUE(label->text().endsWith(QStringLiteral(".mid")));
  EXPECT_EQ(label->toolTip(), ToQt(panes_.name.text));
  EXPECT_EQ(label->accessibleName(), ToQt(panes_.name.text));
  panes_.name.text = u"正在接收：ñgj.mid";
  EXPECT_GE(label->sizeHint().height(),
            label->fontMetrics().boundingRect(QRect(), 0, label->text()).height())
      << "another script's letters are higher";
  panes_.name.text = u"Receiving: <b>bold</b>.mid";
  EXPECT_TRUE(label->toolTip().contains(QStringLiteral("&lt;b&gt;"))) << "a name is no HTML";
}

}  // namespace
}  // namespace tessarin
