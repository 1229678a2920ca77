#include "phonebook/NumberLookup.h"

#include <algorithm>
#include <set>

namespace tessarin {

namespace {

constexpr int kName = 3;
constexpr int kFirstNumber = 4;
constexpr int kLastNumber = 8;
constexpr std::size_t kEnough = 7;

// The digits alone; nothing when there are letters among them.
Text DigitsOf(TextView number) {
  Text digits;
  for (const char16_t unit : number) {
    if (unit >= u'0' && unit <= u'9') digits += unit;
    if ((unit | 0x20) >= u'a' && (unit | 0x20) <= u'z') return {};
  }
  return digits;
}

TextView WithoutZeros(TextView digits) {
  return digits.substr(std::min(digits.find_first_not_of(u'0'), digits.size()));
}

bool EndAlike(TextView a, TextView b) {
  const TextView left = WithoutZeros(a);
  const TextView right = WithoutZeros(b);
  return std::min(left.size(), right.size()) >= kEnough &&
         (left.ends_with(right) || right.ends_with(left));
}

}  // namespace

Text NameOf(const clsT610ContactList& contacts, TextView number) {
  const Text wanted = DigitsOf(number);
  if (wanted.empty()) return {};
  std::set<Text> alike;
  for (int position = 1; position <= contacts.Count(); ++position) {
    const clsT610Contact& contact = contacts.item(position);
    for (int field = kFirstNumber; field <= kLastNumber; ++field) {
      const Text digits = DigitsOf(contact.GetData(field));
      if (digits == wanted) return contact.GetData(kName);
      if (EndAlike(digits, wanted)) alike.insert(contact.GetData(kName));
    }
  }
  return alike.size() == 1 ? *alike.begin() : Text();
}

}  // namespace tessarin
