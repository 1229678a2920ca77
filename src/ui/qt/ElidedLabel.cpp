#include "ui/qt/ElidedLabel.h"

#include "ui/qt/ToolTips.h"

namespace tessarin {

void ElidedLabel::SetWords(const QString& words) {
  words_ = words;
  setTextFormat(Qt::PlainText);
  setAccessibleName(words_);
  setToolTip(PlainTip(words_));
  Elide();
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  Elide();
}

void ElidedLabel::Elide() {
  setText(fontMetrics().elidedText(words_, Qt::ElideMiddle, contentsRect().width()));
}

}  // namespace tessarin
