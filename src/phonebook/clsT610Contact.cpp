#include "phonebook/clsT610Contact.h"

#include <utility>

#include "codecs/Faults.h"

namespace tessarin {

void clsT610Contact::LetData(Text value, int index) {
  if (index < 0 || index >= kFields) throw BoundsError();
  fields_[static_cast<std::size_t>(index)] = std::move(value);
}

const Text& clsT610Contact::GetData(int index) const {
  if (index < 0 || index >= kFields) throw BoundsError();
  return fields_[static_cast<std::size_t>(index)];
}

void clsT610Contact::UpdateByOutlookContact(const clsT610Contact& contact) {
  for (int field = 0; field < kFields; ++field) {
    if (field != kMobileId && field != kSpare) LetData(contact.GetData(field), field);
  }
}

}  // namespace tessarin
