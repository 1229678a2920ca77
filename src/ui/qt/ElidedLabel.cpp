#include "ui/qt/ElidedLabel.h"

#include <algorithm>

#include "ui/qt/ToolTips.h"

namespace tessarin {

void ElidedLabel::SetWords(const QString& words) {
  words_ = words;
  setTextFormat(Qt::PlainText);
  setAccessibleName(words_);
  setToolTip(PlainTip(words_));
  updateGeometry();
  Elide();
}

QSize ElidedLabel::minimumSizeHint() const {
  const QFontMetrics metrics = fontMetrics();
  return {0, std::max(metrics.height(), metrics.boundingRect(QRect(), 0, words_).height())};
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  Elide();
}

void ElidedLabel::Elide() {
  setText(fontMetrics().elidedText(words_, Qt::ElideMiddle, contentsRect().width()));
}

}  // namespace tessarin
