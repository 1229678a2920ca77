#pragma once

// Between the system's text and Qt's. Both count in UTF-16 units, so nothing changes on the way.

#include <QString>

#include "codecs/Text.h"
#include "controls/Property.h"

namespace tessarin {

// U+0000 may stand in a record, but is never shown.
inline QString ToQt(TextView text) {
  QString shown(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
  shown.remove(QChar(0));
  return shown;
}

inline QString ToQt(const Property<Text>& text) { return ToQt(text()); }

inline Text FromQt(const QString& text) { return text.toStdU16String(); }

}  // namespace tessarin
