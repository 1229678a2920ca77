// The binding of pages of formatted text.

#include <QEvent>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>

#include "ui/qt/Binder.h"
#include "ui/qt/Convert.h"

namespace tessarin {

namespace {

constexpr qreal kLineHeight = 120;  // percent
constexpr qreal kPictureScale = 2;  // pictures are made at twice the size at which they are shown

// What a page has of the theme; its own style sheet sets no colours of text and ground.
QString ThemeSheet(const QPalette& palette) {
  return QStringLiteral("a { color: %1; } code, pre, th { background-color: %2; }")
      .arg(palette.color(QPalette::Link).name(), palette.color(QPalette::AlternateBase).name());
}

// More room between the lines of text. Pictures and listings have enough.
void SpaceLines(QTextDocument& document) {
  QTextBlockFormat spaced;
  spaced.setLineHeight(kLineHeight, QTextBlockFormat::ProportionalHeight);
  for (auto block = document.begin(); block.isValid(); block = block.next()) {
    const bool listing = block.blockFormat().nonBreakableLines();
    if (listing || block.text().contains(QChar::ObjectReplacementCharacter)) continue;
    QTextCursor(block).mergeBlockFormat(spaced);
  }
}

class PageWidget : public QTextBrowser {
 public:
  PageWidget(const HtmlView& view, QWidget* parent) : QTextBrowser(parent), view_(view) {
    setOpenLinks(false);
    setUndoRedoEnabled(false);
  }

  // Brings the control's state to the screen.
  void Update() {
    if (visits_ != view_.visits()) {
      visits_ = view_.visits();
      Render();
      if (!view_.anchor().empty()) scrollToAnchor(QString::fromStdString(view_.anchor()));
    }
    if (marked_ != view_.marks()) {
      marked_ = view_.marks();
      Mark();
    }
  }

 protected:
  QVariant loadResource(int type, const QUrl& name) override {
    const auto content = view_.reader ? view_.reader(name.toString().toStdString()) : std::nullopt;
    if (!content) return {};
    const auto bytes = QByteArray(content->data(), static_cast<qsizetype>(content->size()));
    return type == QTextDocument::ImageResource ? QVariant(Picture(bytes)) : QVariant(bytes);
  }

  void changeEvent(QEvent* event) override {
    QTextBrowser::changeEvent(event);
    // Once hidden it waits for its end, and the control may be gone.
    if (event->type() != QEvent::PaletteChange || !isVisible()) return;
    const int place = verticalScrollBar()->value();
    Render();
    Mark();
    verticalScrollBar()->setValue(place);
  }

 private:
  void Render() {
    document()->setDefaultStyleSheet(ThemeSheet(palette()));
    setHtml(QString::fromUtf8(view_.html().data(), static_cast<qsizetype>(view_.html().size())));
    SpaceLines(*document());
  }

  // Scaled here, once and smoothly, to the pixels of this screen.
  QImage Picture(const QByteArray& bytes) const {
    const QImage picture = QImage::fromData(bytes);
    if (picture.isNull()) return {};
    const qreal ratio = devicePixelRatioF();
    QImage scaled = picture.scaled((QSizeF(picture.size()) * ratio / kPictureScale).toSize(),
                                   Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(ratio);
    return scaled;
  }

  void Mark() {
    QList<ExtraSelection> selections;
    QTextCursor first;
    for (const Text& word : marked_) {
      for (auto found = document()->find(ToQt(word)); !found.isNull();
           found = document()->find(ToQt(word), found)) {
        if (first.isNull() || found.selectionStart() < first.selectionStart()) first = found;
        ExtraSelection selection;
        selection.cursor = found;
        selection.format.setBackground(palette().color(QPalette::Highlight));
        selection.format.setForeground(palette().color(QPalette::HighlightedText));
        selections.append(selection);
      }
    }
    setExtraSelections(selections);
    if (first.isNull()) return;
    first.setPosition(first.selectionStart());
    setTextCursor(first);
    // A third of the way down, so that what leads to the word is seen too.
    verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect().top() -
                                  viewport()->height() / 3);
  }

  const HtmlView& view_;
  int visits_ = 0;
  std::vector<Text> marked_;
};

}  // namespace

QTextBrowser* Binder::Bind(HtmlView& view) {
  auto* widget = new PageWidget(view, &top_);
  BindState(view, *widget, [widget] { widget->Update(); });
  connect(widget, &QTextBrowser::anchorClicked, this, [this, &view](const QUrl& link) {
    Act(view, [&] { view.linkClicked(link.toString().toStdString()); });
  });
  return widget;
}

}  // namespace tessarin
