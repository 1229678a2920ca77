#include "ui/qt/EditActs.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <algorithm>

namespace tessarin {

namespace {

// A text field as far as the acts need it.
struct TextState {
  bool writable;
  bool empty;
  bool selected;
  bool atEnd;  // of the text
};

TextState StateOf(const QLineEdit& line) {
  return {!line.isReadOnly(), line.text().isEmpty(), line.hasSelectedText(),
          line.cursorPosition() == line.text().size()};
}

TextState StateOf(const QPlainTextEdit& editor) {
  const QTextCursor cursor = editor.textCursor();
  return {!editor.isReadOnly(), editor.document()->isEmpty(), cursor.hasSelection(),
          cursor.atEnd()};
}

bool CanEditText(const TextState& text, EditAct act) {
  switch (act) {
    case EditAct::Cut:
      return text.writable && text.selected;
    case EditAct::Copy:
      return text.selected;
    case EditAct::Paste: {
      const QMimeData* content = QApplication::clipboard()->mimeData();
      return text.writable && content != nullptr && content->hasText();
    }
    case EditAct::Delete:
      return text.writable && (text.selected || !text.atEnd);
    case EditAct::SelectAll:
      return !text.empty;
  }
  return false;
}

bool CanEditCells(const QAbstractItemView& view, EditAct act) {
  if (view.model() == nullptr) return false;
  if (act == EditAct::Copy) return view.selectionModel()->hasSelection();
  return act == EditAct::SelectAll && view.model()->rowCount() > 0 &&
         view.selectionMode() == QAbstractItemView::ExtendedSelection;
}

// A line a row, with tabs between the cells that can be seen.
QString SelectedCells(const QAbstractItemView& view) {
  auto cells = view.selectionModel()->selectedIndexes();
  std::sort(cells.begin(), cells.end());
  QString text;
  int row = -1;
  for (const QModelIndex& cell : cells) {
    if (view.visualRect(cell).isEmpty()) continue;  // of a hidden column
    if (row >= 0) text += cell.row() == row ? QLatin1Char('\t') : QLatin1Char('\n');
    text += cell.data().toString();
    row = cell.row();
  }
  return text;
}

void DeleteText(QLineEdit& line) { line.del(); }
void DeleteText(QPlainTextEdit& editor) { editor.textCursor().deleteChar(); }

template <class Field>
void EditText(Field& field, EditAct act) {
  switch (act) {
    case EditAct::Cut:
      return field.cut();
    case EditAct::Copy:
      return field.copy();
    case EditAct::Paste:
      return field.paste();
    case EditAct::Delete:
      return DeleteText(field);
    case EditAct::SelectAll:
      return field.selectAll();
  }
}

}  // namespace

bool CanEdit(const QWidget& widget, EditAct act) {
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
    return CanEditText(StateOf(*line), act);
  }
  if (const auto* editor = qobject_cast<const QPlainTextEdit*>(&widget)) {
    return CanEditText(StateOf(*editor), act);
  }
  const auto* view = qobject_cast<const QAbstractItemView*>(&widget);
  return view != nullptr && CanEditCells(*view, act);
}

void Edit(QWidget& widget, EditAct act) {
  if (!CanEdit(widget, act)) return;
  if (auto* line = qobject_cast<QLineEdit*>(&widget)) return EditText(*line, act);
  if (auto* editor = qobject_cast<QPlainTextEdit*>(&widget)) return EditText(*editor, act);
  auto& view = *qobject_cast<QAbstractItemView*>(&widget);
  if (act == EditAct::SelectAll) return view.selectAll();
  QApplication::clipboard()->setText(SelectedCells(view));
}

}  // namespace tessarin
