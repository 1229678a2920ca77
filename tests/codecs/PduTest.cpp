#include <gtest/gtest.h>

#include "codecs/SMS.h"
#include "codecs/septetkit.h"

namespace tessarin {
namespace {

Bytes Ascii(std::string_view text) { return {text.begin(), text.end()}; }

TEST(Septets, PackAndUnpackByTheStandardsRule) {
  const struct {
    std::size_t shift;
    std::string_view text;
    Bytes octets;
  } cases[] = {
      {0, "", {}},
      {0, "A", {0x41}},
      {0, "hello", {0xE8, 0x32, 0x9B, 0xFD, 0x06}},
      {0, "hellohello", {0xE8, 0x32, 0x9B, 0xFD, 0x46, 0x97, 0xD9, 0xEC, 0x37}},
      {0, "ABCDEFG", {0x41, 0xE1, 0x90, 0x58, 0x34, 0x1E, 0x01}},
      {0, "ABCDEFGH", {0x41, 0xE1, 0x90, 0x58, 0x34, 0x1E, 0x91}},
      {1, "second.", {0xE6, 0xE5, 0xF1, 0xDB, 0x4D, 0x76, 0x01}},
      {2, "ports", {0xC0, 0xDF, 0x72, 0xFA, 0x1C}},
  };
  for (const auto& c : cases) {
    Bytes packed;
    EXPECT_EQ(septetkit::char_7bit_pack(c.shift, Ascii(c.text), packed, c.text.size()),
              c.octets.size());
    EXPECT_EQ(packed, c.octets) << c.text;
    Bytes unpacked;
    septetkit::char_7bit_unpack(c.shift, c.text.size(), c.octets, unpacked);
    EXPECT_EQ(unpacked, Ascii(c.text));
  }
  Bytes packed;
  septetkit::char_7bit_pack(0, {0xC1, 0xFF}, packed, 3);
  EXPECT_EQ(packed, (Bytes{0xC1, 0x3F, 0x00})) << "eighth bits and missing septets are 0";
  Bytes unpacked;
  septetkit::char_7bit_unpack(0, 3, {0x41}, unpacked);
  EXPECT_EQ(unpacked, (Bytes{0x41, 0, 0}));
}

struct PduCase {
  const char* name;
  int stat;
  std::string pdu;
  Text sender;
  Text timestamp;
  Text text;
};

const std::string kStamp = "40605131508100";
constexpr char16_t kStampText[] = u"15/06/2004 13:05:18";

const PduCase kPdus[] = {
    {"a DELIVER", 0, "040BC87238880900F10000993092516195800AE8329BFD4697D9EC37", u"27838890001",
     u"29/03/1999 15:16:59", u"hellohello"},
    {"a number of even length", 1,
     "0404812143"
     "0000" +
         kStamp + "0141",
     u"1234", kStampText, u"A"},
    {"a sender of letters", 1,
     "040ED045797A3C9FBFDD"
     "0000" +
         kStamp + "0141",
     Text(u"Ericsson"), kStampText, u"A"},
    {"letters in an odd number of digits", 1,
     "0407D049B7F90D"
     "0000" +
         kStamp + "0141",
     Text(u"Info") + u'\0', kStampText, u"A"},
    {"eleven letters", 1,
     "0414D041E19058341E9149E512"
     "0000" +
         kStamp + "0141",
     u"ABCDEFGHIJK", kStampText, u"A"},
    {"a number longer than its field", 1,
     "042A81" + std::string(42, '1') + "0000" + kStamp + "0141", Text(40, u'1'), kStampText, u"A"},
    {"a star and a hash", 1,
     "0404811AB2"
     "0000" +
         kStamp + "0141",
     u"*12#", kStampText, u"A"},
    {"no sender", 1,
     "04008100"
     "00" +
         kStamp + "0141",
     u"", kStampText, u"A"},
    {"UCS2", 1,
     "0404812143"
     "0008" +
         kStamp + "064F60597D0021",
     u"1234", kStampText, u"你好!"},
    {"8-bit data", 1,
     "0404812143"
     "0004" +
         kStamp + "03FF00A5",
     u"1234", kStampText, u"FF00A5"},
    {"an empty text", 1,
     "0404812143"
     "0000" +
         kStamp + "00",
     u"1234", kStampText, u""},
    {"septets stand for themselves", 1,
     "0404812143"
     "0000" +
         kStamp + "03412000",
     u"1234", kStampText, Text(u"A@") + u'\0'},
    {"a stored SUBMIT, relative validity", 2, "11000B916407281553F80000AA0AE8329BFD4697D9EC37",
     u"46708251358", u"", u"hellohello"},
    {"a sent SUBMIT without validity", 3, "01050481214300000141", u"1234", u"", u"A"},
    {"enhanced validity", 3,
     "0905048121430000"
     "01020304050607"
     "0141",
     u"1234", u"", u"A"},
    {"absolute validity", 3, "1905048121430000" + kStamp + "0141", u"1234", u"", u"A"},
    {"ports in the header", 1,
     "4404812143"
     "0000" +
         kStamp +
         "13"
         "0B0504158A0000000311"
         "0201"
         "C0DF72FA1C",
     u"1234", kStampText, u"ports"},
    {"an empty element, then seven octets in all", 1,
     "4404812143"
     "0000" +
         kStamp +
         "0D"
         "0670007002AABB"
         "F3B2BDEC06",
     u"1234", kStampText, u"seven"},
    {"UCS2 behind a header", 1,
     "4404812143"
     "0008" +
         kStamp +
         "08"
         "050003010201"
         "597D",
     u"1234", kStampText, u"好"},
};

TEST(DecodePDU, ReadsEveryShapeOfAMessage) {
  for (const PduCase& c : kPdus) {
    SMSMessage record;
    record.location = 7;
    SMS::DecodePDU(c.stat, c.pdu, record);
    EXPECT_EQ(ToUtf8(record.sender.Trimmed()), ToUtf8(c.sender)) << c.name;
    EXPECT_EQ(ToUtf8(record.timestamp.Trimmed()), ToUtf8(c.timestamp)) << c.name;
    EXPECT_EQ(ToUtf8(record.text.Trimmed()), ToUtf8(c.text)) << c.name;
    EXPECT_EQ(record.stat, c.stat) << c.name;
    EXPECT_EQ(record.location, 7) << c.name;
  }
}

TEST(DecodePDU, KnowsThePartsOfALongMessage) {
  const std::string front = "440B919471214365F70000" + kStamp;
  SMSMessage record;
  SMS::DecodePDU(0, front + "130500037B0201CC69F99C0E8287E5741608", record);
  EXPECT_EQ(record.concatenated, 1);
  EXPECT_EQ(record.reference, 123);
  EXPECT_EQ(record.partCount, 2);
  EXPECT_EQ(record.partNumber, 1);
  EXPECT_TRUE(record.text == FixedText<160>(u"first part, "));
  // The element of the parts may stand behind others, and a wider reference is another element.
  SMS::DecodePDU(0,
                 front +
                     "0B0A7001AA00031102030804FFFFFF"
                     "00",
                 record);
  EXPECT_EQ(record.reference * 10000 + record.partCount * 100 + record.partNumber, 170203);
  SMS::DecodePDU(0,
                 front +
                     "0806080412340201"
                     "41",
                 record);
  EXPECT_EQ(record.concatenated, 0);
  // A record that is filled again keeps nothing of the old message.
  SMS::DecodePDU(1, "04048121430000" + kStamp + "00", record);
  EXPECT_EQ(record.concatenated + record.reference + record.partCount + record.partNumber, 0);
  EXPECT_EQ(record.text.Trimmed(), u"");
}

TEST(DecodePDU, GivesSomethingForEveryPieceOfAPdu) {
  for (const PduCase& c : kPdus) {
    for (std::size_t length = 0; length < c.pdu.size(); ++length) {
      SMSMessage record;
      SMS::DecodePDU(c.stat, c.pdu.substr(0, length), record);
      EXPECT_TRUE(length >= 4 || record.text == FixedText<160>()) << c.name;
    }
  }
  SMSMessage record;
  SMS::DecodePDU(0, "no PDU at all, xyz", record);
  SMS::DecodePDU(1,
                 "44FF91"
                 "00" +
                     kStamp +
                     "FF"
                     "FF"
                     "00FF",
                 record);
}

TEST(FormatSCTS, HasACenturyOfYears) {
  const struct {
    std::string digits;
    Text text;
  } cases[] = {
      {"96102131425364", u"12/01/2069 13:24:35"},
      {"96210190000000", u"10/12/2069 09:00:00"},
      {"07101000000000", u"01/01/1970 00:00:00"},
      {"00209232959580", u"29/02/2000 23:59:59"},
      {"4060513150810", u"15/06/2004 13:05:18"},
      {"40605131508", u""},
      {"", u""},
  };
  for (const auto& c : cases) EXPECT_EQ(SMS::FormatSCTS(c.digits), c.text) << c.digits;
}

TEST(BuildPDUHeader, HoldsNumberTypeAndCoding) {
  const struct {
    Text number;
    std::int32_t coding, length;
    std::string header;
    Text left;
  } cases[] = {
      {u"+441234", 0, 5,
       "001100069144214300"
       "00FF",
       u"441234"},
      {u"441234", 0, 160,
       "001100068144214300"
       "00FF",
       u"441234"},
      {u"12345", 0, 161,
       "00510005812143F500"
       "00FF",
       u"12345"},
      {u"12345", 8, 70,
       "00110005812143F500"
       "08FF",
       u"12345"},
      {u"12345", 8, 71,
       "00510005812143F500"
       "08FF",
       u"12345"},
      {u"*1#", 0, 3, "00110003811AFB0000FF", u"*1#"},
      {u"", 0, 0,
       "001100008100"
       "00FF",
       u""},
  };
  for (const auto& c : cases) {
    SMSSendRecord send;
    send.Number = c.number;
    send.NumberLength = static_cast<std::int32_t>(c.number.size());
    send.Coding = c.coding;
    send.TextLength = c.length;
    EXPECT_EQ(SMS::BuildPDUHeader(send), c.header);
    EXPECT_EQ(send.Number.Trimmed(), c.left);
    EXPECT_EQ(send.NumberLength, static_cast<std::int32_t>(c.left.size()));
  }
  EXPECT_EQ(SMS::BuildConcatHeader(0xA5, 3, 2), "050003A50302");
}

}  // namespace
}  // namespace tessarin
