#include "controls/TextEditor.h"

#include <algorithm>

namespace tessarin {

bool TextEditor::Insert(TextView piece) {
  Text whole = text;
  if (maximumLength > 0 && whole.size() + piece.size() > static_cast<std::size_t>(maximumLength)) {
    return false;
  }
  const auto place = std::min(static_cast<std::size_t>(std::max(caret(), 0)), whole.size());
  whole.insert(place, piece);
  text = std::move(whole);
  caret = static_cast<int>(place + piece.size());
  return true;
}

std::size_t FittingLength(TextView text, std::size_t limit) {
  if (text.size() <= limit) return text.size();
  const bool isHalved = limit > 0 && (text[limit - 1] & 0xFC00) == 0xD800;
  return isHalved ? limit - 1 : limit;
}

}  // namespace tessarin
