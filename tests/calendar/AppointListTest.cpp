#include <gtest/gtest.h>

#include "calendar/CalendarLists.h"
#include "codecs/Faults.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/TempFolder.h"

namespace tessarin {
namespace {

using Appoint = clsT610Appoint;

class SetClock : public Clock {
 public:
  DateValue Now() const override {
    return modDate::PackDate(2004, 6, 15) + modDate::PackTime(12, 0, 0);
  }
  int StandardBiasMinutes() const override { return 0; }
};

CalendarRecord Record(const Text& luid, const Text& summary) {
  CalendarRecord record;
  record.StartTime = u"01/06/2004 10:00:00";
  record.EndTime = u"01/06/2004 11:00:00";
  record.AlarmTime = u"01/06/2004 09:45:00";
  record.Summary = summary;
  record.Location = u"Köln";
  record.Category = u"TRAVEL";
  record.Luid = luid;
  record.EntryType = u"EVENT";
  return record;
}

class AppointListTest : public testing::Test {
 protected:
  AppointListTest() {
    files_.CheckDataFiles();
    language_.readLangFile(0);
  }
  clsT610AppointList& list() { return *lists_.phoneAppointments; }
  const Text& Field(int index, int field) { return list().item(index).GetData(field); }
  std::string File() const { return folder_.Read("Cal/CalendarMobile.dat"); }
  void SetFile(const std::string& content) const {
    folder_.Write("Cal/CalendarMobile.dat", content);
  }
  // The line of the only entry, with one field other than it is.
  std::string LineWith(int field, const Text& value) {
    auto fields =
        clsT610AppointList::DecodeContactStr(clsT610AppointList::EncodeContactStr(list().item(1)));
    fields[static_cast<std::size_t>(field)] = value;
    clsT610Appoint changed;
    for (int i = 0; i < Appoint::kFields; ++i) {
      changed.LetData(fields[static_cast<std::size_t>(i)], i);
    }
    changed.LetData(u"linked", Appoint::kGuid);
    changed.LetData(u"long ago", Appoint::kModified);
    return clsT610AppointList::EncodeContactStr(changed) + "\r\n";
  }

  TempFolder folder_;
  modFile files_{folder_.Path(), TESSARIN_SHARE};
  Language language_{files_};
  SetClock clock_;
  CalendarLists lists_{files_, language_, clock_};
};

TEST_F(AppointListTest, CategoriesAreKeptAsOneWordForAllTypes) {
  const Text kept = Appoint::GetTypeName(1, language_);
  EXPECT_FALSE(kept.empty());
  for (int typeNo = 2; typeNo <= 6; ++typeNo) {
    EXPECT_EQ(Appoint::GetTypeName(typeNo, language_), kept);
  }
  for (const int typeNo : {-1, 0, 7}) EXPECT_EQ(Appoint::GetTypeName(typeNo, language_), u"");
  const std::pair<const char16_t*, int> phone[] = {
      {u"APPOINTMENT", 1},   {u"DATE", 2},    {u"TRAVEL", 3}, {u"VACATION", 4}, {u"ANNIVERSARY", 5},
      {u"MISCELLANEOUS", 6}, {u"MEETING", 6}, {u"date", 6},   {u"", 6}};
  for (const auto& [name, typeNo] : phone) {
    EXPECT_EQ(Appoint::TypeOfPhoneCategory(name), typeNo) << ToUtf8(name);
  }
  const auto shown = CategoryWords(language_);
  for (int typeNo = 1; typeNo <= 5; ++typeNo) {
    EXPECT_EQ(Appoint::GetTypeNo(shown[static_cast<std::size_t>(typeNo - 1)], language_), typeNo);
  }
  EXPECT_EQ(Appoint::GetTypeNo(kept, language_), 6);
  EXPECT_EQ(Appoint::GetTypeNo(u"Party", language_), 6);
}

TEST_F(AppointListTest, TheEventsOfThePhoneBecomeTheList) {
  auto task = Record(u"000100000002", u"Milk");
  task.EntryType = u"";
  lists_.Rebuild({Record(u"000100000001", u"Train"), task, Record(u"000100000003", u"李")});
  ASSERT_EQ(list().Count(), 2);
  const Text expected[] = {Text(clsT610AppointList::GetTEMPID()),
                           u"000100000001",
                           u"15/06/2004 12:00:00",
                           Appoint::GetTypeName(3, language_),
                           u"01/06/2004 09:45:00",
                           u"01/06/2004 10:00:00",
                           u"01/06/2004 11:00:00",
                           u"0",
                           u"Train",
                           u"Köln"};
  for (int field = 0; field < Appoint::kFields; ++field) {
    EXPECT_EQ(Field(1, field), expected[field]) << field;
  }
  EXPECT_EQ(clsT610AppointList::GetTEMPID().size(), 48u);
  EXPECT_EQ(list().FindExistingMobileID(u"000100000003"), 2);
  EXPECT_EQ(list().FindExistingMobileID(u"000100000002"), -1);
  EXPECT_EQ(list().FindExistingGUID(clsT610AppointList::GetTEMPID()), 1);
  list().Remove(1);
  EXPECT_EQ(Field(1, Appoint::kSubject), u"李");
  for (const int place : {-1, 0, 2}) {
    EXPECT_THROW(list().item(place), BoundsError);
    EXPECT_THROW(list().Remove(place), BoundsError);
  }
  for (const int field : {-1, 10}) EXPECT_THROW(list().item(1).GetData(field), BoundsError);
}

TEST_F(AppointListTest, ALineIsTenGroups) {
  Appoint appoint;
  appoint.LetData(u"a,Ж", 0);
  appoint.LetData(u"7", Appoint::kSpare);
  appoint.LetData(u"é\r\n", 9);
  const std::string line = "0061002C0416,,,,,,,0037,,00E9000D000A";
  EXPECT_EQ(clsT610AppointList::EncodeContactStr(appoint), line);
  lists_.Rebuild({});
  list().AssignContact(clsT610AppointList::DecodeContactStr(line));
  EXPECT_EQ(Field(1, 0), u"a,Ж");
  EXPECT_EQ(Field(1, Appoint::kSpare), u"") << "written, and not read back";
  EXPECT_EQ(Field(1, 9), u"é\r\n");
  EXPECT_THROW(list().AssignContact(std::vector<Text>(9)), BoundsError);
}

TEST_F(AppointListTest, OnlyADifferenceThatCountsGetsTheFreshTime) {
  const std::vector<CalendarRecord> records = {Record(u"000100000001", u"Train")};
  lists_.Rebuild(records);
  for (int field = 0; field < Appoint::kFields; ++field) {
    if (field == Appoint::kMobileId) continue;
    SetFile(LineWith(field, u"other"));
    lists_.Rebuild(records);
    const bool isCompared = field >= Appoint::kCategory && field != Appoint::kSpare;
    EXPECT_EQ(Field(1, Appoint::kModified), isCompared ? u"15/06/2004 12:00:00" : u"long ago")
        << field;
    EXPECT_EQ(Field(1, Appoint::kGuid), u"linked") << field;
  }
}

TEST_F(AppointListTest, TheFileKeepsLinksUntilADamagedLine) {
  const std::vector<CalendarRecord> records = {Record(u"000100000001", u"Train"),
                                               Record(u"000100000003", u"Meal")};
  lists_.Rebuild(records);
  for (int index : {1, 2}) list().item(index).LetData(u"id" + ToText(index), Appoint::kGuid);
  lists_.Unloading();
  EXPECT_EQ(lists_.phoneAppointments, nullptr);
  const std::string saved = File();
  lists_.Rebuild(records);
  EXPECT_EQ(Field(2, Appoint::kGuid), u"id2");
  lists_.Save();
  EXPECT_EQ(File(), saved) << "a round without changes";

  const auto second = saved.find("\r\n") + 2;
  SetFile("\n\r\n" + LineWith(Appoint::kMobileId, u"gone") + saved.substr(0, second) + "0041\r\n" +
          saved.substr(second));
  lists_.Rebuild(records);
  EXPECT_EQ(Field(1, Appoint::kGuid), u"id1");
  EXPECT_EQ(Field(2, Appoint::kGuid), clsT610AppointList::GetTEMPID());
  lists_.Save();
  EXPECT_EQ(File().find("0067006F006E0065"), std::string::npos)
      << "an entry gone from the phone is dropped";
  EXPECT_TRUE(File().ends_with("\r\n0041\r\n")) << "the damaged line hides nothing any more";
  lists_.Rebuild(records);
  EXPECT_EQ(Field(2, Appoint::kGuid), u"id2");
  list().item(2).LetData(u"newer", Appoint::kGuid);
  lists_.Save();
  lists_.Rebuild(records);
  EXPECT_EQ(Field(2, Appoint::kGuid), u"newer") << "the line of the older link is gone";
}

// What stands in place of the file while it cannot be read or written.
TEST_F(AppointListTest, LinksOutliveAFileThatFails) {
  const std::vector<CalendarRecord> records = {Record(u"000100000001", u"Train"),
                                               Record(u"000100000003", u"Meal")};
  const auto file = folder_.Path() / "Cal/CalendarMobile.dat";
  lists_.Rebuild(records);
  list().item(1).LetData(u"id1", Appoint::kGuid);
  lists_.Save();

  std::filesystem::rename(file, folder_.Path() / "aside");
  std::filesystem::create_directory(file);
  lists_.Rebuild(records);
  EXPECT_EQ(Field(1, Appoint::kGuid), clsT610AppointList::GetTEMPID());
  list().item(2).LetData(u"id2", Appoint::kGuid);
  lists_.Save();
  lists_.Rebuild(records);
  EXPECT_EQ(Field(2, Appoint::kGuid), u"id2") << "not saved, and not forgotten";

  std::filesystem::remove(file);
  std::filesystem::rename(folder_.Path() / "aside", file);
  lists_.Unloading();
  lists_.Rebuild(records);
  EXPECT_EQ(Field(1, Appoint::kGuid), u"id1") << "of the file that could not be read at first";
  EXPECT_EQ(Field(2, Appoint::kGuid), u"id2");
}

TEST_F(AppointListTest, KeepsWhatAFileHoldsThatCouldNotBeRead) {
  SetFile("kept");
  const auto file = folder_.Path() / "Cal/CalendarMobile.dat";
  std::filesystem::permissions(file, std::filesystem::perms(0222));
  {
    const OrdinaryUser user;
    lists_.Rebuild({Record(u"000100000001", u"Train")});
  }
  std::filesystem::permissions(file, std::filesystem::perms(0666));
  lists_.Save();
  EXPECT_TRUE(File().ends_with("kept\r\n"));
}

TEST_F(AppointListTest, WithoutAListNothingIsWritten) {
  SetFile("kept");
  lists_.Unloading();
  EXPECT_EQ(File(), "kept");
  std::filesystem::remove(folder_.Path() / "Cal/CalendarMobile.dat");
  lists_.Rebuild({Record(u"000100000001", u"Train")});
  EXPECT_EQ(list().Count(), 1) << "a missing file is no fault";
}

TEST_F(AppointListTest, TakesOverAnOutlookItem) {
  lists_.Rebuild({Record(u"000100000001", u"Train")});
  OutlookFacts item;
  item.EntryID = u"uid";
  item.LastModificationTime = modDate::PackDate(2004, 7, 1) + modDate::PackTime(8, 5, 9);
  item.Categories = u"Party";
  item.Subject = u"Dinner";
  item.Location = u"Home";
  item.Start = modDate::PackDate(2004, 7, 2);
  item.End = item.Start + modDate::PackTime(2, 0, 0);
  item.ReminderSet = true;
  item.ReminderMinutesBeforeStart = 15;
  list().UpdateOutlookAppoint(item, 1, u"-1");
  const Text expected[] = {u"uid",
                           u"000100000001",
                           u"01/07/2004 08:05:09",
                           Appoint::GetTypeName(1, language_),
                           u"01/07/2004 23:45:00",
                           u"02/07/2004 00:00:00",
                           u"02/07/2004 02:00:00",
                           u"0",
                           u"Dinner",
                           u"Home"};
  for (int field = 0; field < Appoint::kFields; ++field) {
    EXPECT_EQ(Field(1, field), expected[field]) << field;
  }
  item.ReminderSet = false;
  list().AddOutlookAppoint(item, u"-1");
  EXPECT_EQ(Field(2, Appoint::kMobileId), u"");
  EXPECT_EQ(Field(2, Appoint::kAlarm), u"");
  list().UpdateOutlookAppoint(item, 2, u"000100000009");
  EXPECT_EQ(Field(2, Appoint::kMobileId), u"000100000009");
}

}  // namespace
}  // namespace tessarin
