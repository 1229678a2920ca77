#pragma once

// A text box of several lines that knows where the user is writing.

#include "controls/Basics.h"

namespace tessarin {

class TextEditor : public TextBox {
 public:
  using TextBox::TextBox;

  // Where writing goes on, in UTF-16 units from the start: the end of what is selected.
  Property<int> caret{changed, 0};

  // Puts `piece` in at the caret, which then stands behind it. False, and nothing changes, when the
  // text would be longer than `maximumLength`.
  bool Insert(TextView piece);
};

}  // namespace tessarin
