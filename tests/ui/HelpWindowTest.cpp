// The help window on its real widgets: keys, links, pictures, and the change of the theme.

#include <gtest/gtest.h>

#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

#include "core/frmHelp.h"
#include "ui/qt/QtWindowHost.h"
#include "ui/windows/Layouts.h"

namespace tessarin {
namespace {

class HelpWindowTest : public testing::Test {
 protected:
  HelpWindowTest() {
    language.readLangFile(0);
    help.OpenPage("index.html");
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Top()));
  }
  void TearDown() override { help.Unload(); }

  QWidget& Top() { return *host.WidgetOf(help); }
  QTextBrowser& Page() { return *Top().findChild<QTextBrowser*>(QStringLiteral("htmPage")); }

  // The pictures of the page as they were loaded.
  QList<QImage> Pictures() {
    QList<QImage> pictures;
    for (auto block = Page().document()->begin(); block.isValid(); block = block.next()) {
      for (auto part = block.begin(); !part.atEnd(); ++part) {
        const auto format = part.fragment().charFormat();
        if (!format.isImageFormat()) continue;
        const QUrl name(format.toImageFormat().name());
        pictures << Page().document()->resource(QTextDocument::ImageResource, name).value<QImage>();
      }
    }
    return pictures;
  }

  QtWindowHost host{AllLayouts()};
  modFile files{{}, TESSARIN_SHARE};
  Language language{files};
  frmHelp help{host, language};
};

TEST_F(HelpWindowTest, WorksByKeys) {
  QTest::keyClick(&Top(), Qt::Key_F, Qt::ControlModifier);
  auto* focus = QApplication::focusWidget();
  ASSERT_NE(focus, nullptr);
  EXPECT_EQ(focus->objectName(), QStringLiteral("txtSearch"));
  QTest::keyClicks(focus, QStringLiteral("dialout"));
  QTest::keyClick(focus, Qt::Key_Return);
  EXPECT_EQ(help.htmPage.path(), "/connect.html");
  EXPECT_GT(Page().extraSelections().size(), 0);
  QTest::keyClick(&Page(), Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(help.htmPage.path(), "/index.html");
  EXPECT_EQ(Page().extraSelections().size(), 0);
  QTest::keyClick(&Page(), Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(help.htmPage.path(), "/connect.html");
  QTest::keyClick(&Page(), Qt::Key_Home, Qt::AltModifier);
  EXPECT_EQ(help.htmPage.path(), "/index.html");
  QTest::keyClick(&Page(), Qt::Key_Escape);
  EXPECT_FALSE(help.IsLoaded());
}

TEST_F(HelpWindowTest, ShowsPicturesAndGoesToAnchors) {
  const auto pictures = Pictures();
  ASSERT_EQ(pictures.size(), 1);
  EXPECT_EQ(pictures[0].deviceIndependentSize(), QSizeF(420, 180));
  Q_EMIT Page().anchorClicked(QUrl(QStringLiteral("connect.html#section2")));
  EXPECT_EQ(help.htmPage.path(), "/connect.html");
  EXPECT_GT(Page().verticalScrollBar()->value(), 0);
  Q_EMIT Page().anchorClicked(QUrl(QStringLiteral("https://example.org/")));
  EXPECT_EQ(help.htmPage.path(), "/connect.html");
}

TEST_F(HelpWindowTest, FollowsTheThemeWhereTheReaderIs) {
  const QPalette before = QApplication::palette();
  Page().verticalScrollBar()->setValue(200);
  QPalette dark = before;
  dark.setColor(QPalette::Link, QColor(1, 2, 3));
  QApplication::setPalette(dark);
  QApplication::processEvents();
  EXPECT_EQ(Page().verticalScrollBar()->value(), 200);
  EXPECT_TRUE(Page().toHtml().contains(QStringLiteral("#010203")));
  QApplication::setPalette(before);
}

TEST_F(HelpWindowTest, OneWindowThatComesBackToTheFront) {
  QWidget* top = &Top();
  top->showMinimized();
  help.OpenPage("sms.html");
  EXPECT_EQ(&Top(), top);
  EXPECT_FALSE(top->isMinimized());
}

}  // namespace
}  // namespace tessarin
