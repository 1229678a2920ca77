// Which characters a telephone number may hold.
#pragma once

#include "codecs/Text.h"

namespace tessarin {

enum class Dialling {
  kDigits,       // [^0-9] is forbidden
  kKeys,         // [^0-9*#] is forbidden: what a telephone's keys can dial
  kKeysAndPlus,  // [^0-9*#+] is forbidden: the keys and the sign of an international number
};

// True when `text` holds a character that this kind of dialling forbids. Empty text holds none.
bool HoldsForbidden(TextView text, Dialling kind);

}  // namespace tessarin
