// Writing a card for the phone: unfolded lines, one charset a line.
#include <algorithm>
#include <array>

#include "codecs/CodePage.h"
#include "codecs/modHexStr.h"
#include "codecs/vcard.h"

namespace tessarin::vcard {

namespace {

using modHexStr::StrToHex2;

constexpr TextView kLineEnd = u"\r\n";

// Whether every unit is one byte of ISO 8859-1.
bool IsSingleByte(const Text& value) {
  return std::all_of(value.begin(), value.end(), [](char16_t unit) { return unit <= 0xFF; });
}

std::string Utf7Hex(const Text& value) {
  return modHexStr::BytesToHex(modHexStr::StrToBytes(value, kUtf7));
}

// The value in the charset that `asSingleByte` stands for. In ISO 8859-1 a unit above U+00FF would
// take more than its two digits.
std::string ValueHex(const Text& value, bool asSingleByte) {
  return asSingleByte ? StrToHex2(value) : Utf7Hex(value);
}

// "NAME;CHARSET=...:" and the value; `before` stands between colon and value.
std::string CharsetLine(TextView name, TextView before, const Text& value) {
  const bool isSingleByte = IsSingleByte(value);
  const Text head =
      Text(name).append(isSingleByte ? u";CHARSET=ISO-8859-1:" : u";CHARSET=UTF-7:").append(before);
  return StrToHex2(head) + ValueHex(value, isSingleByte) + StrToHex2(kLineEnd);
}

std::string OptionalCharsetLine(TextView name, const Text& value) {
  return value.empty() ? std::string() : CharsetLine(name, u"", value);
}

// `head` and the value as it stands.
std::string OptionalPlainLine(TextView head, const Text& value) {
  return value.empty() ? std::string() : StrToHex2(Text(head).append(value).append(kLineEnd));
}

struct AddressPart {
  Text value;
  bool isSingleByte;
};

AddressPart Part(const FixedText<25>& field) {
  const Text value = field.Trimmed();
  return {value, IsSingleByte(value)};
}

// The charset that the line names is UTF-7 even where a component is not converted; the phone takes
// both.
std::string AddressLine(TextView head, const std::array<AddressPart, 5>& parts) {
  std::string line = StrToHex2(Text(head).append(u";CHARSET=UTF-7:;;"));
  for (std::size_t i = 0; i < parts.size(); ++i) {
    line += ValueHex(parts[i].value, parts[i].isSingleByte);
    line += StrToHex2(i + 1 < parts.size() ? TextView(u";") : kLineEnd);
  }
  return line;
}

// Whether a component of the home address behind the street is given.
bool HasHomePlace(const PhoneBookRecord& r) {
  return !(r.HomeCity.Trimmed() + r.HomeState.Trimmed() + r.HomeZip.Trimmed() +
           r.HomeCountry.Trimmed())
              .empty();
}

std::string HomeLine(const PhoneBookRecord& r) {
  if (r.HomeStreet.Trimmed().empty() && !HasHomePlace(r)) return {};
  return AddressLine(u"ADR;HOME", {Part(r.HomeStreet), Part(r.HomeCity), Part(r.HomeState),
                                   Part(r.HomeZip), Part(r.HomeCountry)});
}

// The home street decides the charset of the work street: an oddity that stays, so that phones and
// books filled by earlier sessions compare as before.
std::string WorkLine(const PhoneBookRecord& r) {
  if (!HasWorkLine(r)) return {};
  const AddressPart street = {r.WorkStreet.Trimmed(), IsSingleByte(r.HomeStreet.Trimmed())};
  return AddressLine(u"ADR;WORK", {street, Part(r.WorkCity), Part(r.WorkState), Part(r.WorkZip),
                                   Part(r.WorkCountry)});
}

}  // namespace

// An oddity that stays likewise: a work street or a home place decides.
bool HasWorkLine(const PhoneBookRecord& record) {
  return !record.WorkStreet.Trimmed().empty() || HasHomePlace(record);
}

std::string EncodeVCard(const PhoneBookRecord& record) {
  std::string card = StrToHex2(u"BEGIN:VCARD\r\nVERSION:2.1\r\n");
  // The whole name is the given one, behind an empty family name.
  card += CharsetLine(u"N", u";", record.Name.Trimmed());
  card += OptionalCharsetLine(u"TITLE", record.Title.Trimmed());
  card += OptionalCharsetLine(u"ORG", record.Org.Trimmed());
  card += OptionalPlainLine(u"TEL;WORK:", record.TelWork.Trimmed());
  card += OptionalPlainLine(u"TEL;HOME:", record.TelHome.Trimmed());
  card += OptionalPlainLine(u"TEL;CELL:", record.TelCell.Trimmed());
  card += OptionalPlainLine(u"TEL;FAX:", record.TelFax.Trimmed());
  card += OptionalPlainLine(u"TEL:", record.TelOther.Trimmed());
  card += OptionalPlainLine(u"EMAIL;INTERNET;PREF;CHARSET=UTF-7:", record.EmailPref.Trimmed());
  card += OptionalPlainLine(u"EMAIL;INTERNET;CHARSET=UTF-7:", record.Email2.Trimmed());
  card += OptionalPlainLine(u"EMAIL;INTERNET;CHARSET=UTF-7:", record.Email3.Trimmed());
  card += OptionalPlainLine(u"URL;CHARSET=UTF-7:", record.Url.Trimmed());
  card += HomeLine(record);
  card += WorkLine(record);
  card += OptionalCharsetLine(u"NOTE", record.Note.Trimmed());
  return card + StrToHex2(u"END:VCARD\r\n");
}

}  // namespace tessarin::vcard
