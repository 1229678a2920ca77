#pragma once

#include <QLabel>

namespace tessarin {

// A label of one line that fits any width: what has no room is left out in its middle, so that the
// end of a long file name stays to be seen.
class ElidedLabel : public QLabel {
 public:
  using QLabel::QLabel;

  void SetWords(const QString& words);

  // As high as the words are: letters of other scripts come from other, higher fonts.
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override { return minimumSizeHint(); }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Elide();

  QString words_;
};

}  // namespace tessarin
