#pragma once

// The few looks that several windows share.

#include <QLabel>
#include <QVBoxLayout>

namespace tessarin {

inline constexpr int kMargin = 20;
inline constexpr int kGap = 12;

// A heading: larger by `factor`, in bold.
inline QLabel* AsHeading(QLabel* label, double factor) {
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * factor);
  font.setBold(true);
  label->setFont(font);
  return label;
}

// A dialog's column of widgets: as wide as given or as its words need, and always just as high as
// they need, also when they change.
inline QVBoxLayout* Column(QWidget& dialog, int width) {
  auto* column = new QVBoxLayout(&dialog);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kGap);
  column->addStrut(width);
  column->setSizeConstraint(QLayout::SetFixedSize);
  return column;
}

}  // namespace tessarin
