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

// A column of widgets with the program's margins.
inline QVBoxLayout* Column(QWidget& parent) {
  auto* column = new QVBoxLayout(&parent);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kGap);
  return column;
}

}  // namespace tessarin
