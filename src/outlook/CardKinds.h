#pragma once

// Which telephone number and which address a line of a vCard holds, by its TYPE parameters.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "outlook/ContentLines.h"
#include "outlook/Outlook.h"

namespace tessarin::outlook {

inline constexpr ContactProperty kNumberKinds[] = {
    ContactProperty::HomeTelephoneNumber,   ContactProperty::BusinessTelephoneNumber,
    ContactProperty::MobileTelephoneNumber, ContactProperty::BusinessFaxNumber,
    ContactProperty::OtherTelephoneNumber,
};

// Of several of a kind the one to use.
bool IsPreferred(const ContentLine& line);
// None for a number that no property holds, such as a pager's.
std::optional<ContactProperty> NumberKind(const ContentLine& line);
// How a new line of that number begins.
std::string NumberHead(ContactProperty property);
// vCard 4.0 may write a number as an address, "tel:+44...".
bool HasTelScheme(std::string_view value);
std::string_view WithoutTelScheme(std::string_view value);

inline constexpr int kAddressParts = 5;  // street, city, state, code, country
// The street of the address that the line holds; none for one that is neither home nor work.
std::optional<ContactProperty> AddressKind(const ContentLine& line);
ContactProperty AddressPart(ContactProperty street, int part);

}  // namespace tessarin::outlook
