// A phone against the folders of cards and events, which another program edits as well: after two
// two-way runs a third changes nothing, the later change of each item stands on both sides, and
// what the phone does not know of is still in the files.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <map>
#include <random>

#include "outlook/CalendarEngine.h"
#include "outlook/CalendarSyncRows.h"
#include "outlook/ContactRows.h"
#include "outlook/ContactSync.h"
#include "outlook/EventTimes.h"
#include "outlook/LocalTime.h"
#include "outlook/VdirOutlook.h"
#include "tests/outlook/SyncBench.h"

namespace tessarin {
namespace {

using outlook::VdirOutlook;
using Values = std::vector<Text>;  // of the fields that a kind compares, the name first

// What both kinds run on.
struct Parts {
  OutlookNeeds outlook;
  ListView& pane;
  SyncProgress& progress;
  std::filesystem::path cache;
  std::mt19937 random;

  unsigned Pick(unsigned count) { return static_cast<unsigned>(random()) % count; }
  // New text, or none.
  Text Any() { return Pick(4) == 0 ? Text() : ToText(static_cast<long long>(Pick(100000))); }
};

struct Contacts {
  using List = clsT610ContactList;
  using Record = clsT610Contact;
  using Items = clsOutContactList;
  static constexpr const char *kFolder = "Contacts", *kExtension = ".vcf";
  static constexpr int kFields[] = {3, 4, 9, 11, 12, 14};
  static constexpr char16_t kPrefix[] = u"p";
  static constexpr const char* kForeign =
      "TEL;TYPE=HOME:second\r\nEMAIL:fourth\r\nADR;TYPE=HOME:;;second;;;;\r\nNOTE:kept\r\n";

  static std::unique_ptr<List> NewList(const Parts&) {
    auto list = std::make_unique<List>();
    list->ListType = -1;
    return list;
  }
  static Values Random(const Text& name, Parts& parts) {
    Values values = {name};
    while (values.size() < std::size(kFields)) values.push_back(parts.Any());
    return values;
  }
  static std::string File(const std::string& uid, const Values& values) {
    const auto line = [&](const char* head, std::size_t value) {
      return head + ToUtf8(values[value]) + "\r\n";
    };
    return "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:" + uid + "\r\n" + line("FN:", 0) + line("N:", 0) +
           line("TEL;TYPE=HOME:", 1) + line("EMAIL;TYPE=WORK:", 2) + line("EMAIL:", 3) +
           line("EMAIL;TYPE=HOME:", 4) + line("ADR;TYPE=HOME:;;", 5) + kForeign + "END:VCARD\r\n";
  }
  static Values ValuesOf(const clsOutlookContact& contact) {
    using P = outlook::ContactProperty;
    Values values;
    for (const P property : {P::FullName, P::HomeTelephoneNumber, P::Email1Address,
                             P::Email2Address, P::Email3Address, P::HomeAddressStreet}) {
      values.push_back(contact.CItem->Get(property));
    }
    return values;
  }
  // Addresses close up.
  static bool IsSame(Values a, Values b) {
    for (Values* values : {&a, &b}) {
      std::stable_partition(values->begin() + 2, values->begin() + 5,
                            [](const Text& address) { return !address.empty(); });
    }
    return a == b;
  }
  static void Load(List& list, const Parts& parts) {
    static_cast<void>(list.LoadT610ContactList(parts.cache));
  }
  template <class Write>
  static void Sync(List& list, Parts& parts, const Write& write) {
    Items items(parts.outlook);
    items.LoadOutlookContact();
    ContactSync engine({parts.outlook.host, parts.outlook.language, parts.progress,
                        [&](Record& contact, char16_t, int, auto&... written) {
                          ((written = true), ...);
                          return write(contact);
                        },
                        nullptr});
    engine.twoWay = true;
    parts.pane.Fill(ContactRows(list, parts.outlook.language));
    engine.SyncListToOutlook(list, items, parts.pane);
    parts.pane.Fill(OutlookRows(items));
    engine.SyncOutlookToList(items, list, parts.pane);
    list.WriteContactToFile(parts.cache, {});
  }
  static Items Loaded(const Parts& parts) {
    Items items(parts.outlook);
    items.LoadOutlookContact();
    return items;
  }
};

struct Events {
  using List = clsT610AppointList;
  using Record = clsT610Appoint;
  using Items = clsOutAppointList;
  static constexpr const char *kFolder = "Calendar", *kExtension = ".ics";
  static constexpr int kFields[] = {8, 9, 5, 6, 4};
  static constexpr char16_t kPrefix[] = u"";
  static constexpr const char* kForeign = "X-KEPT:a\r\nDESCRIPTION:b\r\n";

  static std::unique_ptr<List> NewList(const Parts& parts) {
    return std::make_unique<List>(parts.outlook.language);
  }
  // Days about the two changes of the clock, with alarms before and after.
  static Values Random(const Text& name, Parts& parts) {
    const DateValue start = modDate::PackDate(2004, parts.Pick(2) == 0 ? 3 : 10, 27) +
                            parts.Pick(6) + modDate::PackTime(8 + int(parts.Pick(9)), 30, 0);
    const DateValue end = start + parts.Pick(2) + modDate::PackTime(int(parts.Pick(9)), 0, 0);
    const int hours[] = {0, 1, 5, 24, 48};
    const DateValue alarm = start - modDate::PackTime(hours[parts.Pick(5)], 0, 0);
    return {name, parts.Any(), modDate::FormatDateText(start), modDate::FormatDateText(end),
            parts.Pick(3) == 0 ? Text() : modDate::FormatDateText(alarm)};
  }
  static std::string File(const std::string& uid, const Values& values) {
    const auto time = [&](std::size_t value) {
      return outlook::WriteUtcTime(modDate::ParseDateText(values[value]));
    };
    std::string alarms;
    for (const std::string& trigger : {values[4].empty() ? "" : time(4), time(2)}) {
      if (values[4].empty()) continue;
      alarms += "BEGIN:VALARM\r\nACTION:DISPLAY\r\nTRIGGER;VALUE=DATE-TIME:" + trigger +
                "\r\nEND:VALARM\r\n";
    }
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nUID:" + uid +
           "\r\nSUMMARY:" + ToUtf8(values[0]) + "\r\nLOCATION:" + ToUtf8(values[1]) +
           "\r\nDTSTART:" + time(2) + "\r\nDTEND:" + time(3) + "\r\nRRULE:FREQ=DAILY\r\n" +
           kForeign + alarms + "END:VEVENT\r\nEND:VCALENDAR\r\n";
  }
  static Values ValuesOf(const clsOutAppoint& appoint) {
    const auto& fields = appoint.AItem->Get();
    const DateValue alarm =
        fields.Start - modDate::MinutesToDays(fields.ReminderMinutesBeforeStart);
    return {fields.Subject, fields.Location, modDate::FormatDateText(fields.Start),
            modDate::FormatDateText(fields.End),
            fields.ReminderSet ? modDate::FormatDateText(alarm) : Text()};
  }
  // An entry of the phone's need not say when it ends.
  static bool IsSame(Values a, Values b) {
    if (a[3].empty() || b[3].empty()) a[3] = b[3] = u"";
    return a == b;
  }
  static void Load(List& list, const Parts& parts) {
    static_cast<void>(list.LoadT610AppointList(parts.cache));
  }
  template <class Write>
  static void Sync(List& list, Parts& parts, const Write& write) {
    Items items(parts.outlook);
    items.LoadOutlookAppoint();
    CalendarEngine engine({parts.outlook.host, parts.outlook.language, parts.progress,
                           [&](Record& entry, auto&... written) {
                             ((written = true), ...);
                             return write(entry);
                           }});
    engine.twoWay = true;
    const auto there = OutlookAppointRows(items);
    parts.pane.Fill(AppointRows(list));
    engine.SyncPhoneToOutlook(list, items, parts.pane);
    parts.pane.Fill(there);
    engine.SyncOutlookToPhone(items, list, parts.pane);
    list.WriteContactToFile(parts.cache);
  }
  static Items Loaded(const Parts& parts) {
    Items items(parts.outlook);
    items.LoadOutlookAppoint();
    return items;
  }
};

template <class Kind>
class World {
 public:
  using Record = typename Kind::Record;

  World(Parts parts, std::filesystem::path folder)
      : parts_(std::move(parts)), folder_(std::move(folder)), list_(Kind::NewList(parts_)) {
    for (int i = 0; i < 6; ++i) parts_.Pick(2) == 0 ? NewOnPhone() : NewInFolder();
  }

  // What the phone's user changed is seen when the phone is read.
  void LiveAndSync() {
    for (unsigned i = 0; i < parts_.Pick(6); ++i) ChangeInFolder();
    for (unsigned i = 0; i < parts_.Pick(6); ++i) ChangeOnPhone();
    Read();
    for (unsigned i = 0; i < parts_.Pick(4); ++i) ChangeInFolder();
    Sync();
  }
  void Read() {
    Advance();
    list_ = Kind::NewList(parts_);
    for (const auto& [luid, record] : onPhone_) {
      auto read = std::make_shared<Record>(record);
      read->LetData(Text(Kind::List::GetTEMPID()), 0);
      read->LetData(Kind::kPrefix + luid, 1);
      read->LetData(modDate::FormatDateText(now_), 2);
      list_->Add(std::move(read));
    }
    Kind::Load(*list_, parts_);
    for (const Text& luid : changed_) Remember(ValuesOf(onPhone_.at(luid)));
    changed_.clear();
  }
  void Sync() {
    Kind::Sync(*list_, parts_, [this](Record& record) { return Write(record); });
  }
  // Everything that a run could change.
  std::map<std::string, std::string> Look() {
    std::map<std::string, std::string> all = {{"writes", std::to_string(writes_)}};
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
      all[entry.path().filename()] = modFile::ReadWholeFile(entry.path());
    }
    return all;
  }
  void ExpectLastChanges() {
    const auto items = Kind::Loaded(parts_);
    ASSERT_EQ(items.Count(), static_cast<int>(last_.size()));
    ASSERT_EQ(onPhone_.size(), last_.size());
    for (const auto& item : items.NewEnum()) ExpectLast("folder", Kind::ValuesOf(*item));
    for (const auto& [luid, record] : onPhone_) ExpectLast("phone", ValuesOf(record));
    for (const auto& [name, bytes] : Look()) {
      if (!name.starts_with("foreign")) continue;
      for (const Text& line : Split(FromUtf8(Kind::kForeign), u"\r\n")) {
        EXPECT_NE(bytes.find("\r\n" + ToUtf8(line)), std::string::npos) << bytes;
      }
    }
  }

 private:
  void Advance() { now_ += (1 + parts_.Pick(100)) / 86400.0; }
  void Remember(const Values& values) { last_[values[0]] = values; }
  static Values ValuesOf(const Record& record) {
    Values values;
    for (const int field : Kind::kFields) values.push_back(record.GetData(field));
    return values;
  }
  void ExpectLast(const char* where, const Values& values) {
    const Values& last = last_[values[0]];
    EXPECT_TRUE(last.size() == values.size() && Kind::IsSame(last, values))
        << where << ": " << ToUtf8(Join(values)) << "\nlast: " << ToUtf8(Join(last));
  }
  static Text Join(const Values& values) {
    Text all;
    for (const Text& value : values) all += value + u"|";
    return all;
  }

  // The phone takes a record as it is.
  Text Write(Record& record) {
    ++writes_;
    const Text& mobileId = record.GetData(1);
    const bool isNew = mobileId.size() <= std::size(Kind::kPrefix) - 1;
    const Text luid = isNew ? ToText(++luids_) : mobileId.substr(std::size(Kind::kPrefix) - 1);
    onPhone_[luid] = record;
    return isNew ? luid : Text();
  }
  Record Changed(Record record, const Text& name) {
    const Values values = Kind::Random(name, parts_);
    for (std::size_t i = 0; i < values.size(); ++i) record.LetData(values[i], Kind::kFields[i]);
    if (parts_.Pick(4) == 0 && Kind::kExtension == Events::kExtension) record.LetData(u"", 6);
    return record;
  }
  void NewOnPhone() {
    const Text luid = ToText(++luids_);
    onPhone_[luid] = Changed({}, u"N" + ToText(++names_));
    Remember(ValuesOf(onPhone_[luid]));
  }
  void ChangeOnPhone() {
    if (onPhone_.empty() || parts_.Pick(6) == 0) return NewOnPhone();
    auto entry = onPhone_.begin();
    std::advance(entry, parts_.Pick(static_cast<unsigned>(onPhone_.size())));
    entry->second = Changed(entry->second, entry->second.GetData(Kind::kFields[0]));
    changed_.push_back(entry->first);
  }
  void NewInFolder() {
    const std::string uid = "foreign" + std::to_string(++names_);
    Put(uid, Kind::Random(u"N" + ToText(names_), parts_));
  }
  void ChangeInFolder() {
    const auto items = Kind::Loaded(parts_);
    if (items.Count() == 0 || parts_.Pick(6) == 0) return NewInFolder();
    const auto& item =
        items.item(1 + static_cast<int>(parts_.Pick(static_cast<unsigned>(items.Count()))));
    Put(ToUtf8(EntryIdOf(item)), Kind::Random(Kind::ValuesOf(item)[0], parts_));
  }
  // The files that other programs write lie in the future, so that no time is measured.
  void Put(const std::string& uid, const Values& values) {
    Advance();
    const auto path = folder_ / (uid + Kind::kExtension);
    modFile::WriteWholeFile(path, Kind::File(uid, values));
    const timespec times[] = {{outlook::ToMoment(now_), 0}, {outlook::ToMoment(now_), 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    Remember(values);
  }

  Parts parts_;
  std::filesystem::path folder_;
  std::unique_ptr<typename Kind::List> list_;
  DateValue now_ = modDate::PackDate(2090, 1, 1);
  std::map<Text, Record> onPhone_;  // by LUID
  std::vector<Text> changed_;       // LUIDs, since the phone was read
  std::map<Text, Values> last_;     // by name, the last change
  long long luids_ = 0, names_ = 0;
  int writes_ = 0;
};

class SystemClock : public Clock {
 public:
  DateValue Now() const override { return *outlook::ToLocalTime(std::time(nullptr)); }
  int StandardBiasMinutes() const override { return -60; }
};

template <class Kind>
class VdirConvergenceTest : public SyncBench {
 protected:
  VdirConvergenceTest() { setenv("TZ", "Europe/Berlin", 1); }
  ~VdirConvergenceTest() override { unsetenv("TZ"); }

  void Live(unsigned seed) {
    std::filesystem::remove_all(folder.Path() / "app/Outlook");
    store.CreateObject(u"Outlook.Application");
    World<Kind> world(
        {{store, host, language}, pane, progress, folder.Write("cache", ""), std::mt19937(seed)},
        folder.Path() / "app/Outlook" / Kind::kFolder);
    world.LiveAndSync();
    world.LiveAndSync();
    world.Read();
    world.Sync();
    world.Read();
    const auto before = world.Look();
    world.Sync();
    ASSERT_EQ(world.Look(), before);
    world.ExpectLastChanges();
  }

  SystemClock clock;
  VdirOutlook store{files, clock, [](const Text& names) { ADD_FAILURE() << ToUtf8(names); }};
};

using Kinds = testing::Types<Contacts, Events>;
TYPED_TEST_SUITE(VdirConvergenceTest, Kinds);

TYPED_TEST(VdirConvergenceTest, TheThirdRunChangesNothingAndTheLastChangeStands) {
  for (unsigned seed = 0; seed < 20 && !this->HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    this->Live(seed);
  }
}

}  // namespace
}  // namespace tessarin
