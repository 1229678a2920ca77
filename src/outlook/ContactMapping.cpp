#include "outlook/ContactMapping.h"

namespace tessarin {

namespace {

using P = outlook::ContactProperty;

// In the order of reading.
constexpr struct {
  ContactField entry;
  std::size_t writeTurn;  // counted from 1
} kMapping[] = {
    {{3, P::FullName}, 1},
    {{4, P::HomeTelephoneNumber}, 2},
    {{5, P::BusinessTelephoneNumber}, 3},
    {{6, P::MobileTelephoneNumber}, 4},
    {{7, P::BusinessFaxNumber}, 5},
    {{8, P::OtherTelephoneNumber}, 6},
    {{9, P::Email1Address}, 7},
    {{10, P::CompanyName}, 10},
    {{11, P::Email2Address}, 8},
    {{12, P::Email3Address}, 9},
    {{24, P::WebPage}, 16},
    {{14, P::HomeAddressStreet}, 14},
    {{15, P::HomeAddressCity}, 11},
    {{16, P::HomeAddressState}, 15},
    {{17, P::HomeAddressPostalCode}, 13},
    {{18, P::HomeAddressCountry}, 12},
    {{19, P::BusinessAddressStreet}, 21},
    {{20, P::BusinessAddressCity}, 17},
    {{21, P::BusinessAddressState}, 20},
    {{22, P::BusinessAddressPostalCode}, 19},
    {{23, P::BusinessAddressCountry}, 18},
};
static_assert(std::size(kMapping) == outlook::kContactProperties);

constexpr auto kReadOrder = [] {
  ContactFields order{};
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = kMapping[i].entry;
  return order;
}();

constexpr auto kWriteOrder = [] {
  ContactFields order{};
  for (const auto& row : kMapping) order[row.writeTurn - 1] = row.entry;
  return order;
}();

}  // namespace

const ContactFields& ContactReadOrder() { return kReadOrder; }
const ContactFields& ContactWriteOrder() { return kWriteOrder; }

Text ModifiedText(outlook::Item& item) {
  return modDate::FormatDateText(item.LastModificationTime());
}

clsT610Contact ContactOf(const clsOutlookContact& outlookContact) {
  outlook::ContactItem& item = *outlookContact.CItem;
  clsT610Contact contact;
  contact.LetData(item.EntryID(), clsT610Contact::kGuid);
  contact.LetData(ModifiedText(item), clsT610Contact::kModified);
  for (const ContactField& entry : kReadOrder) {
    contact.LetData(item.Get(entry.property), entry.field);
  }
  return contact;
}

}  // namespace tessarin
