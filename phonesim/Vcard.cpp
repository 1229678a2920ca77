#include "phonesim/Vcard.h"

#include <algorithm>
#include <array>

#include "phonesim/ContentLine.h"
#include "phonesim/ObexPacket.h"

namespace phonesim {
namespace {

struct Plain {
  const char* field;
  const char* property;
};

constexpr std::array<Plain, 5> kNumbers = {
    {{"home", "HOME"}, {"work", "WORK"}, {"cell", "CELL"}, {"fax", "FAX"}, {"other", ""}}};
constexpr std::array<Plain, 4> kTexts = {
    {{"title", "TITLE"}, {"org", "ORG"}, {"url", "URL"}, {"note", "NOTE"}}};
constexpr std::array<const char*, 3> kEmails = {"email1", "email2", "email3"};
constexpr std::array<const char*, 5> kAddress = {"street", "city", "state", "zip", "country"};
constexpr std::size_t kBeforeStreet = 2;  ///< post box and extended address
constexpr std::array<Plain, 2> kPlaces = {{{"home.", "HOME"}, {"work.", "WORK"}}};

const std::vector<std::string> kHead = {"BEGIN:VCARD", "VERSION:2.1"};
const std::vector<std::string> kTail = {"END:VCARD"};

ObexFault Breach(const std::string& what) { return ObexFault(obex::kBadRequest, what); }

std::vector<std::string> AddressOf(const Fields& fields, const std::string& place) {
  std::vector<std::string> components;
  components.reserve(kBeforeStreet + kAddress.size());
  for (const char* part : kAddress) components.push_back(Field(fields, place + part));
  if (std::all_of(components.begin(), components.end(), [](const auto& c) { return c.empty(); })) {
    return {};
  }
  components.insert(components.begin(), kBeforeStreet, std::string());
  return components;
}

void TakeNumber(Fields& fields, const ContentLine& line) {
  for (const Plain& number : kNumbers) {
    if (*number.property != '\0' && !line.Has(number.property)) continue;
    fields[number.field] = line.Text();
    return;
  }
}

void TakeEmail(Fields& fields, const ContentLine& line) {
  for (const char* email : kEmails) {
    if (!Field(fields, email).empty()) continue;
    fields[email] = line.Text();
    return;
  }
  throw Breach("more than three e-mail addresses");
}

void TakeAddress(Fields& fields, const ContentLine& line) {
  const std::vector<std::string> components = line.Components();
  if (components.size() != kBeforeStreet + kAddress.size())
    throw Breach("ADR is not in seven parts");
  for (const Plain& place : kPlaces) {
    if (!line.Has(place.property)) continue;
    for (std::size_t i = 0; i < kAddress.size(); ++i) {
      fields[std::string(place.field) + kAddress[i]] = components[i + kBeforeStreet];
    }
    return;
  }
  throw Breach("ADR is neither HOME nor WORK");
}

void TakeName(Fields& fields, const ContentLine& line) {
  const std::vector<std::string> components = line.Components();
  fields["family"] = components[0];
  if (components.size() > 1) fields["given"] = components[1];
}

void TakeLine(Fields& fields, const ContentLine& line) {
  if (line.name == "N") return TakeName(fields, line);
  if (line.name == "TEL") return TakeNumber(fields, line);
  if (line.name == "EMAIL") return TakeEmail(fields, line);
  if (line.name == "ADR") return TakeAddress(fields, line);
  for (const Plain& text : kTexts) {
    if (line.name != text.property) continue;
    fields[text.field] = line.Text();
    return;
  }
  throw Breach("unknown property " + line.name);
}

}  // namespace

std::string WriteVcard(const Book::Entry& contact, bool quoteAll) {
  const Fields& fields = contact.fields;
  const auto line = [quoteAll](const std::string& name, const std::vector<std::string>& values) {
    return WriteContentLine(name, values, {quoteAll});
  };
  std::string card = "BEGIN:VCARD\r\nVERSION:2.1\r\n";
  const std::string name = line("N", {Field(fields, "family"), Field(fields, "given")});
  card += name.empty() ? "N:;\r\n" : name;
  for (const Plain& text : kTexts) card += line(text.property, {Field(fields, text.field)});
  for (const Plain& number : kNumbers) {
    const std::string kind = *number.property == '\0' ? "" : ";" + std::string(number.property);
    card += line("TEL" + kind, {Field(fields, number.field)});
  }
  for (const char* email : kEmails) card += line("EMAIL;INTERNET", {Field(fields, email)});
  for (const Plain& place : kPlaces) {
    card += line("ADR;" + std::string(place.property), AddressOf(fields, place.field));
  }
  return card + "X-IRMC-LUID:" + contact.luid + "\r\nEND:VCARD\r\n";
}

Fields ReadVcard(const std::string& object) {
  std::vector<ContentLine> lines = SplitContentLines(object);
  TakeFrame(lines, kHead, kTail);
  if (lines.empty() || lines.front().name != "N") throw Breach("vCard without N as third line");
  Fields fields;
  for (const ContentLine& line : lines) TakeLine(fields, line);
  std::erase_if(fields, [](const auto& field) { return field.second.empty(); });
  return fields;
}

}  // namespace phonesim
