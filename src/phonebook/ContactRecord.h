#pragma once

// The way between a contact of the lists and a card of phone memory.

#include "codecs/PhoneBookRecord.h"
#include "phonebook/clsT610Contact.h"

namespace tessarin {

// The record that is written to the phone. What is too long for its field is cut, and U+0000 that
// its quoting has left behind a text is not sent back.
PhoneBookRecord RecordOf(const clsT610Contact& contact);

// Leaves in fields 3 to 24 what the phone has of a contact that was written to it: on the SIM, kind
// "s", name and first number are cut; in phone memory, kind "p", all that is too long, and a work
// address that its card had no line for is gone. The next reading finds nothing changed then.
void CutToPhone(clsT610Contact& contact, char16_t kind);

// Fills fields 1 and 3 to 24 with what was read from the phone, without blanks around.
void TakeReadRecord(const PhoneBookRecord& record, clsT610Contact& contact);

// Fills fields 3 to 24 with what the contact editor has written. The work street goes into the home
// street's field 14, and field 19 is left as it was: the lists kept by earlier sessions hold such
// contacts, and the next reading puts both right.
void TakeWrittenRecord(const PhoneBookRecord& record, clsT610Contact& contact);

}  // namespace tessarin
