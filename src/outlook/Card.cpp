#include "outlook/Card.h"

#include <algorithm>

#include "outlook/CardKinds.h"
#include "outlook/LineValue.h"

namespace tessarin::outlook {

namespace {

using P = ContactProperty;

constexpr P kEmails[] = {P::Email1Address, P::Email2Address, P::Email3Address};
constexpr std::size_t kFirstPart = 2;  // of ADR: street, city, state, code, country

Text Component(const std::vector<std::string>& components, std::size_t number) {
  return number < components.size() ? InOneLine(UnescapeText(components[number])) : Text();
}

// A structured value; empty when all its components are.
std::string Structured(const std::vector<std::string>& components) {
  const std::string value = JoinValue(components, ';');
  return value.find_first_not_of(';') == std::string::npos ? "" : value;
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
    const std::string_view version = TrimEnd(line.value());
    if (line.name == "VERSION" && version != "3.0" && version != "4.0") return std::nullopt;
  }
  Card card(std::move(*lines));
  card.Survey();
  return card;
}

// Every card has to have a name, also one that says nothing.
Card Card::New(const std::string& uid) {
  return *Read("BEGIN:VCARD\r\nVERSION:3.0\r\nPRODID:-//Tessarin//EN\r\nUID:" + uid +
               "\r\nFN:\r\nN:;;;;\r\nEND:VCARD\r\n");
}

Text& Card::TextOf(P property) { return texts_[static_cast<std::size_t>(property)]; }

void Card::Survey() {
  isGroup_ = false;
  uid_ = u"";
  texts_ = {};
  names_ = {};
  owned_.clear();
  doubled_.clear();
  nameLine_.reset();
  emailLines_.clear();
  auto lines = lines_.OwnLines(lines_.blocks()[0]);
  std::stable_partition(lines.begin(), lines.end(),
                        [this](std::size_t line) { return IsPreferred(lines_.lines()[line]); });
  for (const std::size_t line : lines) Note(line);
  NoteName();
  NoteEmails();
}

void Card::Own(P property, std::size_t line, Text value) {
  if (owned_.emplace(property, line).second) {
    TextOf(property) = std::move(value);
  } else {
    doubled_.insert(property);
  }
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
  for (std::size_t i = 0; i < names_.size(); ++i) names_[i] = Component(components, i);
  Text& full = TextOf(P::FullName);
  if (full.empty()) full = TrimBlanks(firstName() + u" " + lastName());
}

// They have places in the order of their lines, a preferred one too.
void Card::NoteEmails() {
  std::sort(emailLines_.begin(), emailLines_.end());
  const std::size_t places = std::min(emailLines_.size(), std::size(kEmails));
  for (std::size_t i = 0; i < places; ++i) TextOf(kEmails[i]) = EmailIn(emailLines_[i]);
}

Text Card::EmailIn(std::size_t line) const {
  return InOneLine(UnescapeText(lines_.lines()[line].value()));
}

void Card::Apply(const ContactChanges& changes) {
  ContactTexts wanted = texts_;
  for (const auto& [property, text] : changes) {
    if (text == TextOf(property)) continue;
    wanted[static_cast<std::size_t>(property)] = UnescapeText(EscapeText(InOneLine(text)));
  }
  const auto text = [&wanted](P property) -> const Text& {
    return wanted[static_cast<std::size_t>(property)];
  };
  const auto differs = [&](P property) { return text(property) != TextOf(property); };
  if (differs(P::FullName)) SetFullName(text(P::FullName));
  for (const P number : kNumberKinds) {
    if (differs(number)) SetNumber(number, text(number));
  }
  if (std::any_of(std::begin(kEmails), std::end(kEmails), differs)) SetEmails(wanted);
  if (differs(P::CompanyName)) SetCompany(text(P::CompanyName));
  SetAddresses(wanted);
  if (differs(P::WebPage)) SetWebPage(text(P::WebPage));
}

void Card::Add(const std::string& text, std::optional<std::size_t> after) {
  lines_.Insert(after ? *after + 1 : lines_.blocks()[0].end, {text});
  Survey();
}

// "item1.X-ABLabel" goes with the only line of its group.
void Card::Erase(std::vector<std::size_t> lines) {
  const std::size_t count = lines.size();
  for (std::size_t i = 0; i < count; ++i) {
    const auto labels = LabelsOf(lines[i]);
    lines.insert(lines.end(), labels.begin(), labels.end());
  }
  lines_.Erase(std::move(lines));
  Survey();
}

std::vector<std::size_t> Card::LabelsOf(std::size_t line) const {
  const std::string group = lines_.lines()[line].group();
  std::vector<std::size_t> labels;
  if (group.empty()) return labels;
  for (const std::size_t other : lines_.OwnLines(lines_.blocks()[0])) {
    if (other == line || lines_.lines()[other].group() != group) continue;
    if (!lines_.lines()[other].name.starts_with("X-AB")) return {};
    labels.push_back(other);
  }
  return labels;
}

// A line that says nothing goes, unless another of its kind would then stand for the property.
void Card::Write(P property, const std::string& head, const std::string& value) {
  const auto line = owned_.find(property);
  if (line == owned_.end()) {
    Add(head + ":" + value);
  } else if (value.empty() && doubled_.count(property) == 0) {
    Erase({line->second});
  } else {
    lines_.SetValue(line->second, value);
    Survey();
  }
}

std::string_view Card::ValueOf(P property) const {
  const auto line = owned_.find(property);
  return line == owned_.end() ? std::string_view() : lines_.lines()[line->second].value();
}

void Card::SetFullName(const Text& name) {
  const NameParts parts = PartsOf(name, names_);
  std::vector<std::string> components;
  if (nameLine_) components = SplitValue(lines_.lines()[*nameLine_].value(), ';');
  components.resize(std::max(components.size(), parts.size()));
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (parts[i] != names_[i]) components[i] = EscapeText(parts[i]);
  }
  const auto line = owned_.find(P::FullName);
  if (line != owned_.end()) {
    lines_.SetValue(line->second, EscapeText(name));
  } else {
    Add("FN:" + EscapeText(name));
  }
  if (!nameLine_) {
    Add("N:" + JoinValue(components, ';'));
  } else if (parts != names_) {
    lines_.SetValue(*nameLine_, JoinValue(components, ';'));
  }
  Survey();
}

void Card::SetNumber(P property, const Text& number) {
  const std::string value = EscapeText(number);
  const bool scheme = HasTelScheme(ValueOf(property)) || HasTelScheme(value);
  Write(property, NumberHead(property), scheme && !value.empty() ? "tel:" + value : value);
}

void Card::SetAddresses(const ContactTexts& wanted) {
  SetAddress(P::HomeAddressStreet, "ADR;TYPE=HOME", wanted);
  SetAddress(P::BusinessAddressStreet, "ADR;TYPE=WORK", wanted);
}

void Card::SetAddress(P street, const char* head, const ContactTexts& wanted) {
  std::vector<std::string> components = SplitValue(ValueOf(street), ';');
  components.resize(std::max(components.size(), kFirstPart + kAddressParts));
  bool changed = false;
  for (int part = 0; part < kAddressParts; ++part) {
    const P property = AddressPart(street, part);
    const Text& text = wanted[static_cast<std::size_t>(property)];
    if (text == TextOf(property)) continue;
    components[kFirstPart + static_cast<std::size_t>(part)] = EscapeText(text);
    changed = true;
  }
  if (changed) Write(street, head, Structured(components));
}

// A line keeps its address as long as that is wanted, and all that is the line's goes along to its
// new place; an address that is new takes the line of one that is not wanted any more. Lines that
// are left over go, unless a fourth address would then stand for a property. An empty place before
// a later address closes up.
void Card::SetEmails(const ContactTexts& wanted) {
  const std::size_t places = std::min(emailLines_.size(), std::size(kEmails));
  const bool hasFurther = emailLines_.size() > places;
  std::vector<std::size_t> left(emailLines_.begin(),
                                emailLines_.begin() + static_cast<std::ptrdiff_t>(places));
  std::vector<std::size_t> lines = TakeEmailLines(wanted, left);
  const std::size_t count = lines.size();
  lines.insert(lines.end(), left.begin(), left.end());
  lines_.Reorder(lines);
  std::sort(lines.begin(), lines.end());
  lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(count));
  if (!hasFurther) return Erase(lines);
  for (const std::size_t line : lines) lines_.SetValue(line, "");
  Survey();
}

// The lines of the wanted addresses in their order, out of `left` or new ones.
std::vector<std::size_t> Card::TakeEmailLines(const ContactTexts& wanted,
                                              std::vector<std::size_t>& left) {
  std::vector<std::optional<std::size_t>> taken;
  std::vector<Text> addresses;
  for (const P place : kEmails) {
    const Text& address = wanted[static_cast<std::size_t>(place)];
    if (address.empty()) continue;
    const auto same = std::find_if(left.begin(), left.end(),
                                   [&](std::size_t line) { return EmailIn(line) == address; });
    addresses.push_back(address);
    taken.push_back(same == left.end() ? std::nullopt : std::optional(*same));
    if (same != left.end()) left.erase(same);
  }
  std::vector<std::size_t> lines;
  for (std::size_t i = 0; i < addresses.size(); ++i) {
    lines.push_back(taken[i] ? *taken[i] : EmailLineFor(addresses[i], left));
  }
  return lines;
}

std::size_t Card::EmailLineFor(const Text& address, std::vector<std::size_t>& left) {
  if (left.empty()) {
    const std::string text = "EMAIL;TYPE=INTERNET:" + EscapeText(address);
    Add(text, emailLines_.empty() ? std::nullopt : std::optional(emailLines_.back()));
    return emailLines_.back();
  }
  const std::size_t line = left.front();
  left.erase(left.begin());
  lines_.SetValue(line, EscapeText(address));
  return line;
}

void Card::SetCompany(const Text& company) {
  auto components = SplitValue(ValueOf(P::CompanyName), ';');
  components[0] = EscapeText(company);
  Write(P::CompanyName, "ORG", Structured(components));
}

// An address of the web is no text: its commas and semicolons stand as they are.
void Card::SetWebPage(const Text& page) {
  Write(P::WebPage, "URL", ToUtf8(Replace(page, u"\\", u"\\\\")));
}

}  // namespace tessarin::outlook
