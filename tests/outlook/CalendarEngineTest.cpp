// The engine of the calendar synchronisation against an Outlook and a phone that are scripted.

#include "outlook/CalendarEngine.h"

#include <gtest/gtest.h>

#include "core/TextIndex.h"
#include "outlook/CalendarSyncRows.h"
#include "tests/outlook/SyncBench.h"

namespace tessarin {
namespace {

using A = clsT610Appoint;

const Text kOld = u"01/01/2004 00:00:00", kNew = u"02/01/2004 00:00:00";
const DateValue kOldTime = modDate::PackDate(2004, 1, 1), kNewTime = modDate::PackDate(2004, 1, 2);

class CalendarEngineTest : public SyncBench {
 protected:
  static std::shared_ptr<A> Entry(const Text& subject, const Text& guid, const Text& mobileId,
                                  const Text& modified) {
    auto entry = std::make_shared<A>();
    const Text fields[] = {guid,
                           mobileId,
                           modified,
                           u"MISCELLANEOUS",
                           u"15/06/2004 08:30:00",
                           u"15/06/2004 09:00:00",
                           u"15/06/2004 10:00:00",
                           u"0",
                           subject,
                           u"Room"};
    for (int field = 0; field < A::kFields; ++field) entry->LetData(fields[field], field);
    return entry;
  }
  clsOutAppointList& Outlook() {
    list_ = std::make_unique<clsOutAppointList>(OutlookNeeds{outlook, host, language});
    list_->LoadOutlookAppoint();
    return *list_;
  }
  SyncCount ToOutlook() {
    auto& to = Outlook();
    Show(AppointRows(phone));
    engine.SyncPhoneToOutlook(phone, to, pane);
    return engine.count();
  }
  SyncCount ToPhone() {
    auto& from = Outlook();
    Show(OutlookAppointRows(from));
    engine.SyncOutlookToPhone(from, phone, pane);
    return engine.count();
  }

  clsT610AppointList phone{language};
  Text result = u"77";
  std::vector<std::string> written;
  CalendarEngine engine{{host, language, progress, [this](A& entry, bool& done) {
                           written.push_back(ToUtf8(entry.GetData(1) + u" " + entry.GetData(8)));
                           done = result != u"-1";
                           return result;
                         }}};

 private:
  std::unique_ptr<clsOutAppointList> list_;
};

TEST_F(CalendarEngineTest, TwoWayAddsWhatIsMissingAndReplacesOnlyWhatIsOlder) {
  engine.twoWay = true;
  struct Case {
    Text time;
    DateValue outlookTime;
    const char *toOutlook, *toPhone;
  };
  const Case cases[] = {{kNew, kOldTime, "0 1 0 0", "0 0 1 0"},
                        {kOld, kNewTime, "0 0 1 0", "0 1 0 0"},
                        {kOld, kOldTime, "0 0 1 0", "0 0 1 0"},
                        {u"", kOldTime, "0 0 1 0", "0 1 0 0"}};
  for (const Case& c : cases) {
    outlook.appointments.clear();
    const auto item = outlook.AddAppointment(u"Outlook's", c.outlookTime);
    while (phone.Count() > 0) phone.Remove(1);
    phone.Add(Entry(u"Phone's", item->EntryID(), u"1", c.time));
    EXPECT_EQ(Told(ToOutlook()), c.toOutlook);
    ScriptedOutlook::Touch(*item, c.outlookTime);
    phone.item(1).LetData(c.time, 2);
    result = u"";
    EXPECT_EQ(Told(ToPhone()), c.toPhone);
    EXPECT_EQ(phone.item(1).GetData(1), u"1");
  }
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(CalendarEngineTest, NewEntriesAreLinkedAndRefusedOnesLeaveTheList) {
  engine.twoWay = true;
  phone.Add(Entry(u"A", Text(clsT610AppointList::GetTEMPID()), u"1", kOld));
  EXPECT_EQ(Told(ToOutlook()), "1 0 0 0");
  EXPECT_EQ(phone.item(1).GetData(0), outlook.appointments[0]->EntryID());
  EXPECT_EQ(phone.item(1).GetData(2), modDate::FormatDateText(outlook.now));
  EXPECT_EQ(Told(ToOutlook()), "0 0 1 0");

  outlook.AddAppointment(u"B", kOldTime);
  outlook.appointments.push_back(std::make_shared<ScriptedOutlook::Other>());
  result = u"-1";
  EXPECT_EQ(Told(ToPhone()), "0 0 1 1");
  EXPECT_EQ(phone.Count(), 1);
  result = u"000000000009";
  EXPECT_EQ(Told(ToPhone()), "1 0 1 0");
  EXPECT_EQ(phone.item(2).GetData(1), u"000000000009");
  EXPECT_EQ(phone.item(2).GetData(3), u"MISCELLANEOUS");
  EXPECT_EQ(written.back(), " B");
  result = u"-1";
  ScriptedOutlook::Touch(dynamic_cast<ScriptedOutlook::Appointment&>(*outlook.appointments[1]),
                         kNewTime);
  EXPECT_EQ(Told(ToPhone()), "0 0 1 1");
  EXPECT_EQ(phone.item(2).GetData(2), kNew);
}

TEST_F(CalendarEngineTest, OneWayAsksForEachEntryThatIsThereOnBothSides) {
  const auto item = outlook.AddAppointment(u"Theirs", kOldTime);
  phone.Add(Entry(u"Ours", item->EntryID(), u"1", kNew));
  selected = {0};
  host.answers = {Answer::Cancel, Answer::Ok};
  EXPECT_EQ(Told(ToOutlook()), "0 0 1 0");
  const Text dates =
      u"Replace this entry:\r\n\r\nTheirs (last modified: 01/01/2004 00:00:00)"
      u"\r\n\r\nwith this one:\r\n\r\nOurs (last modified: 02/01/2004 00:00:00)?";
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_EQ(host.boxes[0].text, dates);
  EXPECT_EQ(host.boxes[0].buttons, MessageButtons::OkCancel);
  EXPECT_EQ(Told(ToOutlook()), "0 1 0 0");
  host.answers = {Answer::Cancel, Answer::Ok};
  EXPECT_EQ(Told(ToPhone()), "0 0 1 0");
  EXPECT_EQ(Told(ToPhone()), "0 1 0 0");
  EXPECT_EQ(written, std::vector<std::string>{"1 Ours"});
  selected = {};
  EXPECT_EQ(Told(ToPhone()), "0 0 0 0");
  EXPECT_EQ(host.boxes.back().text, language.getTSErrStr(text::error::kNothingSelected));
}

TEST_F(CalendarEngineTest, WhatCannotBeReadOrJustChangedStays) {
  engine.twoWay = true;
  phone.Add(Entry(u"A", u"id", u"1", kNew));
  outlook.skipped = {u"id"};
  EXPECT_EQ(Told(ToOutlook()), "0 0 0 1");
  EXPECT_TRUE(outlook.appointments.empty());

  engine.twoWay = false;
  const auto item = outlook.AddAppointment(u"Theirs", kOldTime);
  phone.item(1).LetData(item->EntryID(), 0);
  selected = {0};
  host.whileBoxStands = [&] { ScriptedOutlook::Touch(*item, kNewTime); };
  EXPECT_EQ(Told(ToOutlook()), "0 0 1 0");
  EXPECT_EQ(item->fields.Subject, u"Theirs");
}

TEST_F(CalendarEngineTest, ATimeThatDoesNotReadFailsItsRowAlone) {
  engine.twoWay = true;
  for (const char16_t* subject : {u"A", u"B"}) {
    const auto item = outlook.AddAppointment(u"Theirs", kOldTime);
    phone.Add(Entry(subject, item->EntryID(), subject, kNew));
  }
  phone.item(1).LetData(u"no time at all", A::kEnd);
  EXPECT_EQ(Told(ToOutlook()), "0 1 0 1");
  const auto& first = dynamic_cast<ScriptedOutlook::Appointment&>(*outlook.appointments[0]);
  EXPECT_EQ(first.fields.Subject, u"Theirs") << "nothing of it is set";
}

TEST_F(CalendarEngineTest, TheListHoldsWhatThePhoneHasRoomFor) {
  engine.twoWay = true;
  const auto item = outlook.AddAppointment(Text(120, u's'), kOldTime);
  item->fields.Location = Text(60, u'l');
  EXPECT_EQ(Told(ToPhone()), "1 0 0 0");
  EXPECT_EQ(phone.item(1).GetData(A::kSubject).size(), 100u);
  EXPECT_EQ(phone.item(1).GetData(A::kLocation).size(), 50u);
}

TEST_F(CalendarEngineTest, AnEntryIsWrittenInOrderAndItsAlarmCountsFromTheStart) {
  clsOutAppoint wrapper(outlook);
  const auto entry = Entry(u"A", u"", u"", u"");
  wrapper.UpdateByT610Appoint(*entry);
  const std::vector<std::string> order = {
      "Categories",  "Subject", "Location",        "ClearRecurrencePattern",
      "Start",       "End",     "ReminderSet off", "Sound off",
      "ReminderSet", "Sound",   "Minutes",         "Save"};
  EXPECT_EQ(outlook.calls, order);
  EXPECT_EQ(wrapper.AItem->Get().ReminderMinutesBeforeStart, 30);
  const OutlookFacts facts = FactsOf(wrapper);
  EXPECT_EQ(facts.LastModificationTime, outlook.now);
  EXPECT_EQ(facts.Start, modDate::ParseDateText(entry->GetData(5)));
  EXPECT_EQ(facts.End, modDate::ParseDateText(entry->GetData(6)));
  entry->LetData(u"", 4);
  entry->LetData(u"", 5);
  wrapper.UpdateByT610Appoint(*entry);
  EXPECT_FALSE(wrapper.AItem->Get().ReminderSet);
  EXPECT_EQ(wrapper.AItem->Get().Start, facts.Start);
}

}  // namespace
}  // namespace tessarin
