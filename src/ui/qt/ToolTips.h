#pragma once

#include <QTextDocument>

#include "ui/qt/Convert.h"

namespace tessarin {

// A tip would show names that look like HTML as such, pictures they name included.
inline QString PlainTip(const QString& tip) {
  return Qt::mightBeRichText(tip) ? Qt::convertFromPlainText(tip) : tip;
}

inline QString PlainTip(const Text& text) { return PlainTip(ToQt(text)); }

}  // namespace tessarin
