#pragma once

// The one shape in which a contact lives in the system, wherever it came from: 25 texts by number.

#include <array>

#include "codecs/Text.h"

namespace tessarin {

class clsT610Contact {
 public:
  static constexpr int kFields = 25;

  // Numbers of the fields. Nothing fills the spare one; the files keep its place.
  static constexpr int kGuid = 0;      // Outlook's identifier, or the temporary one
  static constexpr int kMobileId = 1;  // "p" + LUID in phone memory, "s" + location on the SIM
  static constexpr int kModified = 2;  // "dd/mm/yyyy hh:mm:ss"
  static constexpr int kName = 3;
  static constexpr int kHome = 4;  // numbers; on the SIM the only one
  static constexpr int kWork = 5;
  static constexpr int kMobile = 6;
  static constexpr int kFax = 7;
  static constexpr int kOther = 8;
  static constexpr int kEmail1 = 9;
  static constexpr int kCompany = 10;
  static constexpr int kEmail2 = 11;
  static constexpr int kEmail3 = 12;
  static constexpr int kSpare = 13;
  static constexpr int kHomeAddress = 14;  // five fields: street, city, state, zip, country
  static constexpr int kWorkAddress = 19;  // likewise
  static constexpr int kUrl = 24;          // in memory only: the files do not keep it

  // Both raise BoundsError outside 0 to 24.
  void LetData(Text value, int index);
  const Text& GetData(int index) const;

  // Takes over what Outlook has: every field but 1 and the spare one, of which it knows nothing.
  void UpdateByOutlookContact(const clsT610Contact& contact);

  // Whether the contact is in that memory of the phone: "s" the SIM, "p" the phone's own.
  bool IsIn(char16_t kind) const { return GetData(kMobileId).starts_with(kind); }
  // What the phone calls it there: the LUID or the location. Empty when it has no such name.
  Text Identifier() const { return GetData(kMobileId).substr(GetData(kMobileId).empty() ? 0 : 1); }

 private:
  std::array<Text, kFields> fields_;
};

}  // namespace tessarin
