#pragma once

// The one shape in which a contact lives in the system, wherever it came from: 25 texts by number.

#include <array>

#include "codecs/Text.h"

namespace tessarin {

class clsT610Contact {
 public:
  static constexpr int kFields = 25;

  // Numbers of the fields that the lists themselves look at.
  static constexpr int kGuid = 0;      // Outlook's identifier, or the temporary one
  static constexpr int kMobileId = 1;  // "p" + LUID in phone memory, "s" + location on the SIM
  static constexpr int kModified = 2;  // "dd/mm/yyyy hh:mm:ss"

  // Both raise BoundsError outside 0 to 24.
  void LetData(Text value, int index);
  const Text& GetData(int index) const;

 private:
  std::array<Text, kFields> fields_;
};

}  // namespace tessarin
