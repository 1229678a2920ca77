#pragma once

// The smileys that the composer offers.

#include <string>
#include <vector>

#include "codecs/Text.h"

namespace tessarin {

// Their text forms, in the order of the composer's buttons. Some stand more than once.
const std::vector<Text>& Smileys();

// The name of the picture of smiley `index`, from 0.
std::string SmileyPicture(std::size_t index);

}  // namespace tessarin
