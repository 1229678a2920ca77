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

}  // namespace
}  // namespace tessarin
