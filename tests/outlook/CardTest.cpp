// vCards as contacts: what is read from cards of every making, and which bytes an edit changes.

#include "outlook/Card.h"

#include <gtest/gtest.h>

namespace tessarin::outlook {
namespace {

using P = ContactProperty;

constexpr char kForeign[] =
    "BEGIN:VCARD\r\n"
    "VERSION:3.0\r\n"
    "PRODID:-//Another//EN\r\n"
    "UID:urn:uuid:4fbe8971-0bc3-424c-9c26-36c3e1eff6b1\r\n"
    "X-ODD;X-P=\"a:b;c\":kept\r\n"
    "item1.TEL;type=pref;TYPE=home:+44 1\r\n"
    "item1.X-ABLabel:Home\r\n"
    "tel;TYPE=\"WORK,VOICE\":+44 2\r\n"
    "TEL;CELL:+44 3\r\n"
    "TEL;TYPE=fax,work:+44 4\r\n"
    "TEL;TYPE=HOME,FAX:+44 5\r\n"
    "TEL;TYPE=PAGER:+44 6\r\n"
    "TEL:+44 7\r\n"
    "TEL;TYPE=HOME:+44 8\r\n"
    "N:Berg;Anna;Maria;Dr.;\r\n"
    "FN:Dr. Anna Mar\r\n"
    " ia Berg\r\n"
    "EMAIL;TYPE=WORK:anna@example.org\r\n"
    "EMAIL:berg@example.org\r\n"
    "ORG:Berg\\, S\xC3\xB6hne;Sales\r\n"
    "ADR;TYPE=HOME,PREF:;Flat 2;1 High Street\\n2nd floor;London;;N1;UK\r\n"
    "ADR:;;Elsewhere 1;;;;\r\n"
    "URL:http://example.org/a;b,c\r\n"
    "PHOTO;ENCODING=b:AAAA\r\n"
    " BBBB\r\n"
    "NOTE:\r\n"
    "END:VCARD\r\n";

Card Foreign() { return *Card::Read(kForeign); }

Text Of(const Card& card, P property) { return card.texts()[static_cast<std::size_t>(property)]; }

std::string Replaced(std::string bytes, const std::string& from, const std::string& to) {
  const auto at = bytes.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return at == std::string::npos ? bytes : bytes.replace(at, from.size(), to);
}

TEST(CardTest, ReadsPropertiesWhateverTheirOrderCaseAndFolding) {
  const Card card = Foreign();
  EXPECT_EQ(card.uid(), u"urn:uuid:4fbe8971-0bc3-424c-9c26-36c3e1eff6b1");
  const std::pair<P, Text> expected[] = {
      {P::FullName, u"Dr. Anna Maria Berg"},
      {P::HomeTelephoneNumber, u"+44 1"},
      {P::BusinessTelephoneNumber, u"+44 2"},
      {P::MobileTelephoneNumber, u"+44 3"},
      {P::BusinessFaxNumber, u"+44 4"},
      {P::OtherTelephoneNumber, u"+44 7"},
      {P::Email1Address, u"anna@example.org"},
      {P::Email2Address, u"berg@example.org"},
      {P::Email3Address, u""},
      {P::CompanyName, u"Berg, Söhne"},
      {P::WebPage, u"http://example.org/a;b,c"},
      {P::HomeAddressStreet, u"1 High Street, 2nd floor"},
      {P::HomeAddressCity, u"London"},
      {P::HomeAddressPostalCode, u"N1"},
      {P::HomeAddressCountry, u"UK"},
      {P::BusinessAddressStreet, u""},
  };
  for (const auto& [property, text] : expected) {
    EXPECT_EQ(Of(card, property), text) << static_cast<int>(property);
  }
  EXPECT_EQ(card.firstName(), u"Anna");
  EXPECT_EQ(card.lastName(), u"Berg");
  EXPECT_EQ(card.Bytes(), kForeign);
}

TEST(CardTest, AnEditChangesItsOwnLinesAndNoOtherByte) {
  struct Edit {
    ContactChanges changes;
    std::string from, to;
  };
  const std::string longNumber(80, '1');
  const Edit edits[] = {
      {{{P::HomeTelephoneNumber, u"9"}},
       "item1.TEL;type=pref;TYPE=home:+44 1",
       "item1.TEL;type=pref;TYPE=home:9"},
      {{{P::MobileTelephoneNumber, u""}}, "TEL;CELL:+44 3\r\n", ""},
      {{{P::FullName, u"Bo Ek"}},
       "N:Berg;Anna;Maria;Dr.;\r\nFN:Dr. Anna Mar\r\n ia Berg\r\n",
       "N:Ek;Bo;;;\r\nFN:Bo Ek\r\n"},
      {{{P::FullName, u"Dr. Anna Maria Bergh"}},
       "N:Berg;Anna;Maria;Dr.;\r\nFN:Dr. Anna Mar\r\n ia Berg\r\n",
       "N:Bergh;Anna;Maria;Dr.;\r\nFN:Dr. Anna Maria Bergh\r\n"},
      {{{P::CompanyName, u""}}, "ORG:Berg\\, S\xC3\xB6hne;Sales", "ORG:;Sales"},
      {{{P::HomeAddressCity, u"Leeds; North"}}, ";London;", ";Leeds\\; North;"},
      {{{P::BusinessAddressCity, u"Rom"}}, "END:VCARD", "ADR;TYPE=WORK:;;;Rom;;;\r\nEND:VCARD"},
      {{{P::Email1Address, u"berg@example.org"}, {P::Email2Address, u""}},
       "EMAIL;TYPE=WORK:anna@example.org\r\n",
       ""},
      {{{P::Email3Address, u"c@example.org"}},
       "EMAIL:berg@example.org\r\n",
       "EMAIL:berg@example.org\r\nEMAIL;TYPE=INTERNET:c@example.org\r\n"},
      {{{P::Email1Address, u""}, {P::Email3Address, u"berg@example.org"}, {P::Email2Address, u""}},
       "EMAIL;TYPE=WORK:anna@example.org\r\n",
       ""},
      {{{P::WebPage, u"http://x.org/?a,b"}}, "http://example.org/a;b,c", "http://x.org/?a,b"},
      {{{P::OtherTelephoneNumber, FromUtf8(longNumber)}},
       "\r\nTEL:+44 7",
       "\r\nTEL:" + longNumber.substr(0, 71) + "\r\n " + longNumber.substr(71)},
      {{{P::BusinessFaxNumber, u"+44 4"}}, "", ""},
  };
  for (const Edit& edit : edits) {
    Card card = Foreign();
    card.Apply(edit.changes);
    EXPECT_EQ(card.Bytes(), Replaced(kForeign, edit.from, edit.to));
    const auto again = Card::Read(card.Bytes());
    ASSERT_TRUE(again);
    EXPECT_EQ(again->texts(), card.texts());
  }
}

// What the phone knows of a contact is written over and over, empty fields too.
TEST(CardTest, AClearedPropertyReadsEmptyAndNoOtherLineTakesItsPlace) {
  const std::string doubled =
      "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:A\r\nTEL;TYPE=HOME:1\r\nTEL;TYPE=HOME:2\r\n"
      "TEL;TYPE=CELL:3\r\nTEL;TYPE=CELL,PREF:4\r\n"
      "ADR;TYPE=WORK:;;Street;;;;\r\nADR;TYPE=WORK:;;Other street;;;;\r\n"
      "ORG:X\r\nORG:Y\r\nURL:http://x.org\r\nURL:http://y.org\r\n"
      "EMAIL:a\r\nEMAIL:b\r\nEMAIL:c\r\nEMAIL:d\r\nEND:VCARD\r\n";
  struct Case {
    P property;
    std::string from, to;
    P empty;
  };
  const Case cases[] = {
      {P::HomeTelephoneNumber, "HOME:1", "HOME:", P::HomeTelephoneNumber},
      {P::MobileTelephoneNumber, "CELL,PREF:4", "CELL,PREF:", P::MobileTelephoneNumber},
      {P::BusinessAddressStreet, "ADR;TYPE=WORK:;;Street;;;;",
       "ADR;TYPE=WORK:", P::BusinessAddressStreet},
      {P::CompanyName, "ORG:X", "ORG:", P::CompanyName},
      {P::WebPage, "URL:http://x.org", "URL:", P::WebPage},
      {P::Email2Address, "EMAIL:b\r\nEMAIL:c\r\n", "EMAIL:c\r\nEMAIL:\r\n", P::Email3Address},
  };
  for (const Case& c : cases) {
    Card card = *Card::Read(doubled);
    ContactChanges record;
    for (std::size_t i = 0; i < kContactProperties; ++i) {
      record[static_cast<P>(i)] = card.texts()[i];
    }
    record[c.property] = u"";
    for (int run = 0; run < 2; ++run) {
      card.Apply(record);
      EXPECT_EQ(card.Bytes(), Replaced(doubled, c.from, c.to));
      EXPECT_EQ(Of(card, c.empty), u"") << c.to;
    }
  }
}

TEST(CardTest, LinesOfEmailAddressesMoveWithThem) {
  const std::string lines[] = {"item1.EMAIL;TYPE=WORK:a\r\n", "EMAIL;TYPE=HOME:b\r\n",
                               "item1.X-ABLabel:office\r\n"};
  const std::string begin = "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:A\r\n", end = "END:VCARD\r\n";
  struct Case {
    Text first, second, third;
    std::string expected;
  };
  const Case cases[] = {
      {u"b", u"", u"a", lines[1] + lines[0] + lines[2]},
      {u"b", u"x", u"", lines[1] + "item1.EMAIL;TYPE=WORK:x\r\n" + lines[2]},
      {u"x", u"b", u"", "item1.EMAIL;TYPE=WORK:x\r\n" + lines[1] + lines[2]},
      {u"x", u"a", u"b", "EMAIL;TYPE=INTERNET:x\r\n" + lines[0] + lines[1] + lines[2]},
      {u"", u"b", u"", lines[1]},
      {u"a", u"a", u"b", lines[0] + "EMAIL;TYPE=INTERNET:a\r\n" + lines[1] + lines[2]},
  };
  for (const Case& c : cases) {
    Card card = *Card::Read(begin + lines[0] + lines[1] + lines[2] + end);
    card.Apply(
        {{P::Email1Address, c.first}, {P::Email2Address, c.second}, {P::Email3Address, c.third}});
    EXPECT_EQ(card.Bytes(), begin + c.expected + end);
  }
}

TEST(CardTest, PartsOfANameThatStandInItStay) {
  struct Case {
    Text full;
    std::string before, after;
  };
  const Case cases[] = {
      {u"Dr. Anna Maria Bergh", "Berg;Anna;Maria;Dr.;", "Bergh;Anna;Maria;Dr.;"},
      {u"Dr. Anne Maria Berg", "Berg;Anna;Maria;Dr.;", "Berg;Anne;Maria;Dr.;"},
      {u"Dr. Anna Mario Berg", "Berg;Anna;Maria;Dr.;", "Berg;Anna;Mario;Dr.;"},
      {u"Anna Maria Berg jr.", "Berg;Anna;Maria;Dr.;jr.", "Berg;Anna;Maria;;jr."},
      {u"Ann van der Berg", "van der Berg;Anna;;;", "van der Berg;Ann;;;"},
      {u"Anna van den Berg", "van der Berg;Anna;;;", "van den Berg;Anna;;;"},
      {u"Berg Bo", "Berg;Anna;;;", "Berg;Bo;;;"},
      {u"Bergmann Anna", "Berg;Anna;;;", "Bergmann;Anna;;;"},
      {u"Anna", "Berg;Anna;Maria;;", ";Anna;;;"},
      {u"Dr. Berg", "Berg;Anna\\, B.,Bo;;Dr.;", "Berg;;;Dr.;"},
      {u"Bo Ek", "Berg;Anna;Maria;Dr.;", "Ek;Bo;;;"},
      {u"Bo", "Berg;Anna", ";Bo;;;"},
      {u"", "Berg;Anna;Maria;Dr.;jr.", ";;;;"},
  };
  for (const Case& c : cases) {
    const std::string begin = "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:?\r\nN:";
    Card card = *Card::Read(begin + c.before + "\r\nEND:VCARD\r\n");
    card.Apply({{P::FullName, c.full}});
    EXPECT_EQ(card.Bytes(), Replaced(begin, "?", ToUtf8(c.full)) + c.after + "\r\nEND:VCARD\r\n");
  }
}

TEST(CardTest, KeepsLineEndsByteOrderMarkAndTheFormsOfVersionFour) {
  const std::string four =
      "\xEF\xBB\xBF"
      "begin:vcard \nversion:4.0 \nFN:A\n\nTEL;VALUE=uri;TYPE=\"cell,voice\":tel:+1-555\nend:VCard";
  Card card = *Card::Read(four);
  EXPECT_EQ(Of(card, P::MobileTelephoneNumber), u"+1-555");
  EXPECT_EQ(card.Bytes(), four);
  card.Apply({{P::MobileTelephoneNumber, u"+1-556"}, {P::WebPage, u"http://x.org"}});
  EXPECT_EQ(card.Bytes(), Replaced(Replaced(four, "555", "556"), "end:", "URL:http://x.org\nend:"));
}

// Some programs count bytes when they fold, and cut characters in two.
TEST(CardTest, AFoldInsideACharacterIsNoDamage) {
  const std::string cut =
      "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:S\xC3\r\n \xB6hne\r\nTEL:1\r\nEND:VCARD\r\n";
  Card card = *Card::Read(cut);
  EXPECT_EQ(Of(card, P::FullName), u"Söhne");
  card.Apply({{P::OtherTelephoneNumber, u"2"}});
  EXPECT_EQ(card.Bytes(), Replaced(cut, "TEL:1", "TEL:2"));
}

TEST(CardTest, ANewCardHoldsWhatItWasGiven) {
  ContactChanges changes;
  for (std::size_t i = 0; i < kContactProperties; ++i) {
    changes.emplace(static_cast<P>(i), u"Ü \\ " + ToText(static_cast<long long>(i)));
  }
  Card card = Card::New("id");
  card.Apply(changes);
  const auto again = Card::Read(card.Bytes());
  ASSERT_TRUE(again);
  EXPECT_EQ(again->uid(), u"id");
  for (const auto& [property, text] : changes) EXPECT_EQ(Of(*again, property), text);
  // The bytes of a folded line are cut between characters, so each line is UTF-8 of its own.
  card.Apply({{P::FullName, Text(100, u'日')}});
  for (const Text& line : Split(FromUtf8(card.Bytes()), u"\r\n")) {
    EXPECT_LE(ToUtf8(line).size(), 75u);
    EXPECT_EQ(line.find(kReplacement), Text::npos);
  }
  for (auto& change : changes) change.second = u"";
  card.Apply(changes);
  EXPECT_EQ(card.Bytes(),
            "BEGIN:VCARD\r\nVERSION:3.0\r\nPRODID:-//Tessarin//EN\r\nUID:id\r\nFN:\r\nN:;;;;\r\n"
            "END:VCARD\r\n");
}

TEST(CardTest, ACardWithoutANameHasItsLinesAllTheSame) {
  Card card = Card::New("id");
  card.Apply({{P::FullName, u""}, {P::HomeTelephoneNumber, u"1"}});
  EXPECT_EQ(card.Bytes(),
            "BEGIN:VCARD\r\nVERSION:3.0\r\nPRODID:-//Tessarin//EN\r\nUID:id\r\nFN:\r\nN:;;;;\r\n"
            "TEL;TYPE=HOME:1\r\nEND:VCARD\r\n");
}

TEST(CardTest, GroupsAreToldAndDamagedFilesRefused) {
  EXPECT_FALSE(Card::Read("BEGIN:VCARD\nVERSION:4.0\nKIND:group\nFN:x\nEND:VCARD\n")->IsItem());
  const std::string broken[] = {
      "",
      "\r\n",
      "BEGIN:VCARD\nVERSION:3.0\nFN:x\n",
      "BEGIN:VCARD\nVERSION:3.0\nno colon\nEND:VCARD\n",
      "BEGIN:VCARD\nVERSION:2.1\nN:x\nEND:VCARD\n",
      "BEGIN:VCARD\nVERSION:3.0\nFN:\xFF\nEND:VCARD\n",
      "BEGIN:VCARD\nVERSION:3.0\nEND:VEVENT\n",
      "FN:x\nBEGIN:VCARD\nVERSION:3.0\nEND:VCARD\n",
      "BEGIN:VCARD\nVERSION:3.0\nEND:VCARD\nBEGIN:VCARD\nVERSION:3.0\nEND:VCARD\n",
      "BEGIN:VCALENDAR\nVERSION:2.0\nEND:VCALENDAR\n",
      " BEGIN:VCARD\nEND:VCARD\n",
  };
  for (const std::string& bytes : broken) EXPECT_FALSE(Card::Read(bytes)) << bytes;
}

}  // namespace
}  // namespace tessarin::outlook
