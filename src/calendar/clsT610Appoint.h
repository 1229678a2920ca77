#pragma once

// The one shape in which a calendar entry lives in the system, wherever it came from: ten texts by
// number.

#include <array>

#include "codecs/Text.h"
#include "core/Language.h"

namespace tessarin {

class clsT610Appoint {
 public:
  static constexpr int kFields = 10;

  // Numbers of the fields. Times are date text (modDate.h).
  static constexpr int kGuid = 0;      // Outlook's identifier, or the temporary one
  static constexpr int kMobileId = 1;  // the LUID; empty or "-1" before the phone gave one
  static constexpr int kModified = 2;
  static constexpr int kCategory = 3;  // as GetTypeName gives it; the phone gets it as CATEGORIES
  static constexpr int kAlarm = 4;     // empty for none
  static constexpr int kStart = 5;
  static constexpr int kEnd = 6;
  static constexpr int kSpare = 7;  // "0" when read from the phone; written to the file only
  static constexpr int kSubject = 8;
  static constexpr int kLocation = 9;

  // Both raise BoundsError outside 0 to 9.
  void LetData(Text value, int index);
  const Text& GetData(int index) const;

  // The word that is kept of a type, 1 to 6; empty for another number. It is one and the same for
  // all six: what the list keeps, and writes to the phone, does not tell the types apart.
  static Text GetTypeName(int typeNo, const Language& language);
  // The type of a category's word in the program's language; 6 for any other text.
  static int GetTypeNo(TextView typeName, const Language& language);
  // The type of a category as the phone names it; 6 for one that it does not know.
  static int TypeOfPhoneCategory(TextView category);

 private:
  std::array<Text, kFields> fields_;
};

// The phone's names of the categories, types 1 to 6 in order.
inline constexpr std::array<const char16_t*, 6> kPhoneCategories = {
    u"APPOINTMENT", u"DATE", u"TRAVEL", u"VACATION", u"ANNIVERSARY", u"MISCELLANEOUS"};

// The words that stand for the categories on the screen, in the same order.
std::array<Text, 6> CategoryWords(const Language& language);

}  // namespace tessarin
