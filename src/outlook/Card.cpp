#include "outlook/Card.h"

#include <algorithm>

#include "outlook/CardKinds.h"
#include "outlook/LineValue.h"

namespace tessarin::outlook {

namespace {

using P = ContactProperty;

constexpr std::size_t kFamily = 0, kGiven = 1;  // components of N
constexpr std::size_t kFirstPart = 2;           // of ADR: street, city, state, code, country

Text Component(const std::vector<std::string>& components, std::size_t number) {
  return number < components.size() ? InOneLine(UnescapeText(components[number])) : Text();
}

}  // namespace

std::optional<Card> Card::Read(std::string_view bytes) {
  auto lines = ContentLines::Read(bytes);
  if (!lines || lines->blocks()[0].name != "VCARD") return std::nullopt;
  const auto& blocks = lines->blocks();
  const auto outer = [](const ContentBlock& block) { return block.depth == 0; };
  if (std::count_if(blocks.begin(), blocks.end(), outer) != 1) return std::nullopt;
  for (const std::size_t own : lines->OwnLines(blocks[0])) {
    const ContentLine& line = lines->lines()[own];
    if (line.name == "VERSION" && line.value() != "3.0" && line.value() != "4.0") {
      return std::nullopt;
    }
  }
  Card card(std::move(*lines));
  card.Survey();
  return card;
}

Card Card::New(const std::string& uid) {
  return *Read("BEGIN:VCARD\r\nVERSION:3.0\r\nPRODID:-//Tessarin//EN\r\nUID:" + uid +
               "\r\nEND:VCARD\r\n");
}

Text& Card::TextOf(P property) { return texts_[static_cast<std::size_t>(property)]; }

void Card::Survey() {
  isGroup_ = false;
  uid_ = firstName_ = lastName_ = u"";
  texts_ = {};
  owned_.clear();
  nameLine_.reset();
  emailLines_.clear();
  for (const std::size_t line : lines_.OwnLines(lines_.blocks()[0])) Note(line);
  NoteName();
  constexpr P kEmails[] = {P::Email1Address, P::Email2Address, P::Email3Address};
  for (std::size_t i = 0; i < emailLines_.size() && i < std::size(kEmails); ++i) {
    TextOf(kEmails[i]) = InOneLine(UnescapeText(lines_.lines()[emailLines_[i]].value()));
  }
}

void Card::Own(P property, std::size_t line, Text value) {
  if (owned_.emplace(property, line).second) TextOf(property) = std::move(value);
}

void Card::Note(std::size_t number) {
  const ContentLine& line = lines_.lines()[number];
  const std::string_view value = line.value();
  if (line.name == "UID" && uid_.empty()) uid_ = TrimBlanks(UnescapeText(value));
  if (line.name == "KIND" || line.name == "X-ADDRESSBOOKSERVER-KIND") {
    isGroup_ = UpperAscii(value) == "GROUP";
  }
  if (line.name == "N" && !nameLine_) nameLine_ = number;
  if (line.name == "FN") Own(P::FullName, number, InOneLine(UnescapeText(value)));
  if (line.name == "ORG") Own(P::CompanyName, number, Component(SplitValue(value, ';'), 0));
  if (line.name == "URL") Own(P::WebPage, number, InOneLine(UnescapeText(value)));
  if (line.name == "TEL") NoteNumber(number);
  if (line.name == "ADR") NoteAddress(number);
  if (line.name == "EMAIL") emailLines_.push_back(number);
}

void Card::NoteNumber(std::size_t number) {
  const ContentLine& line = lines_.lines()[number];
  const auto kind = NumberKind(line);
  if (kind) Own(*kind, number, InOneLine(UnescapeText(WithoutTelScheme(line.value()))));
}

void Card::NoteAddress(std::size_t number) {
  const ContentLine& line = lines_.lines()[number];
  const auto street = AddressKind(line);
  if (!street) return;
  const auto components = SplitValue(line.value(), ';');
  for (int part = 0; part < kAddressParts; ++part) {
    Own(AddressPart(*street, part), number,
        Component(components, kFirstPart + static_cast<std::size_t>(part)));
  }
}

void Card::NoteName() {
  if (!nameLine_) return;
  const auto components = SplitValue(lines_.lines()[*nameLine_].value(), ';');
  lastName_ = Component(components, kFamily);
  firstName_ = Component(components, kGiven);
  Text& full = TextOf(P::FullName);
  if (full.empty()) full = TrimBlanks(firstName_ + u" " + lastName_);
}

void Card::Apply(const ContactChanges& changes) {
  ContactTexts wanted = texts_;
  for (const auto& [property, text] : changes) wanted[static_cast<std::size_t>(property)] = text;
  const auto text = [&wanted](P property) -> const Text& {
    return wanted[static_cast<std::size_t>(property)];
  };
  const auto differs = [&](P property) { return text(property) != TextOf(property); };
  if (differs(P::FullName)) SetFullName(text(P::FullName));
  for (const P number : kNumberKinds) {
    if (differs(number)) SetNumber(number, text(number));
  }
  const P emails[] = {P::Email1Address, P::Email2Address, P::Email3Address};
  if (std::any_of(std::begin(emails), std::end(emails), differs)) SetEmails(wanted);
  if (differs(P::CompanyName)) SetCompany(text(P::CompanyName));
  SetAddresses(wanted);
  if (differs(P::WebPage)) SetWebPage(text(P::WebPage));
}

void Card::Add(const std::string& text, std::optional<std::size_t> after) {
  lines_.Insert(after ? *after + 1 : lines_.blocks()[0].end, {text});
  Survey();
}

// The last word is the family name. Both lines have to be there, also when they say nothing.
void Card::SetFullName(const Text& name) {
  const std::string full = EscapeText(name);
  const auto line = owned_.find(P::FullName);
  if (line != owned_.end()) {
    lines_.SetValue(line->second, full);
  } else {
    Add("FN:" + full);
  }
  const std::size_t blank = name.find_last_of(u' ');
  const bool hasFamily = blank != Text::npos;
  const Text given = hasFamily ? TrimBlanks(TextView(name).substr(0, blank)) : name;
  const Text family = hasFamily ? name.substr(blank + 1) : Text();
  const std::string value = EscapeText(family) + ";" + EscapeText(given) + ";;;";
  if (nameLine_) {
    lines_.SetValue(*nameLine_, value);
  } else {
    Add("N:" + value);
  }
  Survey();
}

void Card::SetNumber(P property, const Text& number) {
  const auto line = owned_.find(property);
  if (line == owned_.end()) {
    Add(NumberHead(property) + (":" + EscapeText(number)));
  } else if (number.empty()) {
    lines_.Erase({line->second});
  } else {
    const auto value = lines_.lines()[line->second].value();
    const bool scheme = WithoutTelScheme(value).size() != value.size();
    lines_.SetValue(line->second, (scheme ? "tel:" : "") + EscapeText(number));
  }
  Survey();
}

void Card::SetAddresses(const ContactTexts& wanted) {
  SetAddress(P::HomeAddressStreet, "ADR;TYPE=HOME", wanted);
  SetAddress(P::BusinessAddressStreet, "ADR;TYPE=WORK", wanted);
}

void Card::SetAddress(P street, const char* head, const ContactTexts& wanted) {
  const auto line = owned_.find(street);
  const bool exists = line != owned_.end();
  std::vector<std::string> components;
  if (exists) components = SplitValue(lines_.lines()[line->second].value(), ';');
  components.resize(std::max(components.size(), kFirstPart + kAddressParts));
  bool changed = false;
  for (int part = 0; part < kAddressParts; ++part) {
    const P property = AddressPart(street, part);
    const Text& text = wanted[static_cast<std::size_t>(property)];
    if (text == TextOf(property)) continue;
    components[kFirstPart + static_cast<std::size_t>(part)] = EscapeText(text);
    changed = true;
  }
  if (!changed) return;
  const auto empty = [](const std::string& component) { return component.empty(); };
  const std::string value = JoinValue(components, ';');
  if (!exists) {
    Add(head + (":" + value));
  } else if (std::all_of(components.begin(), components.end(), empty)) {
    lines_.Erase({line->second});
  } else {
    lines_.SetValue(line->second, value);
  }
  Survey();
}

// A card holds its addresses as a list, so an empty place before a later address closes up. Lines
// whose address stays keep all that is theirs.
void Card::SetEmails(const ContactTexts& wanted) {
  std::vector<Text> addresses, present;
  for (const P place : {P::Email1Address, P::Email2Address, P::Email3Address}) {
    const Text& address = wanted[static_cast<std::size_t>(place)];
    if (!address.empty()) addresses.push_back(address);
    if (present.size() < emailLines_.size()) present.push_back(TextOf(place));
  }
  if (addresses == present) return;
  const std::vector<std::size_t> lines(emailLines_);
  std::vector<std::size_t> gone = NotInOrder(present, addresses);
  if (gone.size() + addresses.size() == present.size()) {
    for (std::size_t& line : gone) line = lines[line];
    lines_.Erase(gone);
    Survey();
    return;
  }
  gone.clear();
  for (std::size_t i = 0; i < present.size(); ++i) {
    if (i >= addresses.size()) gone.push_back(lines[i]);
    if (i < addresses.size() && addresses[i] != present[i]) {
      lines_.SetValue(lines[i], EscapeText(addresses[i]));
    }
  }
  lines_.Erase(gone);
  Survey();
  for (std::size_t i = present.size(); i < addresses.size(); ++i) {
    const std::string text = "EMAIL;TYPE=INTERNET:" + EscapeText(addresses[i]);
    if (emailLines_.empty()) {
      Add(text);
    } else {
      Add(text, emailLines_.back());
    }
  }
}

void Card::SetCompany(const Text& company) {
  const auto line = owned_.find(P::CompanyName);
  if (line == owned_.end()) {
    Add("ORG:" + EscapeText(company));
    return;
  }
  auto components = SplitValue(lines_.lines()[line->second].value(), ';');
  components[0] = EscapeText(company);
  const std::string value = JoinValue(components, ';');
  if (value.find_first_not_of(';') == std::string::npos) {
    lines_.Erase({line->second});
  } else {
    lines_.SetValue(line->second, value);
  }
  Survey();
}

// An address of the web is no text: its commas and semicolons stand as they are.
void Card::SetWebPage(const Text& page) {
  const Text shown = UnescapeText(EscapeText(InOneLine(page)));
  const std::string value = ToUtf8(Replace(shown, u"\\", u"\\\\"));
  const auto line = owned_.find(P::WebPage);
  if (line == owned_.end()) {
    Add("URL:" + value);
  } else if (value.empty()) {
    lines_.Erase({line->second});
  } else {
    lines_.SetValue(line->second, value);
  }
  Survey();
}

}  // namespace tessarin::outlook
