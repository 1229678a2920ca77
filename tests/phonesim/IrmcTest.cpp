#include <gtest/gtest.h>

#include <array>

#include "phonesim/SampleContent.h"
#include "tests/phonesim/IrmcBench.h"

namespace phonesim {
namespace {

const std::string kHead = "BEGIN:VCARD\r\nVERSION:2.1\r\n";
const std::string kTail = "END:VCARD\r\n";

class IrmcTest : public IrmcBench {
 protected:
  Fields Contact(const std::string& luid) {
    return phone.GetMemory().With([&](Books& books) {
      const Fields* found = books.contacts.Find(luid);
      return found == nullptr ? Fields() : *found;
    });
  }
  void Fill(const std::vector<Fields>& contacts) {
    phone.GetMemory().With([&](Books& books) { books.contacts.Fill(contacts); });
  }
};

TEST_F(IrmcTest, AnEntryFromAddToDelete) {
  ConnectSync();
  const std::string object = kHead + "N;CHARSET=ISO-8859-1:;Anna\r\nTEL;CELL:+1\r\n" + kTail;
  EXPECT_EQ(Put("telecom/pb/luid/.vcf", object),
            "A0 00 17 4C 00 14 01 0C " + ToHex(ToBytes("000100000001")) + " 02 01 31");
  EXPECT_EQ(Contact("000100000001"), (Fields{{"given", "Anna"}, {"cell", "+1"}}));
  EXPECT_EQ(Get("telecom/pb/luid/cc.log"), "A0 00 09 49 00 06 31 0D 0A");
  EXPECT_EQ(Put("telecom/pb/luid/000100000001.vcf", kHead + "N:Berg;Anna\r\n" + kTail).substr(0, 2),
            "A0");
  EXPECT_EQ(Download("telecom/pb.vcf"),
            kHead + "N:Berg;Anna\r\nX-IRMC-LUID:000100000001\r\n" + kTail);
  EXPECT_EQ(Download("telecom/pb/luid/000100000001.vcf"), Download("telecom/pb.vcf"));
  EXPECT_EQ(Talk("82 0050 01 0045" + NameDigits("telecom/pb/luid/000100000001.vcf") +
                 "4C 0008 4C00051200")
                .substr(0, 2),
            "A0");
  EXPECT_EQ(Download("telecom/pb.vcf"), "");
  EXPECT_EQ(Download("telecom/pb/luid/cc.log"), "3\r\n");
  EXPECT_EQ(Put("telecom/pb/luid/.vcf", object).substr(24, 35), ToHex(ToBytes("000100000002")))
      << "no identifier comes back";
  EXPECT_EQ(Download("telecom/pb/luid/2.log"),
            "Total-Records:1\r\nMaximum-Records:510\r\nIEL:8\r\nHD:YES\r\nSAT:CC\r\nDID:0C01\r\n"
            "H:3::000100000001\r\nM:4::000100000002\r\n");
  EXPECT_EQ(Download("telecom/pb/luid/9.log").substr(71), "*\r\n");
  EXPECT_EQ(Talk("81 00 03"), "A0 00 03 0D 0A 4F 4B 0D 0A");
  ExpectNoReports();
}

TEST_F(IrmcTest, LogsInEveryForm) {
  Fill(std::vector<Fields>(200, {{"given", "A"}}));
  ConnectSync();
  const std::string log =
      "Total-Records:200\r\nMaximum-Records:510\r\nIEL:8\r\nHD:YES\r\nSAT:CC\r\nDID:0C01\r\n";
  const std::string data = ToHex(ToBytes(log));
  EXPECT_EQ(Get("telecom/pb/info.log"), "A0 00 4F 49 00 4C " + data);
  settings.With([](Behaviour& b) { b.irmc.lengthBeforeLogs = true; });
  EXPECT_EQ(Get("telecom/pb/info.log"), "A0 00 54 C3 00 00 00 49 49 00 4C " + data);
  settings.With([](Behaviour& b) { b.irmc.logsInTwoPackets = true; });
  EXPECT_EQ(Get("telecom/pb/info.log"), "90 00 54 C3 00 00 00 49 48 00 4C " + data);
  EXPECT_EQ(Talk("83 00 03"), "A0 00 06 49 00 03");
  EXPECT_EQ(Get("telecom/pb.vcf").substr(0, 17), "90 02 00 48 01 FD");
  ExpectNoReports();
}

TEST_F(IrmcTest, GivesContactsOutInThePhonesOwnWay) {
  Fill({{{"family", "Maß"},
         {"given", "Jürgen"},
         {"title", "Dr."},
         {"cell", "+4917604069100"},
         {"fax", "1"},
         {"email1", "a+b@example.org"},
         {"url", "http://example.org/?id=7"},
         {"work.street", "Am Mühlbach 3; links"},
         {"work.city", "Köln"}},
        {{"given", "\u738B\u738B\u738B\u738B\u738B\u738B"}}});
  ConnectSync();
  const std::string quoted = ";ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:";
  EXPECT_EQ(Download("telecom/pb.vcf"),
            kHead + "N" + quoted + "Ma=C3=9F;J=C3=BCrgen\r\nTITLE:Dr.\r\nURL" + quoted +
                "http=3A//example.org/?id=3D7\r\nTEL;CELL:+-4917604069100\r\nTEL;FAX:1\r\n"
                "EMAIL;INTERNET:a+-b@example.org\r\nADR;WORK" +
                quoted + ";;Am M=C3=BChlbach 3=3B links;K=\r\n=C3=B6ln;;;\r\n" +
                "X-IRMC-LUID:000100000001\r\n" + kTail + kHead + "N" + quoted +
                ";=E7=8E=8B=E7=8E=8B=E7=8E=8B=E7=\r\n=8E=8B=E7=8E=8B=E7=8E=8B\r\n" +
                "X-IRMC-LUID:000100000002\r\n" + kTail);
  settings.With([](Behaviour& b) {
    b.irmc.plainPlus = true;
    b.irmc.quoteAllInContacts = true;
    b.irmc.lengthBeforeObjects = true;
  });
  EXPECT_NE(TextOf(Wire(Get("telecom/pb/luid/000100000001.vcf"))).find(":=4D=61=C3=9F;=4A=C3"),
            std::string::npos);
  EXPECT_EQ(Get("telecom/pb/luid/000100000002.vcf").substr(9, 14), "C3 00 00 00 A5");
  ExpectNoReports();
}

TEST_F(IrmcTest, ReadsWhatAClientWrites) {
  ConnectSync();
  const std::array<std::pair<std::string, Fields>, 5> cards = {{
      {"N;CHARSET=ISO-8859-1:;J\xFCrgen Ma\xDF\r\nORG;CHARSET=ISO-8859-1:A & B; C\r\n",
       {{"given", "Jürgen Maß"}, {"org", "A & B; C"}}},
      {"N;CHARSET=UTF-7:;+Zzo-1 +AMkA6QDp +- 1+2\r\nNOTE;CHARSET=UTF-7:+2D3eAA-\r\n",
       {{"given", "\u673A1 Ééé + 1+2"}, {"note", "\U0001F600"}}},
      {"N:Berg;Anna\r\nTEL;HOME:1\r\nTEL;WORK:2\r\nTEL;FAX:3\r\nTEL:+4\r\n"
       "EMAIL;INTERNET;PREF;CHARSET=UTF-7:a@b\r\nEMAIL;INTERNET;CHARSET=UTF-7:c+d@e\r\n",
       {{"family", "Berg"},
        {"given", "Anna"},
        {"home", "1"},
        {"work", "2"},
        {"fax", "3"},
        {"other", "+4"},
        {"email1", "a@b"},
        {"email2", "c+d@e"}}},
      {"N:;X\r\nADR;HOME;CHARSET=UTF-7:;;+ZRc-;L\xFC;;1;\r\nADR;WORK;CHARSET=UTF-7:;;;;;;C\r\n",
       {{"given", "X"},
        {"home.street", "\u6517"},
        {"home.city", "Lü"},
        {"home.zip", "1"},
        {"work.country", "C"}}},
      {"N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:;=C3=\r\n=A9=zz\r\nURL:http://a/?b=c\r\n",
       {{"given", "é=zz"}, {"url", "http://a/?b=c"}}},
  }};
  std::string luid = "000100000000";
  for (const auto& [lines, fields] : cards) {
    ++luid.back();
    EXPECT_EQ(Put("telecom/pb/luid/.vcf", kHead + lines + kTail).substr(0, 2), "A0") << lines;
    EXPECT_EQ(Contact(luid), fields) << lines;
  }
  ExpectNoReports();
}

TEST_F(IrmcTest, RefusesWithoutBlame) {
  Fill({{{"given", "A"}}});
  settings.With([](Behaviour& b) {
    b.irmc.contactMaximum = 1;
    b.irmc.entryLimit = 60;
    b.refusedOperations[ObexOperation::Delete] = {0xC3, 1, "telecom/pb", 1};
  });
  ConnectSync();
  const std::string card = kHead + "N:;B\r\n" + kTail;
  const std::string first = "telecom/pb/luid/000100000001.vcf";
  EXPECT_EQ(Put("telecom/pb/luid/.vcf", card), "E0 00 03") << "full";
  EXPECT_EQ(Put(first, kHead + "N:;" + std::string(30, 'B') + "\r\n" + kTail), "CD 00 03");
  EXPECT_EQ(Put("telecom/pb/luid/000100000009.vcf", card), "C4 00 03");
  EXPECT_EQ(Get("telecom/pb/luid/000100000009.vcf"), "C4 00 03");
  EXPECT_EQ(Get("telecom/pb/luid/x.log"), "C4 00 03");
  EXPECT_EQ(Get("telecom/nt.vnt"), "C4 00 03");
  EXPECT_EQ(Delete("telecom/pb/luid/000100000009.vcf"), "C4 00 03") << "passes the refusal";
  EXPECT_EQ(Delete(first), "C3 00 03");
  settings.With([](Behaviour& b) {
    b.refusedOperations = {{ObexOperation::Get, {0xD3, 1, "telecom/pb.vcf"}}};
  });
  EXPECT_EQ(Get("telecom/pb/info.log").substr(0, 2), "A0");
  EXPECT_EQ(Get("telecom/pb.vcf"), "D3 00 03");
  EXPECT_EQ(Contact("000100000001"), (Fields{{"given", "A"}})) << "nothing was touched";
  EXPECT_EQ(Download("telecom/pb/luid/cc.log"), "1\r\n");
  ExpectNoReports();
}

TEST_F(IrmcTest, ReportsWhatIsNoEntry) {
  const std::string n = "N:;A\r\n";
  const std::array<std::pair<std::string, const char*>, 9> objects = {{
      {"", "object is not framed by BEGIN:VCARD;VERSION:2.1 and END:VCARD"},
      {kHead + n, "object is not framed by BEGIN:VCARD;VERSION:2.1 and END:VCARD"},
      {kHead + n + "END:VCARD", "object does not end with CR LF"},
      {kHead + "TEL:1\r\n" + n + kTail, "vCard without N as third line"},
      {kHead + n + "TEL\r\n" + kTail, "line without a colon"},
      {kHead + n + "TEL;CHARSET=KOI8-R:1\r\n" + kTail, "unknown parameter CHARSET=KOI8-R"},
      {kHead + n + "X-A:1\r\n" + kTail, "unknown property X-A"},
      {kHead + n + "ADR;HOME:;;A\r\n" + kTail, "ADR is not in seven parts"},
      {kHead + n + "EMAIL:1\r\nEMAIL:2\r\nEMAIL:3\r\nEMAIL:4\r\n" + kTail,
       "more than three e-mail addresses"},
  }};
  ConnectSync();
  for (const auto& [object, report] : objects) {
    EXPECT_EQ(Put("telecom/pb/luid/.vcf", object), "C0 00 03") << object;
    ASSERT_EQ(reports.Count(), 1U) << object;
    EXPECT_EQ(reports.All()[0].substr(0, reports.All()[0].rfind(':')), report);
    reports.Clear();
  }
  const std::string name = Name("telecom/pb/luid/000100000001.vcf");
  for (const char* headers : {"4C 0007 00051200", "", "C3 00000001"}) {
    EXPECT_EQ(Send("82", name + headers), "C0 00 03");
  }
  EXPECT_EQ(Send("82", "4C 0008 4C00051200"), "C0 00 03");
  EXPECT_EQ(Send("83", "CB 00000000" + name), "C0 00 03");
  EXPECT_EQ(Talk("85 0008 02 00 01 0003"), "C0 00 03");
  EXPECT_EQ(reports.Count(), 6U);
  phone.GetMemory().With([](Books& b) { EXPECT_TRUE(b.contacts.Entries().empty()); });
}

TEST_F(IrmcTest, BooksOutliveThePhoneAndTakeChangesByHand) {
  Fill({{{"given", "Line\nbreak \\n"}}, {{"given", "B"}}});
  phone.GetMemory().With([](Books& books) { books.contacts.Remove("000100000002"); });
  Phone again(content.Path(), settings, reports);
  const auto luids = [&again] {
    return again.GetMemory().With([](Books& books) {
      books.Reread();
      std::string all = std::to_string(books.contacts.ChangeCounter());
      for (const auto& e : books.contacts.Entries()) all += " " + e.luid + Field(e.fields, "given");
      return all;
    });
  };
  EXPECT_EQ(luids(), "3 000100000001Line\nbreak \\n");
  content.Write(".books/contacts.txt",
                content.Read(".books/contacts.txt") + "given: By hand\ncell: +1\n");
  EXPECT_EQ(luids(), "4 000100000001Line\nbreak \\n 000100000003By hand");
  EXPECT_EQ(luids(), "4 000100000001Line\nbreak \\n 000100000003By hand");
}

TEST_F(IrmcTest, TheSampleContactsAreValidUtf7) {
  FillWithSamples(content.Path());
  ConnectSync();
  const std::string text = Download("telecom/pb.vcf");
  std::size_t cards = 0;
  for (std::size_t at = 0; (at = text.find("END:VCARD\r\n", at)) != std::string::npos; ++at)
    ++cards;
  EXPECT_EQ(cards, 200U);
  EXPECT_EQ(text.find_first_of("~\\"), std::string::npos);
  for (std::size_t at = 0; at < text.size(); ++at) {
    ASSERT_LT(static_cast<unsigned char>(text[at]), 0x7F) << text.substr(at - 40, 80);
    ASSERT_TRUE(text[at] != '+' || text[at + 1] == '-') << text.substr(at - 40, 80);
  }
  EXPECT_NE(text.find("\r\nEMAIL;INTERNET:contact1@example.org\r\n"), std::string::npos);
  EXPECT_NE(text.find("=E6=9D=8E=E5=B0=8F=E6=98=8E\r\n"), std::string::npos);
  ExpectNoReports();
}

}  // namespace
}  // namespace phonesim
