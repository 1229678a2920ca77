#include "outlook/ContactMapping.h"

namespace tessarin {

namespace {

using P = outlook::ContactProperty;

}  // namespace

const std::vector<ContactField> kContactReadOrder = {
    {3, P::FullName},
    {4, P::HomeTelephoneNumber},
    {5, P::BusinessTelephoneNumber},
    {6, P::MobileTelephoneNumber},
    {7, P::BusinessFaxNumber},
    {8, P::OtherTelephoneNumber},
    {9, P::Email1Address},
    {10, P::CompanyName},
    {11, P::Email2Address},
    {12, P::Email3Address},
    {24, P::WebPage},
    {14, P::HomeAddressStreet},
    {15, P::HomeAddressCity},
    {16, P::HomeAddressState},
    {17, P::HomeAddressPostalCode},
    {18, P::HomeAddressCountry},
    {19, P::BusinessAddressStreet},
    {20, P::BusinessAddressCity},
    {21, P::BusinessAddressState},
    {22, P::BusinessAddressPostalCode},
    {23, P::BusinessAddressCountry},
};

const std::vector<ContactField> kContactWriteOrder = {
    {3, P::FullName},
    {4, P::HomeTelephoneNumber},
    {5, P::BusinessTelephoneNumber},
    {6, P::MobileTelephoneNumber},
    {7, P::BusinessFaxNumber},
    {8, P::OtherTelephoneNumber},
    {9, P::Email1Address},
    {11, P::Email2Address},
    {12, P::Email3Address},
    {10, P::CompanyName},
    {15, P::HomeAddressCity},
    {18, P::HomeAddressCountry},
    {17, P::HomeAddressPostalCode},
    {14, P::HomeAddressStreet},
    {16, P::HomeAddressState},
    {24, P::WebPage},
    {20, P::BusinessAddressCity},
    {23, P::BusinessAddressCountry},
    {22, P::BusinessAddressPostalCode},
    {21, P::BusinessAddressState},
    {19, P::BusinessAddressStreet},
};

Text ModifiedText(outlook::Item& item) {
  return modDate::FormatDateText(item.LastModificationTime());
}

void UpdateByOutlookContact(clsT610Contact& contact, const clsOutlookContact& outlookContact) {
  outlook::ContactItem& item = *outlookContact.CItem;
  contact.LetData(item.EntryID(), clsT610Contact::kGuid);
  contact.LetData(ModifiedText(item), clsT610Contact::kModified);
  for (const ContactField& entry : kContactReadOrder) {
    contact.LetData(item.Get(entry.property), entry.field);
  }
}

void UpdateOutlookContact(clsT610ContactList& list, const clsOutlookContact& outlookContact,
                          int index, TextView mobileID) {
  clsT610Contact& contact = list.item(index);
  if (mobileID != u"-1") contact.LetData(Text(mobileID), clsT610Contact::kMobileId);
  UpdateByOutlookContact(contact, outlookContact);
}

void AddOutlookContact(clsT610ContactList& list, const clsOutlookContact& outlookContact) {
  auto contact = std::make_shared<clsT610Contact>();
  UpdateByOutlookContact(*contact, outlookContact);
  list.Add(std::move(contact));
}

}  // namespace tessarin
