#pragma once

// The way between a contact of the lists and a card of phone memory.

#include <memory>

#include "codecs/PhoneBookRecord.h"
#include "codecs/modDate.h"
#include "phonebook/clsT610Contact.h"

namespace tessarin {

// A contact that was never linked to Outlook and changed just now.
std::shared_ptr<clsT610Contact> NewContact(const Clock& clock);

// The text as it can stand in one line: each run of line breaks and tabs as one blank, without the
// other control characters, such as the U+0000 that reading leaves in some fields.
Text OneLine(TextView text);

// The record that is written to the phone, each field in one line: a line break would end the
// card's property there. What is too long for its field is cut.
PhoneBookRecord RecordOf(const clsT610Contact& contact);

// Leaves in fields 3 to 24 what the phone has of a contact that was written to it: on the SIM, kind
// "s", name and first number are cut; in phone memory, kind "p", all that is too long, and a work
// address that its card had no line for is gone. The next reading finds nothing changed then.
void CutToPhone(clsT610Contact& contact, char16_t kind);

// Fills fields 1 and 3 to 24 with what was read from the phone, without blanks around.
void TakeReadRecord(const PhoneBookRecord& record, clsT610Contact& contact);

// Fills fields 3 to 24 with what the contact editor has written. The work street goes into the home
// street's field 14, and field 19 is left as it was: the lists kept by earlier sessions hold such
// contacts, and the next reading puts both right. Until then PhoneMemories knows what was written.
void TakeWrittenRecord(const PhoneBookRecord& record, clsT610Contact& contact);

}  // namespace tessarin
