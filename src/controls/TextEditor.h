#pragma once

// A text box of several lines that knows where the user is writing.

#include "controls/Basics.h"

namespace tessarin {

class TextEditor : public TextBox {
 public:
  using TextBox::TextBox;

  // Where writing goes on, in UTF-16 units from the start: the end of what is selected.
  Property<int> caret{changed, 0};

  // So many characters that the user wrote or pasted were left out, for want of room. Follows
  // `edited`.
  Signal<std::size_t> cut;

  // Puts `piece` in at the caret, which then stands behind it. False, and nothing changes, when the
  // text would be longer than `maximumLength`.
  bool Insert(TextView piece);
};

// How much of `text` stays when it is cut to `limit` units: a character of two units stays whole or
// goes.
std::size_t FittingLength(TextView text, std::size_t limit);

}  // namespace tessarin
