// The text box that knows where the user writes.

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>
#include <QTest>

#include "ui/qt/QtWindowHost.h"

namespace tessarin {
namespace {

class EditorTest : public testing::Test {
 protected:
  EditorTest() {
    sample.editor.maximumLength = 10;
    sample.Show(Modality::Modeless);
    sample.editor.edited.Always([this] { ++edits; });
  }
  ~EditorTest() override { sample.Unload(); }

  struct Sample : Window {
    explicit Sample(WindowHost& windowHost) : Window(windowHost, "Sample") {}
    TextEditor editor{*this, "editor"};
  };
  QPlainTextEdit& Widget() { return *host.WidgetOf(sample)->findChild<QPlainTextEdit*>(); }
  void Select(int from, int to) {
    QTextCursor cursor = Widget().textCursor();
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    Widget().setTextCursor(cursor);
  }
  void Type(const char* keys) { QTest::keyClicks(&Widget(), QLatin1String(keys)); }

  QtWindowHost host{{{"Sample", Layout::Kind::Dialog, [](Window& window, QWidget&, Binder& bind) {
                        bind.Bind(static_cast<Sample&>(window).editor);
                      }}}};
  Sample sample{host};
  int edits = 0;
};

TEST_F(EditorTest, TextAndCaretGoBothWays) {
  Type("ab");
  QTest::keyClick(&Widget(), Qt::Key_Return);
  Type("cd");
  EXPECT_EQ(sample.editor.text(), u"ab\ncd");
  EXPECT_EQ(sample.editor.caret(), 5);
  EXPECT_EQ(edits, 5);
  QTest::keyClick(&Widget(), Qt::Key_Up);
  EXPECT_EQ(sample.editor.caret(), 2);
  EXPECT_TRUE(sample.editor.Insert(u":)"));
  EXPECT_EQ(Widget().toPlainText(), "ab:)\ncd");
  Type("!");
  EXPECT_EQ(sample.editor.text(), u"ab:)!\ncd");
  Select(4, 1);
  EXPECT_EQ(sample.editor.caret(), 4) << "writing goes on behind what is selected";
  sample.editor.enabled = false;
  EXPECT_EQ(Widget().textCursor().selectedText(), "b:)") << "another change leaves it selected";
}

TEST_F(EditorTest, WhatTheLogicWroteCanBeUndone) {
  Type("ab");
  sample.editor.Insert(u":)");
  QTest::keyClick(&Widget(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(sample.editor.text(), u"ab");
}

TEST_F(EditorTest, ATextThatIsTooLongLosesWhatCameInLast) {
  Type("abcdefgh");
  Select(2, 2);
  QApplication::clipboard()->setText(QStringLiteral("1234"));
  Widget().paste();
  EXPECT_EQ(sample.editor.text(), u"ab12cdefgh");
  EXPECT_EQ(sample.editor.caret(), 4);
  Type("x");
  EXPECT_EQ(Widget().toPlainText(), "ab12cdefgh");
  EXPECT_EQ(Widget().textCursor().position(), 4);
  EXPECT_FALSE(sample.editor.Insert(u"y"));
}

TEST_F(EditorTest, TellsHowMuchWasLeftOutAndHalvesNoCharacter) {
  std::string cuts;
  sample.editor.cut.Always([&cuts](std::size_t units) { cuts += std::to_string(units) + " "; });
  const struct {
    const char* before;
    int caret;
    const char16_t* pasted;
    const char16_t* after;
    const char* cut;
  } cases[] = {{"abcdefgh", 2, u"12", u"ab12cdefgh", ""},
               {"abcdefgh", 2, u"1234", u"ab12cdefgh", "2 "},
               {"abcdefghi", 2, u"\U0001F600", u"abcdefghi", "2 "},
               {"abcdefghi", 9, u"1\U0001F600", u"abcdefghi1", "2 "},
               {"abcdefgh", 8, u"1\U0001F600", u"abcdefgh1", "2 "}};
  for (const auto& c : cases) {
    cuts.clear();
    Widget().setPlainText(QLatin1String(c.before));
    Select(c.caret, c.caret);
    QApplication::clipboard()->setText(QString::fromUtf16(c.pasted));
    Widget().paste();
    EXPECT_EQ(sample.editor.text(), c.after);
    EXPECT_EQ(Widget().toPlainText(), QString::fromUtf16(c.after));
    EXPECT_EQ(cuts, c.cut) << c.before;
  }
}

}  // namespace
}  // namespace tessarin
