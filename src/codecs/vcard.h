// The phone's contacts as vCard 2.1, the way this family of phones writes and takes it.
//
// The two directions are no mirror images. A phone writes folded lines of quoted-printable UTF-8
// and the name as "family;given"; it takes unfolded lines in ISO 8859-1 or UTF-7, and the whole
// name in the place of the given one. So a card that went out with letters beyond ISO 8859-1 and is
// then read back as it was sent stays in UTF-7.
#pragma once

#include <string>
#include <vector>

#include "codecs/PhoneBookRecord.h"

namespace tessarin::vcard {

// Fills `records` with the cards of `text`, whose lines end in CR LF: at most `count`, fewer when
// the text ends before. Of a card that is cut short its record has the lines that are whole.
// Nothing is refused: what is not known is skipped, what is too long for its field is cut.
//
// A run of quoted-printable escapes leaves a U+0000 behind its text, inside the field.
void DecodeVCards(TextView text, int count, std::vector<PhoneBookRecord>& records);

// The record's card in 2-digit hexadecimal text. It has no X-IRMC-LUID: the phone gives that.
// Email1 is not looked at, EmailPref goes first. Values of telephones, e-mail and URL are written
// unit by unit, so one beyond U+00FF there takes three or four digits.
std::string EncodeVCard(const PhoneBookRecord& record);

// Whether that card has a line for the work address: it has none for one without a street, unless
// the home address has a city, state, zip or country.
bool HasWorkLine(const PhoneBookRecord& record);

}  // namespace tessarin::vcard
