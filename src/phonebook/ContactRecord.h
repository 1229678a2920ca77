#pragma once

// The way between a contact of the lists and a card of phone memory.

#include "codecs/PhoneBookRecord.h"
#include "phonebook/clsT610Contact.h"

namespace tessarin {

// The record that is written to the phone. What is too long for its field is cut.
PhoneBookRecord RecordOf(const clsT610Contact& contact);

// Fills fields 1 and 3 to 24 with what was read from the phone, without blanks around.
void TakeReadRecord(const PhoneBookRecord& record, clsT610Contact& contact);

// Fills fields 3 to 24 with what the contact editor has written. The work street goes into the home
// street's field 14, and field 19 is left as it was: the lists kept by earlier sessions hold such
// contacts, and the next reading puts both right.
void TakeWrittenRecord(const PhoneBookRecord& record, clsT610Contact& contact);

}  // namespace tessarin
