#pragma once

// One choice of several, of which exactly one is checked. The user's click checks it; taking the
// check from the others is the logic's business.

#include "controls/Basics.h"

namespace tessarin {

class OptionButton : public CheckBox {
 public:
  using CheckBox::CheckBox;
};

}  // namespace tessarin
