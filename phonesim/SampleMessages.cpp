#include "phonesim/SampleMessages.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <utility>
#include <vector>

#include "phonesim/Gsm.h"
#include "phonesim/Utf.h"

namespace phonesim {
namespace {

constexpr const char* kSim = "SM";
constexpr const char* kPhone = "ME";

struct Short {
  const char* store;
  int status;
  const char* address;
  const char* text;
};

const std::array<Short, 43> kShort = {{
    {kSim, 1, "+447700900123", "Hi! Train is ten minutes late. See you at the clock."},
    {kSim, 0, "Library", "The book you asked for is here. We keep it until Friday."},
    {kSim, 1, "+4917604069101", "Alles Gute zum Geburtstag! Wir freuen uns auf Samstag."},
    {kSim, 1, "+467017406012", "Köper du mjölk? Och kanske några äpplen också."},
    {kSim, 0, "+447700900108", "小明，今晚七点在老地方见。"},
    {kSim, 1, "+336399800042", "RDV 18 h devant la gare. Bises"},
    {kSim, 2, "+447700900155", "Draft: what shall we bring on Sunday?"},
    {kSim, 3, "+447700900123", "No problem, I will wait."},
    {kSim, 1, "+447700900106", "Привет! Завтра в десять?"},
    {kSim, 0, "Harbour", "Ferry 17:20 to Gdansk: boarding from 16:45 at pier 5."},
    {kSim, 3, "+12125550142", "Call me when you land :-)"},
    {kPhone, 0, "+447700900107", "Γεια σου! Φτάσαμε καλά."},
    {kPhone, 0, "+12125550117", "Got the tickets. Row 12, seats 4 and 5."},
    {kPhone, 1, "+4917604069145", "Kannst du bitte die Blumen giessen? Danke!"},
    {kPhone, 1, "BLUE LAMP", "Your table for 4 on Saturday 19:30 is booked. Reply NO to cancel."},
    {kPhone, 1, "+447700900109", "駅に着いたら電話してね。"},
    {kPhone, 1, "+447700900110", "오늘 저녁에 시간 있어요?"},
    {kPhone, 2, "+447700900131", "Meeting moved to Room 2, 14:00"},
    {kPhone, 2, "+447700900104", "¿Vienes mañana? Traigo el pastel."},
    {kPhone, 2, "+467017406033", "Ring mig"},
    {kPhone, 2, "5550199", "BALANCE"},
    {kPhone, 3, "+447700900123", "Running late, start without me"},
    {kPhone, 3, "+447700900108", "好的，到时候见！"},
    {kPhone, 3, "+4917604069101", "Danke für die Einladung – wir kommen gern."},
    {kPhone, 3, "+336399800042", "OK pour 18 h"},
    {kPhone, 1, "+447700900177", "Keys are under the flower pot"},
    {kPhone, 1, "+447700900178", "1 new voice message. Dial 121 to listen."},
    {kPhone, 0, "+447700900105", "Dziękuję! Odezwę się jutro."},
    {kPhone, 1, "+12125550120", "Rain check? The whole team is down with a cold."},
    {kPhone, 1, "+447700900123", "Did you see the moon tonight?"},
    {kPhone, 3, "+447700900123", "Yes! Huge."},
    {kPhone, 1, "+4917604069188", "Zug faellt aus, nehme den naechsten um 9:12"},
    {kPhone, 1, "Parcel", "Delivery today between 14:00 and 16:00."},
    {kPhone, 0, "+447700900199", "Choir is at 7 tonight, not 7:30!"},
    {kPhone, 1, "+467017406044", "Tåget går 07.05 från spår 3"},
    {kPhone, 2, "+447700900120", "Happy New Year to you and the family!"},
    {kPhone, 3, "+447700900120", "Thanks for dinner, it was lovely"},
    {kPhone, 1, "+447700900141", "ok"},
    {kPhone, 1, "+447700900142", ""},
    {kPhone, 1, "+447700900143",
     "Exactly one hundred and sixty characters fit into one message, and this text goes on and on "
     "with words about nothing at all until it has them all, honestly 160."},
    {kPhone, 1, "+447700900144", "Reminder: dentist tomorrow 8:30"},
    {kPhone, 1, "+447700900147", "Thank you!"},
    {kPhone, 0, "+447700900146", "Спокойной ночи!"},
}};

/// A message of several parts: which of them are there, in the order of their locations.
struct Long {
  const char* store;
  int status;
  const char* address;
  int reference;
  std::vector<int> order;
  const char* text;
};

constexpr const char* kStory =
    "We took the early boat out to the island. Nobody else was there but a man with three dogs and "
    "a basket of plums, who told us the way to the lighthouse. From the top you see both coasts at "
    "once, and on a clear day the mountains too. We had our lunch on the steps, the dogs had most "
    "of it. Back at six, tired and sunburnt. Next time you must come along, the plums are on us.";
constexpr const char* kDirections =
    "Take the number 12 tram to the old market and walk down past the bakery until you reach the "
    "green gate. Ring twice, the bell is slow. If nobody opens, go round the corner: the garden "
    "door is never locked before ten.";
constexpr const char* kBrief =
    "Liebe Anna, schöne Grüße aus dem Süden! Das Wetter ist herrlich, das Essen köstlich, und wir "
    "bleiben noch bis übernächsten Dienstag. Küsschen!";

const std::vector<Long>& LongOnes() {
  static const std::vector<Long> all = {
      {kSim, 1, "+447700900150", 41, {1, 2, 3}, kStory},
      {kPhone, 1, "+447700900150", 41, {1, 2}, kDirections},
      {kSim, 1, "+447700900151", 77, {1, 3, 2}, kStory},
      {kPhone, 1, "+447700900152", 103, {2, 1, 3}, kStory},
      {kPhone, 0, "+447700900153", 104, {1, 3}, kStory},
      {kPhone, 1, "+447700900154", 9, {2}, kDirections},
      {kPhone, 3, "+4917604069101", 200, {1, 2, 3}, kBrief},
  };
  return all;
}

std::vector<std::string> Cut(const std::string& text, SmsCoding coding) {
  const std::size_t size = coding == SmsCoding::Ucs2 ? 67 : 153;
  const std::u32string codes = CodePoints(text);
  std::vector<std::string> parts;
  for (std::size_t at = 0; at < codes.size(); at += size) {
    parts.emplace_back();
    for (const char32_t code : codes.substr(at, size)) AppendUtf8(parts.back(), code);
  }
  return parts;
}

SmsCoding CodingOf(const std::string& text) {
  for (const char c : text) {
    if (static_cast<unsigned char>(c) >= 0x80) return SmsCoding::Ucs2;
  }
  return SmsCoding::Gsm;
}

/// Pairs of year, month, day, hour, minute, second and zone, each with its digits swapped.
std::string Time(int year, std::size_t number) {
  using namespace std::chrono;
  const sys_days date = sys_days(std::chrono::year(year - 1) / July / 2) + days(number * 11 / 2);
  const year_month_day ymd(date);
  char digits[64];
  std::snprintf(digits, sizeof digits, "%02d%02u%02u%02zu%02zu%02zu00",
                static_cast<int>(ymd.year()) % 100, static_cast<unsigned>(ymd.month()),
                static_cast<unsigned>(ymd.day()), 7 + number * 5 % 16, number * 37 % 60,
                number * 11 % 60);
  for (std::size_t i = 0; i < 14; i += 2) std::swap(digits[i], digits[i + 1]);
  return digits;
}

/// Puts messages into locations with a gap behind every seventh.
class Filler {
 public:
  explicit Filler(int year) : year_(year) {}

  void Add(const std::string& store, int status, SmsDraft draft) {
    draft.outgoing = status >= 2;
    draft.time = Time(year_, count_);
    draft.validity = static_cast<SmsValidity>(count_ % 4);
    ++count_;
    int& location = last_[store];
    location += location % 8 == 7 ? 2 : 1;
    stores_[store][location] = {status, WriteStored(draft)};
  }
  std::map<std::string, MessageStores::Store> Take() { return std::move(stores_); }

 private:
  int year_;
  std::size_t count_ = 0;
  std::map<std::string, int> last_;
  std::map<std::string, MessageStores::Store> stores_;
};

void AddLong(Filler& filler, const Long& message) {
  const SmsCoding coding = CodingOf(message.text);
  const std::vector<std::string> texts = Cut(message.text, coding);
  for (const int number : message.order) {
    SmsDraft draft;
    draft.address = message.address;
    draft.text = texts[static_cast<std::size_t>(number - 1)];
    draft.coding = coding;
    draft.part = SmsPart{message.reference, static_cast<int>(texts.size()), number};
    filler.Add(message.store, message.status, draft);
  }
}

}  // namespace

std::map<std::string, MessageStores::Store> MakeSampleMessages(int year) {
  Filler filler(year);
  std::size_t at = 0;
  for (const Short& message : kShort) {
    SmsDraft draft;
    draft.address = message.address;
    draft.text = message.text;
    draft.coding = CodingOf(message.text);
    filler.Add(message.store, message.status, draft);
    if (++at % 5 == 0 && at / 5 <= LongOnes().size()) AddLong(filler, LongOnes()[at / 5 - 1]);
  }
  return filler.Take();
}

}  // namespace phonesim
