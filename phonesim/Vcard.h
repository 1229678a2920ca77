#pragma once

#include <string>

#include "phonesim/Book.h"

/// Contacts as vCard 2.1. The fields of a contact, all UTF-8:
///
///     given family title org home work cell fax other email1 email2 email3 url note
///     home.street home.city home.state home.zip home.country, and the same with work.
///
/// home to other are telephone numbers.
namespace phonesim {

/// The phone's own way to write a contact: N first, then the others in a fixed order, the local
/// identifier last. "all" quotes every byte of a value that needs quoting.
std::string WriteVcard(const Book::Entry& contact, bool quoteAll);

/// A contact as the client writes it. Throws `ObexFault`, a breach, for what is no vCard 2.1 of the
/// properties above.
Fields ReadVcard(const std::string& object);

}  // namespace phonesim
