// Reading the phone's cards: by line, by substring and by position.
#include <algorithm>
#include <array>

#include "codecs/CodePage.h"
#include "codecs/Faults.h"
#include "codecs/modHexStr.h"
#include "codecs/vcard.h"

namespace tessarin::vcard {

namespace {

constexpr TextView kLineEnd = u"\r\n";
constexpr TextView kCardEnd = u"END:VCARD";

bool Holds(TextView text, TextView part) { return text.find(part) != TextView::npos; }

const Text& At(const std::vector<Text>& parts, std::size_t index) {
  if (index >= parts.size()) throw BoundsError();
  return parts[index];
}

Text FromUtf8Escapes(const std::string& hex) {
  return modHexStr::BytesToStr(modHexStr::HexToBytes(hex), kUtf8);
}

// What is no digit ends its pair, as everywhere in hexadecimal text.
void AppendEscape(std::string& hex, TextView digits) {
  for (const char16_t unit : digits) hex += unit <= 0x7F ? static_cast<char>(unit) : '?';
}

// A run of escapes is one UTF-8 text, however the lines were broken in it: the "=" of a soft line
// break is an escape of no digits.
Text DecodeQuotedPrintable(TextView text) {
  constexpr std::size_t kDigits = 2;
  const auto pieces = Split(text, u"=");
  Text decoded = pieces[0];
  std::string run;
  for (std::size_t i = 1; i < pieces.size(); ++i) {
    const TextView piece = pieces[i];
    AppendEscape(run, piece.substr(0, kDigits));
    if (piece.size() <= kDigits) continue;
    decoded += FromUtf8Escapes(run);
    decoded += piece.substr(kDigits);
    run.clear();
  }
  if (!run.empty()) decoded += FromUtf8Escapes(run);
  return decoded;
}

// Any "=" means quoted-printable, whatever the parameters say.
Text Decoded(const Text& text) { return Holds(text, u"=") ? DecodeQuotedPrintable(text) : text; }

Text BehindColon(TextView text) { return Text(text.substr(text.find(u':') + 1)); }

// A whole property line and its parts between colons.
struct Property {
  Text line;
  std::vector<Text> parts;

  const Text& Key() const { return parts.front(); }
  const Text& Last() const { return parts.back(); }
  bool IsEncoded() const { return Holds(Last(), u"="); }
  // An encoded value is what stands behind the last colon; another keeps its colons.
  Text Value() const { return IsEncoded() ? DecodeQuotedPrintable(Last()) : BehindColon(line); }
};

using Telephone = FixedText<40> PhoneBookRecord::*;
using AddressPart = FixedText<25> PhoneBookRecord::*;
using Address = std::array<AddressPart, 5>;

constexpr struct {
  TextView key;
  Telephone field;
} kTelephones[] = {
    {u"TEL;HOME", &PhoneBookRecord::TelHome}, {u"TEL;WORK", &PhoneBookRecord::TelWork},
    {u"TEL;CELL", &PhoneBookRecord::TelCell}, {u"TEL;FAX", &PhoneBookRecord::TelFax},
    {u"TEL", &PhoneBookRecord::TelOther},
};

constexpr struct {
  TextView key;
  Address fields;
} kAddresses[] = {
    {u"ADR;HOME",
     {&PhoneBookRecord::HomeStreet, &PhoneBookRecord::HomeCity, &PhoneBookRecord::HomeState,
      &PhoneBookRecord::HomeZip, &PhoneBookRecord::HomeCountry}},
    {u"ADR;WORK",
     {&PhoneBookRecord::WorkStreet, &PhoneBookRecord::WorkCity, &PhoneBookRecord::WorkState,
      &PhoneBookRecord::WorkZip, &PhoneBookRecord::WorkCountry}},
};

// Behind post box and extended address stand street, city, state, zip and country.
void ReadAddress(const Text& value, const Address& fields, PhoneBookRecord& record) {
  constexpr std::size_t kStreet = 2;
  const auto components = Split(value, u";");
  for (std::size_t i = 0; i < fields.size() && kStreet + i < components.size(); ++i) {
    record.*fields[i] = Decoded(components[kStreet + i]);
  }
}

// "N;parameters:family;given", read as "given family". What stands between the first element and
// the last is parameters, of which the last has the colon and a piece of the name behind it, or
// more of the name.
Text ReadName(const Text& line) {
  const auto parts = Split(line, u";");
  Text family = Holds(parts[0], u":") ? BehindColon(parts[0]) : Text();
  for (std::size_t i = 1; i + 1 < parts.size(); ++i) {
    const Text& part = parts[i];
    if (!Holds(part, u"CHARSET=") && !Holds(part, u"ENCODING=")) {
      family += part;
    } else if (Holds(part, u":")) {
      family += Decoded(BehindColon(part));
    }
  }
  return Decoded(parts.back()) + u" " + family;
}

class Decoder {
 public:
  explicit Decoder(TextView text) : lines_(Split(text, kLineEnd)) {}

  // Adds the next card to `records`. BoundsError when the lines end within it.
  void ReadCard(std::vector<PhoneBookRecord>& records) {
    line_ += 2;  // BEGIN and VERSION
    const bool hasName = Holds(At(lines_, line_), u";");
    PhoneBookRecord& record = records.emplace_back();
    if (hasName) {
      record.Name = ReadName(Gather());
      ++line_;
    }
    do {
      ReadProperty(record);
      ++line_;
    } while (At(lines_, line_) != kCardEnd);
    ++line_;
  }

 private:
  // The line with those that continue it, which are known by having no colon.
  Text Gather() {
    Text whole = At(lines_, line_);
    while (!Holds(At(lines_, line_ + 1), u":")) whole += lines_[++line_];
    return whole;
  }

  void ReadProperty(PhoneBookRecord& record) {
    Property property;
    property.line = Gather();
    property.parts = Split(property.line, u":");
    const Text& key = property.Key();
    for (const auto& telephone : kTelephones) {
      if (key == telephone.key || key == Text(telephone.key) + u";ENCODING=QUOTED-PRINTABLE") {
        record.*telephone.field = At(property.parts, 1);
      }
    }
    if (key == u"X-IRMC-LUID") record.Luid = At(property.parts, 1);
    if (key.starts_with(u"ORG")) record.Org = property.Value();
    for (const auto& address : kAddresses) {
      if (key.starts_with(address.key)) ReadAddress(property.Last(), address.fields, record);
    }
    if (key.starts_with(u"TITLE")) record.Title = property.Value();
    if (key.starts_with(u"EMAIL")) ReadEmail(property, record);
    if (key.starts_with(u"URL")) record.Url = property.Value();
    if (key.starts_with(u"NOTE")) record.Note = property.Value();
  }

  // Plain addresses take the three fields in turn, and the turn goes on from card to card: the only
  // address of a second card stands in its second field. The lists of earlier sessions hold such
  // contacts. An encoded address stands in the third.
  void ReadEmail(const Property& property, PhoneBookRecord& record) {
    constexpr std::array<FixedText<50> PhoneBookRecord::*, 3> kFields = {
        &PhoneBookRecord::Email1, &PhoneBookRecord::Email2, &PhoneBookRecord::Email3};
    if (property.IsEncoded()) {
      record.Email3 = property.Value();
      return;
    }
    record.*kFields[emails_] = property.Value();
    emails_ = (emails_ + 1) % kFields.size();
  }

  std::vector<Text> lines_;
  std::size_t line_ = 0;
  std::size_t emails_ = 0;
};

}  // namespace

void DecodeVCards(TextView text, int count, std::vector<PhoneBookRecord>& records) {
  records.clear();
  Decoder decoder(text);
  try {
    for (int card = 0; card < count; ++card) decoder.ReadCard(records);
  } catch (const BoundsError&) {
    return;  // the text holds fewer cards than the phone counted
  }
}

}  // namespace tessarin::vcard
