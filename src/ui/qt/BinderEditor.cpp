// The binding of a text box that knows where the user is writing.

#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <algorithm>

#include "controls/WindowHost.h"
#include "ui/qt/Binder.h"
#include "ui/qt/Convert.h"

namespace tessarin {

namespace {

// What passes between a control and its widget.
struct Sync {
  bool reading = false;  // the control is taking over what the user did
  QString text;          // of the control, when both were last made equal
};

// What the logic wrote can be undone like what the user did.
void ShowText(QPlainTextEdit& widget, const QString& text, Sync& sync) {
  if (sync.text == text) return;
  QTextCursor cursor(widget.document());
  cursor.select(QTextCursor::Document);
  cursor.insertText(text);
  sync.text = text;
}

void ShowCaret(QPlainTextEdit& widget, int caret) {
  QTextCursor cursor = widget.textCursor();
  if (cursor.selectionEnd() == caret) return;
  cursor.setPosition(std::clamp(caret, 0, widget.document()->characterCount() - 1));
  widget.setTextCursor(cursor);
}

// Takes what does not fit out of the text just in front of `caret`, where it came in, and moves the
// caret there. A character of two units goes whole. How many units went.
std::size_t CutToLength(Text& text, int& caret, int limit) {
  const int excess = static_cast<int>(text.size()) - limit;
  if (limit <= 0 || excess <= 0) return 0;
  const auto end = static_cast<std::size_t>(std::max(caret, excess));
  const auto begin =
      FittingLength(TextView(text).substr(0, end), end - static_cast<std::size_t>(excess));
  text.erase(begin, end - begin);
  caret = static_cast<int>(begin);
  return end - begin;
}

}  // namespace

QPlainTextEdit* Binder::Bind(TextEditor& editor) {
  auto* widget = new QPlainTextEdit(&top_);
  widget->setTabChangesFocus(true);
  auto sync = std::make_shared<Sync>();
  const auto show = [&editor, widget, sync] {
    if (sync->reading) return;
    const QSignalBlocker quiet(widget);
    ShowText(*widget, ToQt(editor.text), *sync);
    ShowCaret(*widget, editor.caret);
  };
  BindState(editor, *widget, show);
  connect(widget, &QPlainTextEdit::textChanged, this, [this, &editor, widget, show, sync] {
    sync->text = widget->toPlainText();
    Act(editor, [&] {
      Text text = FromQt(sync->text);
      int caret = widget->textCursor().position();
      const std::size_t excess = CutToLength(text, caret, editor.maximumLength);
      sync->reading = true;
      editor.text = std::move(text);
      editor.caret = caret;
      sync->reading = false;
      show();
      editor.edited();
      if (excess > 0) editor.cut(excess);
    });
  });
  const auto moved = [this, &editor, widget, sync] {
    Act(editor, [&] {
      sync->reading = true;
      editor.caret = widget->textCursor().selectionEnd();
      sync->reading = false;
    });
  };
  connect(widget, &QPlainTextEdit::selectionChanged, this, moved);
  connect(widget, &QPlainTextEdit::cursorPositionChanged, this, moved);
  return widget;
}

}  // namespace tessarin
