#pragma once

// A vCard (3.0 or 4.0) as a contact of Outlook: which of its lines hold which property.
//
//   FullName                 FN (N where there is none); writing it writes N as well
//   telephone numbers        the TEL of its kind, by TYPE in any order and case: WORK or nothing
//                            with FAX the business fax, CELL the mobile number, HOME, WORK, and
//                            one of no kind the other number
//   Email1- to Email3Address the first three EMAIL lines
//   CompanyName              the first component of ORG
//   WebPage                  the URL
//   addresses                components 3 to 7 of the ADR of TYPE HOME, of TYPE WORK
//
// Of several lines of a kind the preferred one counts (TYPE=PREF, PREF=1), else the first; when it
// is cleared it stays as an empty line, so that no other stands for the property. All other lines,
// parameters and components stay to the byte, and so do these while their value stays.

#include <map>
#include <optional>
#include <set>
#include <string>

#include "outlook/ContentLines.h"
#include "outlook/NameParts.h"
#include "outlook/Outlook.h"

namespace tessarin::outlook {

using ContactChanges = std::map<ContactProperty, Text>;

class Card {
 public:
  // None when the bytes are not one whole card of version 3.0 or 4.0.
  static std::optional<Card> Read(std::string_view bytes);
  // A new card of version 3.0 without any property but its UID.
  static Card New(const std::string& uid);

  std::string Bytes() const { return lines_.Bytes(); }
  // False for a group of contacts, which is no contact itself.
  bool IsItem() const { return !isGroup_; }
  // Empty when the card has none.
  const Text& uid() const { return uid_; }
  const ContactTexts& texts() const { return texts_; }
  const Text& firstName() const { return names_[kGiven]; }
  const Text& lastName() const { return names_[kFamily]; }

  // Empty text clears a property.
  void Apply(const ContactChanges& changes);

 private:
  explicit Card(ContentLines lines) : lines_(std::move(lines)) {}

  // Finds the lines of every property and reads their values.
  void Survey();
  void Note(std::size_t line);
  void NoteNumber(std::size_t line);
  void NoteAddress(std::size_t line);
  void NoteName();
  void NoteEmails();
  Text EmailIn(std::size_t line) const;
  void Own(ContactProperty property, std::size_t line, Text value);
  Text& TextOf(ContactProperty property);

  void SetFullName(const Text& name);
  void SetNumber(ContactProperty property, const Text& number);
  void SetAddresses(const ContactTexts& wanted);
  void SetAddress(ContactProperty street, const char* head, const ContactTexts& wanted);
  void SetEmails(const ContactTexts& wanted);
  std::vector<std::size_t> TakeEmailLines(const ContactTexts& wanted,
                                          std::vector<std::size_t>& left);
  std::size_t EmailLineFor(const Text& address, std::vector<std::size_t>& left);
  void SetCompany(const Text& company);
  void SetWebPage(const Text& page);

  // The value of the property's line as it is written; empty when there is none.
  std::string_view ValueOf(ContactProperty property) const;
  // Gives the property's line that value. A line that is missing is added with that head.
  void Write(ContactProperty property, const std::string& head, const std::string& value);
  // Adds a line at the card's end, behind `after` when that is a line.
  void Add(const std::string& text, std::optional<std::size_t> after = {});
  void Erase(std::vector<std::size_t> lines);
  std::vector<std::size_t> LabelsOf(std::size_t line) const;

  ContentLines lines_;
  bool isGroup_ = false;
  Text uid_;
  ContactTexts texts_;
  NameParts names_;
  std::map<ContactProperty, std::size_t> owned_;
  std::set<ContactProperty> doubled_;    // there are further lines of that kind
  std::optional<std::size_t> nameLine_;  // N
  std::vector<std::size_t> emailLines_;  // all of them
};

}  // namespace tessarin::outlook
