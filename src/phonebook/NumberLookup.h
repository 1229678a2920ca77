#pragma once

// Whose number it is.

#include "phonebook/clsT610ContactList.h"

namespace tessarin {

// The name of the first contact with that number among its five, or, where none has it digit for
// digit, of one whose number ends alike: a number may be written with its country and without. Of
// two numbers that end alike the shorter, leading zeros not counted, stands whole at the end of the
// longer and has seven digits or more. Empty when there is no such contact, when those whose
// numbers end alike have different names, and for a sender that is no number.
Text NameOf(const clsT610ContactList& contacts, TextView number);

}  // namespace tessarin
