#include "codecs/vcard.h"

#include <gtest/gtest.h>

#include "codecs/modHexStr.h"

namespace tessarin {
namespace {

using Records = std::vector<PhoneBookRecord>;

Records Decode(const Text& text, int count) {
  Records records(7);  // what an earlier decoding left counts for nothing
  vcard::DecodeVCards(text, count, records);
  return records;
}

Text Card(const Text& lines) {
  return u"BEGIN:VCARD\r\nVERSION:2.1\r\n" + lines + u"\r\nEND:VCARD\r\n";
}

// The one card with that name line and one property that nothing reads.
Text NameOf(const Text& line) { return Decode(Card(line + u"\r\nX-A:"), 1).at(0).Name.Trimmed(); }

// The one card with these properties.
PhoneBookRecord Properties(const Text& lines) { return Decode(Card(u"N:;\r\n" + lines), 1).at(0); }

Text Zero() { return Text(1, u'\0'); }

TEST(VCardDecoder, ReadsACardOfThePhone) {
  const Text card =
      u"BEGIN:VCARD\r\n"
      u"VERSION:2.1\r\n"
      u"N;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=D0=91=D0=B5=D0=BB=D0=BE=D0=B2;Ana\r\n"
      u"TITLE:Dr.\r\n"
      u"ORG;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=E6=B1=89=\r\n"
      u"=E8=AF=AD Ltd\r\n"
      u"TEL;HOME:+441\r\n"
      u"TEL;WORK;ENCODING=QUOTED-PRINTABLE:2=33\r\n"
      u"TEL;CELL:3\r\n"
      u"TEL;FAX:4:5\r\n"
      u"TEL:6\r\n"
      u"EMAIL;INTERNET;PREF:a@b.example\r\n"
      u"URL:http://a.example:8080/\r\n"
      u"ADR;HOME;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:box;ext;=C3=89 1;Rome;RM;00100;Italy;x\r\n"
      u"ADR;WORK:;;Work 2;Oslo\r\n"
      u"NOTE:none\r\n"
      u"X-IRMC-LUID:00000100002A\r\n"
      u"END:VCARD\r\n" +
      Zero();
  const auto records = Decode(card, 1);
  ASSERT_EQ(records.size(), 1u);
  PhoneBookRecord expected;
  expected.Name = u"Ana Белов" + Zero();
  expected.Title = u"Dr.";
  expected.Org = u"汉语" + Zero() + u" Ltd";
  expected.TelHome = u"+441";
  expected.TelWork = u"2=33";  // a number is never decoded
  expected.TelCell = u"3";
  expected.TelFax = u"4";
  expected.TelOther = u"6";
  expected.Email1 = u"a@b.example";
  expected.Url = u"http://a.example:8080/";
  expected.HomeStreet = u"É" + Zero() + u" 1";
  expected.HomeCity = u"Rome";
  expected.HomeState = u"RM";
  expected.HomeZip = u"00100";
  expected.HomeCountry = u"Italy";
  expected.WorkStreet = u"Work 2";
  expected.WorkCity = u"Oslo";
  expected.Note = u"none";
  expected.Luid = u"00000100002A";
  EXPECT_TRUE(records[0] == expected);
}

TEST(VCardDecoder, ReadsNameLines) {
  const struct {
    Text line;
    Text name;
  } cases[] = {
      {u"N:Family;Given", u"Given Family"},
      {u"N:;Given", u"Given"},
      {u"N:Family;", u"Family"},
      {u"N:Family", u""},  // no semicolon: a property that nothing reads
      {u"N:Family;Given;;;", u"FamilyGiven"},
      {u"N;CHARSET=UTF-8:Family;Given", u"Given Family"},
      {u"N;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=C3=A9;=C3=A8", u"è" + Zero() + u" é" + Zero()},
      {u"N;ENCODING=QUOTED-PRINTABLE:Fam=\r\n=C3=A9;G=\r\n=C3=A8",
       u"Gè" + Zero() + u" Famé" + Zero()},
      {u"N;X=1:Family;Given", u"Given X=1:Family"},
      {u"N;LANGUAGE=en:;Given", u"Given LANGUAGE=en:"},
  };
  for (const auto& c : cases) EXPECT_EQ(NameOf(c.line), c.name) << ToUtf8(c.line);
  EXPECT_EQ(NameOf(u"N:;" + Text(70, u'x')).size(), 62u);
}

TEST(VCardDecoder, ReadsQuotedPrintable) {
  const struct {
    Text lines;
    Text note;
  } cases[] = {
      {u"NOTE:=C3=A9=\r\n=C3=A8", u"éè" + Zero()},
      {u"NOTE:a=41=42b=43", u"aAB" + Zero() + u"bC" + Zero()},
      {u"NOTE;ENCODING=QUOTED-PRINTABLE:plain", u"plain"},
      {u"NOTE:a=", u"a"},
      {u"NOTE:=", u""},
      {u"NOTE:=4", Zero()},  // half a pair
      {u"NOTE:=C3x", u"\uFFFD" + Zero() + u"x"},
      // A soft break is no escape of its own: the two characters behind it are taken for digits.
      {u"NOTE:=41one=\r\ntwo", u"A" + Zero() + u"one" + Zero() + Zero() + u"o"},
      {u"NOTE:=ZZ", Zero() + Zero()},
      {u"NOTE:=Ж1", Zero() + Zero()},
      {u"NOTE:behind:the=41", u"the" + Text(u"A") + Zero()},
      {u"NOTE:one\r\ntwo\r\nthree", u"onetwothree"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Properties(c.lines).Note.Trimmed(), c.note) << ToUtf8(c.lines);
  }
}

TEST(VCardDecoder, KnowsItsKeysExactly) {
  const auto record = Properties(
      u"TEL;PREF;HOME:1\r\nTEL;HOME;PREF:2\r\nTel;WORK:3\r\nTEL;CELL;ENCODING=QUOTED-PRINTABLE:"
      u"4\r\n"
      u"X-IRMC-LUID;X:5\r\nORGANIC:6\r\nURLX;A=B:7:8\r\nADR:;;9\r\nTEL;FAX;CHARSET=UTF-8:10");
  PhoneBookRecord expected;
  expected.TelCell = u"4";
  expected.Org = u"6";  // known by how the key begins
  expected.Url = u"7:8";
  EXPECT_TRUE(record == expected);
  EXPECT_EQ(Properties(u"URL:http://a.example/?q=41&x").Url.Trimmed(),
            u"//a.example/?q" + Text(u"A") + Zero() + u"&x");
  EXPECT_EQ(Properties(u"ADR;HOME;ENCODING=QUOTED-PRINTABLE:;;=41;B;;;").HomeStreet.Trimmed(),
            u"A" + Zero());
  EXPECT_EQ(Properties(u"ADR;WORK:;;S").WorkCity.Trimmed(), u"");
  EXPECT_EQ(Properties(u"ADR;WORK:;").WorkStreet.Trimmed(), u"");
}

TEST(VCardDecoder, CountsEmailsAcrossCards) {
  const auto Addresses = [](const PhoneBookRecord& record) {
    return record.Email1.Trimmed() + u"|" + record.Email2.Trimmed() + u"|" +
           record.Email3.Trimmed();
  };
  const auto records = Decode(Card(u"N:;a\r\nEMAIL:a1") +
                                  Card(u"N:;b\r\nEMAIL;INTERNET:b1\r\nEMAILS:b2\r\nEMAIL:b3") +
                                  Card(u"N:;c\r\nEMAIL:=63=31\r\nEMAIL:c2") +
                                  Card(u"N:;d\r\nEMAIL:d1\r\nEMAIL:d2\r\nEMAIL:d3\r\nEMAIL:d4"),
                              4);
  ASSERT_EQ(records.size(), 4u);
  EXPECT_EQ(Addresses(records[0]), u"a1||");
  EXPECT_EQ(Addresses(records[1]), u"b3|b1|b2");
  EXPECT_EQ(Addresses(records[2]), u"|c2|c1" + Zero());
  EXPECT_EQ(Addresses(records[3]), u"d2|d3|d4");
}

TEST(VCardDecoder, EndsWithTheText) {
  const Text a = Card(u"N:;a\r\nTEL:1"), b = Card(u"N:;b\r\nTEL:2"), c = Card(u"N:;c\r\nTEL:3");
  const struct {
    Text text;
    int count;
    std::vector<Text> names;
  } cases[] = {
      {a + b + c, 65535, {u"a", u"b", u"c"}},
      {a + b + c + Zero(), 65535, {u"a", u"b", u"c"}},
      {a + b + c, 2, {u"a", u"b"}},
      {a + b, 0, {}},
      {u"", 3, {}},
      {u"BEGIN:VCARD\r\nVERSION:2.1", 1, {}},
      {a + u"BEGIN:VCARD\r\nVERSION:2.1\r\nN:;cut\r\nTEL:9\r\nTEL;HO", 2, {u"a", u"cut"}},
      {a + u"BEGIN:VCARD\r\nVERSION:2.1\r\nN:;cut", 2, {u"a", u""}},
      // Without its end a card runs into the next, without VERSION it loses its name, and one of
      // nothing but a name takes the next card's lines.
      {u"BEGIN:VCARD\r\nVERSION:2.1\r\nN:;lost\r\nTEL:9\r\n" + b + c, 3, {u"lost", u"c"}},
      {u"BEGIN:VCARD\r\nN:;lost\r\nTEL:9\r\nEND:VCARD\r\n" + b, 2, {u"", u"b"}},
      {Card(u"N:;lost") + b + c, 3, {u"lost", u"c"}},
  };
  for (const auto& testCase : cases) {
    std::vector<Text> names;
    for (const auto& record : Decode(testCase.text, testCase.count)) {
      names.push_back(record.Name.Trimmed());
    }
    EXPECT_EQ(names, testCase.names) << ToUtf8(testCase.text);
  }
  const auto cut = Decode(a + u"BEGIN:VCARD\r\nVERSION:2.1\r\nN:;cut\r\nTEL:9\r\nTEL;HO", 2);
  EXPECT_EQ(cut.at(1).TelOther.Trimmed(), u"");  // whether that line went on is not known
}

std::string Written(const PhoneBookRecord& record) {
  const Bytes bytes = modHexStr::HexToBytes(vcard::EncodeVCard(record));
  return {bytes.begin(), bytes.end() - 1};
}

TEST(VCardEncoder, WritesEveryLine) {
  PhoneBookRecord r;
  EXPECT_EQ(Written(r), "BEGIN:VCARD\r\nVERSION:2.1\r\nN;CHARSET=ISO-8859-1:;\r\nEND:VCARD\r\n");
  EXPECT_EQ(vcard::EncodeVCard(r).substr(0, 26), "424547494E3A56434152440D0A");
  r.Name = u"  José da Silva ";
  r.Title = u"Dr.";
  r.Org = u"Белов";
  r.TelHome = u"1";
  r.TelWork = u"2";
  r.TelCell = u"3";
  r.TelFax = u"4";
  r.TelOther = u"5";
  r.EmailPref = u"a@b";
  r.Email1 = u"not@written";
  r.Email2 = u"c@d";
  r.Email3 = u"e@f";
  r.Url = u"http://a.example/";
  r.HomeStreet = u"Rue Réaumur 1";
  r.HomeCountry = u"Україна";
  r.WorkStreet = u"Work";
  r.WorkZip = u"汉";
  r.Note = u"ÿ";
  r.Luid = u"00000100002A";
  EXPECT_EQ(Written(r),
            "BEGIN:VCARD\r\nVERSION:2.1\r\n"
            "N;CHARSET=ISO-8859-1:;Jos\xE9 da Silva\r\n"
            "TITLE;CHARSET=ISO-8859-1:Dr.\r\n"
            "ORG;CHARSET=UTF-7:+BBEENQQ7BD4EMg-\r\n"
            "TEL;WORK:2\r\nTEL;HOME:1\r\nTEL;CELL:3\r\nTEL;FAX:4\r\nTEL:5\r\n"
            "EMAIL;INTERNET;PREF;CHARSET=UTF-7:a@b\r\n"
            "EMAIL;INTERNET;CHARSET=UTF-7:c@d\r\n"
            "EMAIL;INTERNET;CHARSET=UTF-7:e@f\r\n"
            "URL;CHARSET=UTF-7:http://a.example/\r\n"
            "ADR;HOME;CHARSET=UTF-7:;;Rue R\xE9"
            "aumur 1;;;;+BCMEOgRABDAEVwQ9BDA-\r\n"
            "ADR;WORK;CHARSET=UTF-7:;;Work;;;+bEk-;\r\n"
            "NOTE;CHARSET=ISO-8859-1:\xFF\r\n"
            "END:VCARD\r\n");
}

TEST(VCardEncoder, WritesNamesBeyondOneByteInUtf7) {
  PhoneBookRecord r;
  r.Name = u"Ж+ \U0001F600";
  EXPECT_EQ(Written(r),
            "BEGIN:VCARD\r\nVERSION:2.1\r\nN;CHARSET=UTF-7:;+BBYAKw- +2D3eAA-\r\nEND:VCARD\r\n");
}

// When each of the address lines is there, and what the work street goes by.
TEST(VCardEncoder, KeepsTheOdditiesOfTheWorkAddress) {
  using Field = FixedText<25> PhoneBookRecord::*;
  const struct {
    std::vector<std::pair<Field, Text>> fields;
    const char* lines;
  } cases[] = {
      {{{&PhoneBookRecord::WorkCity, u"Oslo"}}, ""},
      {{{&PhoneBookRecord::WorkStreet, u"W"}}, "ADR;WORK;CHARSET=UTF-7:;;W;;;;\r\n"},
      {{{&PhoneBookRecord::HomeStreet, u"H"}}, "ADR;HOME;CHARSET=UTF-7:;;H;;;;\r\n"},
      {{{&PhoneBookRecord::HomeStreet, u"H"}, {&PhoneBookRecord::WorkCity, u"Oslo"}},
       "ADR;HOME;CHARSET=UTF-7:;;H;;;;\r\n"},
      {{{&PhoneBookRecord::HomeZip, u"1"}},
       "ADR;HOME;CHARSET=UTF-7:;;;;;1;\r\nADR;WORK;CHARSET=UTF-7:;;;;;;\r\n"},
      {{{&PhoneBookRecord::HomeState, u"S"}, {&PhoneBookRecord::WorkCity, u"Oslo"}},
       "ADR;HOME;CHARSET=UTF-7:;;;;S;;\r\nADR;WORK;CHARSET=UTF-7:;;;Oslo;;;\r\n"},
      {{{&PhoneBookRecord::HomeStreet, u"Ж"}, {&PhoneBookRecord::WorkStreet, u"W+"}},
       "ADR;HOME;CHARSET=UTF-7:;;+BBY-;;;;\r\nADR;WORK;CHARSET=UTF-7:;;W+-;;;;\r\n"},
      // U+6C49 unit by unit, for the home street is empty.
      {{{&PhoneBookRecord::WorkStreet, u"汉"}}, "ADR;WORK;CHARSET=UTF-7:;;lI;;;;\r\n"},
  };
  for (const auto& c : cases) {
    PhoneBookRecord record;
    for (const auto& [field, value] : c.fields) record.*field = value;
    EXPECT_EQ(Written(record), std::string("BEGIN:VCARD\r\nVERSION:2.1\r\n"
                                           "N;CHARSET=ISO-8859-1:;\r\n") +
                                   c.lines + "END:VCARD\r\n");
  }
}

TEST(VCardEncoder, WritesPlainValuesUnitByUnit) {
  PhoneBookRecord r;
  r.EmailPref = u"é€";
  EXPECT_NE(vcard::EncodeVCard(r).find("3AE920AC0D0A"), std::string::npos);
}

}  // namespace
}  // namespace tessarin
