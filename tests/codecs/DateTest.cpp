#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>

#include "codecs/Faults.h"
#include "codecs/Numbers.h"
#include "codecs/modDate.h"
#include "codecs/vcardStamp.h"

namespace tessarin {
namespace {

using namespace modDate;

class FixedClock : public Clock {
 public:
  explicit FixedClock(int bias) : bias_(bias) {}
  DateValue Now() const override { return 0.0; }
  int StandardBiasMinutes() const override { return bias_; }

 private:
  int bias_;
};

// The process's zone for as long as this lives.
class Zone {
 public:
  explicit Zone(const char* name) {
    if (const char* old = std::getenv("TZ")) old_ = old;
    ::setenv("TZ", name, 1);
  }
  ~Zone() { old_.empty() ? ::unsetenv("TZ") : ::setenv("TZ", old_.c_str(), 1); }

 private:
  std::string old_;
};

TEST(modDate, PackDateRolls) {
  const struct {
    int year, month, day;
    const char16_t* text;
  } cases[] = {
      {1899, 12, 30, u"30/12/1899 00:00:00"}, {2003, 13, 1, u"01/01/2004 00:00:00"},
      {2003, 0, 1, u"01/12/2002 00:00:00"},   {2003, -12, 1, u"01/12/2001 00:00:00"},
      {2003, 3, 0, u"28/02/2003 00:00:00"},   {2004, 3, 0, u"29/02/2004 00:00:00"},
      {2003, 2, 29, u"01/03/2003 00:00:00"},  {1900, 2, 29, u"01/03/1900 00:00:00"},
      {2000, 2, 29, u"29/02/2000 00:00:00"},  {2003, 1, -365, u"31/12/2001 00:00:00"},
      {0, 1, 1, u"01/01/2000 00:00:00"},      {29, 12, 31, u"31/12/2029 00:00:00"},
      {30, 1, 1, u"01/01/1930 00:00:00"},     {99, 13, 1, u"01/01/2000 00:00:00"},
      {100, 1, 1, u"01/01/0100 00:00:00"},    {9999, 12, 31, u"31/12/9999 00:00:00"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FormatDateText(PackDate(c.year, c.month, c.day)), c.text);
  }
  EXPECT_EQ(PackDate(1899, 12, 31), 1.0);
  EXPECT_EQ(PackDate(2003, 12, 31), 37986.0);
  constexpr int kMost = std::numeric_limits<int>::max();
  EXPECT_THROW(PackDate(9999, 12, 32), ConversionError);
  EXPECT_THROW(PackDate(100, 1, 0), ConversionError);
  EXPECT_THROW(PackDate(-1, 1, 1), ConversionError);
  EXPECT_THROW(PackDate(kMost, kMost, kMost), ConversionError);
  EXPECT_THROW(PackDate(2003, -kMost, -kMost), ConversionError);
}

TEST(modDate, TimesRollAndUnpackToTheSecond) {
  EXPECT_EQ(PackTime(18, 0, 0), 0.75);
  EXPECT_EQ(PackTime(0, 90, -1800), 1.0 / 24);
  EXPECT_EQ(FormatDateText(-0.25), u"29/12/1899 18:00:00");
  EXPECT_EQ(FormatDateText(0.99999999), u"31/12/1899 00:00:00");
  EXPECT_EQ(Unpack(37986.0 + PackTime(23, 59, 59)), (DateParts{2003, 12, 31, 23, 59, 59}));
  EXPECT_THROW(FormatDateText(2958466.0), ConversionError);
  EXPECT_THROW(FormatDateText(1e300), ConversionError);
  EXPECT_THROW(FormatDateText(std::nan("")), ConversionError);
}

TEST(modDate, ParseDateTextGoesByPosition) {
  const struct {
    const char16_t* text;
    const char16_t* value;
  } cases[] = {
      {u"31/12/2003", u"31/12/2003 00:00:00"},
      {u"31/12/200", u"30/12/1899 00:00:00"},
      {u"", u"30/12/1899 00:00:00"},
      {u"31.12-2003T23h59m07", u"31/12/2003 23:59:07"},
      {u"31/12/2003 23:59", u"31/12/2003 00:00:00"},  // no seconds, no time
      {u"31/12/2003 xx:yy:z", u"31/12/2003 00:00:00"},
      {u"00/13/2003 00:00:00", u"31/12/2003 00:00:00"},
      {u"31/12/2003 23:59:60", u"01/01/2004 00:00:00"},
      {u"31/12/2003 00:00:00120", u"31/12/2003 00:02:00"},  // seconds run to the end
      {u" 1/ 2/2003 00:00:5  ", u"01/02/2003 00:00:05"},
      {u"01/01/0003", u"01/01/2003 00:00:00"},
  };
  for (const auto& c : cases) EXPECT_EQ(FormatDateText(ParseDateText(c.text)), c.value);
  for (const auto* bad : {u"aa/12/2003", u"31/  /2003", u"1/1/2003 10:00", u"31/12/2003 00:00:0x",
                          u"31/12/2003 00:00:99999", u"31/12/2003 00:00: +"}) {
    EXPECT_THROW(ParseDateText(bad), ConversionError) << ToUtf8(bad);
  }
}

TEST(modDate, ComparesAndCounts) {
  EXPECT_TRUE(IsDateBefore(u"31/12/2003 23:59:59", u"01/01/2004 00:00:00"));
  EXPECT_FALSE(IsDateBefore(u"01/01/2004 00:00:00", u"31/12/2003 23:59:59"));
  EXPECT_FALSE(IsDateBefore(u"31/12/2003 10:00:00", u"31/12/2003 10:00:00"));
  EXPECT_TRUE(IsDateBefore(u"", u"31/12/2003"));
  EXPECT_EQ(MinutesToDays(2160), 1.5);
  EXPECT_EQ(DaysToMinutes(-0.25), -360);
  EXPECT_EQ(DaysToMinutes(0.5 / 1440), 0);  // half to even
  EXPECT_EQ(DaysToMinutes(1.5 / 1440), 2);
  EXPECT_EQ(DaysToMinutes(2.5 / 1440), 2);
  EXPECT_THROW(DaysToMinutes(1e300), ConversionError);
}

TEST(modDate, SystemReaderWantsARealDate) {
  const struct {
    const char16_t* text;
    const char16_t* value;
  } good[] = {
      {u"29/02/2004 23:59:58", u"29/02/2004 23:59:58"},
      {u"29/02/2004 23:59", u"29/02/2004 23:59:00"},
      {u"29/02/2004", u"29/02/2004 00:00:00"},
      {u" 01/01/0100 00:00:00 ", u"01/01/0100 00:00:00"},
  };
  for (const auto& c : good) EXPECT_EQ(FormatDateText(ReadSystemDate(c.text)), c.value);
  for (const auto* bad : {u"", u"29/02/2003", u"00/01/2004", u"01/13/2004", u"01/01/2004 24:00:00",
                          u"01/01/2004 10:60", u"01/01/2004 10:00:60", u"01-01-2004", u"1/1/2004",
                          u"01/01/04", u"01/01/0099", u"01/01/2004 10", u"01/01/2004 10:00:0",
                          u"01/01/2004x10:00:00", u"+1/01/2004", u"01/01/2004 10:00:00 x"}) {
    EXPECT_THROW(ReadSystemDate(bad), ConversionError) << ToUtf8(bad);
  }
}

TEST(Numbers, ReadWholeNumbersOfSixteenBits) {
  EXPECT_EQ(ReadNumber(u" +07 "), 7);
  EXPECT_EQ(ReadNumber(u"-32768"), -32768);
  for (const auto* bad : {u"", u" ", u"-", u"1 2", u"0x1", u"1.5", u"32768", u"99999999999999"}) {
    EXPECT_THROW(ReadNumber(bad), ConversionError) << ToUtf8(bad);
  }
}

TEST(vcard, StampsMoveByWholeHours) {
  const struct {
    int bias;  // UTC less local time
    const char16_t* stamp;
    const char16_t* text;
  } cases[] = {
      {0, u"20031231T235958Z", u"31/12/2003 23:59:58"},
      {-60, u"20031231T233000Z", u"01/01/2004 00:30:00"},   // east
      {300, u"20040301T043000Z", u"29/02/2004 23:30:00"},   // west, leap year
      {-330, u"20040101T000000Z", u"01/01/2004 06:00:00"},  // 5.5 rounds to 6
      {-270, u"20040101T000000Z", u"01/01/2004 04:00:00"},  // 4.5 rounds to 4
      {-345, u"20040101T000000Z", u"01/01/2004 06:00:00"},  // 5.75 rounds to 6
      {210, u"20040101T060000Z", u"01/01/2004 02:00:00"},   // -3.5 rounds to -4
      {-840, u"20040701T120000Z", u"02/07/2004 02:00:00"},
  };
  for (const auto& c : cases) {
    const FixedClock clock(c.bias);
    EXPECT_EQ(vcard::StampToLocalText(c.stamp, clock), c.text) << c.bias;
    EXPECT_EQ(vcard::LocalTextToStamp(c.text, clock), c.stamp) << c.bias;
  }
}

TEST(vcard, StampsAreReadByPosition) {
  const FixedClock clock(-60);
  const struct {
    const char16_t* stamp;
    const char16_t* text;
  } cases[] = {
      {u"20031231T235958", u"31/12/2003 23:59:58"},    // no Z: local
      {u"20031231T235958+z", u"01/01/2004 00:59:58"},  // any Z, anywhere
      {u"20031231Z225958", u"31/12/2003 23:59:58"},
      {u"20030229-100000", u"01/03/2003 10:00:00"},  // rolls
      {u"20031231T226058", u"31/12/2003 23:00:58"},
  };
  for (const auto& c : cases) EXPECT_EQ(vcard::StampToLocalText(c.stamp, clock), c.text);
  for (const auto* bad : {u"", u"20031231", u"20031231T2359", u"2003-12-31T23:59:58Z",
                          u"20031231T240000Z", u"99991231T233000Z"}) {
    EXPECT_THROW(vcard::StampToLocalText(bad, clock), ConversionError) << ToUtf8(bad);
  }
  EXPECT_EQ(vcard::LocalTextToStamp(u"01/01/2004 00:30 ", clock), u"20031231T233000Z");
  EXPECT_EQ(vcard::LocalTextToStamp(u"01/01/2004", clock), u"20031231T230000Z");
  EXPECT_THROW(vcard::LocalTextToStamp(u"", clock), ConversionError);
}

TEST(SystemClock, BiasIsThatWithoutSummerTime) {
  const struct {
    const char* zone;
    int bias;
  } cases[] = {
      {"UTC", 0},
      {"CET-1CEST,M3.5.0,M10.5.0/3", -60},
      {"EST5EDT,M3.2.0,M11.1.0", 300},
      {"IST-5:30", -330},
      {"NST3:30NDT,M3.2.0,M11.1.0", 210},
      {"AEST-10AEDT,M10.1.0,M4.1.0/3", -600},  // summer over the new year
      {"IST-1GMT0,M10.5.0,M3.5.0/1", 0},       // winter marked as the other time, as in Ireland
  };
  for (const auto& c : cases) {
    const Zone zone(c.zone);
    EXPECT_EQ(SystemClock().StandardBiasMinutes(), c.bias) << c.zone;
  }
}

TEST(SystemClock, NowIsLocal) {
  const auto nowIn = [](const char* name) {
    const Zone zone(name);
    return SystemClock().Now();
  };
  EXPECT_NEAR((nowIn("EAST-3") - nowIn("WEST5")) * 24, 8.0, 0.01);
}

}  // namespace
}  // namespace tessarin
