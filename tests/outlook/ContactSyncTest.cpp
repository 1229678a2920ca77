// The engine of the contacts synchronisation against an Outlook and a phone that are scripted.

#include "outlook/ContactSync.h"

#include <gtest/gtest.h>

#include "core/TextIndex.h"
#include "outlook/ContactMapping.h"
#include "outlook/ContactRows.h"
#include "tests/outlook/ScriptedOutlook.h"
#include "tests/outlook/SyncBench.h"

namespace tessarin {
namespace {

using Contact = ScriptedOutlook::Contact;

const Text kOld = u"01/01/2004 00:00:00", kNew = u"02/01/2004 00:00:00";
const DateValue kOldTime = modDate::PackDate(2004, 1, 1), kNewTime = modDate::PackDate(2004, 1, 2);

class ContactSyncTest : public SyncBench {
 protected:
  ContactSyncTest() { phone.ListType = -1; }

  static std::shared_ptr<clsT610Contact> Record(const Text& name, const Text& guid,
                                                const Text& mobileId, const Text& modified) {
    auto contact = std::make_shared<clsT610Contact>();
    contact->LetData(guid, 0);
    contact->LetData(mobileId, 1);
    contact->LetData(modified, 2);
    contact->LetData(name, 3);
    return contact;
  }
  clsOutContactList& Outlook() {
    list_ = std::make_unique<clsOutContactList>(OutlookNeeds{outlook, host, language});
    list_->LoadOutlookContact();
    return *list_;
  }
  SyncCount ToOutlook(clsT610ContactList& from) {
    auto& to = Outlook();
    Show(ContactRows(from, language));
    engine.SyncListToOutlook(from, to, pane);
    return engine.count();
  }
  SyncCount FromOutlook(clsT610ContactList& to) {
    auto& from = Outlook();
    Show(OutlookRows(from));
    engine.SyncOutlookToList(from, to, pane);
    return engine.count();
  }
  SyncCount ListToList(clsT610ContactList& from, clsT610ContactList& to) {
    Show(ContactRows(from, language));
    engine.SyncListToList(from, to, pane);
    return engine.count();
  }
  // Name, field 1 and time of each contact.
  static std::string Listed(const clsT610ContactList& list) {
    std::string told;
    for (const auto& contact : list) {
      told +=
          ToUtf8(contact->GetData(3) + u"|" + contact->GetData(1) + u"|" + contact->GetData(2)) +
          "\n";
    }
    return told;
  }

  clsT610ContactList phone, book;
  // Of the next writes to the phone.
  Text result = u"77";
  bool phoneTakes = true;
  std::vector<std::string> written;
  std::vector<Text> asked;
  std::function<void()> answer = [] {};
  ContactSync engine{{host, language, progress,
                      [this](clsT610Contact& contact, char16_t kind, int mode, bool& done) {
                        written.push_back(ToUtf8(Text(1, kind) + ToText(mode) + u" " +
                                                 contact.GetData(3) + u" " + contact.GetData(24)));
                        done = phoneTakes;
                        return result;
                      },
                      [this](const Text& replaced, const Text& replacing) {
                        asked.push_back(replaced + u" -> " + replacing);
                        answer();
                      }}};

 private:
  std::unique_ptr<clsOutContactList> list_;
};

TEST_F(ContactSyncTest, TwoWayAddsWhatIsMissingAndReplacesOnlyWhatIsOlder) {
  engine.twoWay = true;
  struct Case {
    Text listTime;
    DateValue outlookTime;
    const char *toOutlook, *fromOutlook;
  };
  const Case cases[] = {{kNew, kOldTime, "0 1 0 0", "0 0 1 0"},
                        {kOld, kNewTime, "0 0 1 0", "0 1 0 0"},
                        {kOld, kOldTime, "0 0 1 0", "0 0 1 0"},
                        {u"", kOldTime, "0 0 1 0", "0 1 0 0"}};
  for (const Case& c : cases) {
    for (auto* list : {&phone, &book}) {
      *list = clsT610ContactList();
      list->ListType = list == &phone ? -1 : 0;
      outlook.contacts.clear();
      const auto item = outlook.AddContact(u"Outlook's", c.outlookTime);
      list->Add(Record(u"List's", item->EntryID(), u"p1", c.listTime));
      EXPECT_EQ(Told(ToOutlook(*list)), c.toOutlook);
      EXPECT_EQ(list->item(1).GetData(2),
                ModifiedText(*item) == list->item(1).GetData(2) ? ModifiedText(*item) : c.listTime);
      ScriptedOutlook::Touch(*item, c.outlookTime);
      list->item(1).LetData(c.listTime, 2);
      EXPECT_EQ(Told(FromOutlook(*list)), c.fromOutlook);
    }
  }
  EXPECT_TRUE(asked.empty());
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(ContactSyncTest, AContactWithoutALinkIsNewToOutlookAndTakesItsIdentity) {
  selected = {0, 1, 2};
  for (const bool twoWay : {true, false}) {
    engine.twoWay = twoWay;
    phone = clsT610ContactList();
    for (const TextView guid :
         {clsT610ContactList::GetTEMPID(), TextView(u""), TextView(u"gone")}) {
      phone.Add(Record(u"A", Text(guid), u"p1", kOld));
    }
    outlook.contacts.clear();
    EXPECT_EQ(Told(ToOutlook(phone)), "3 0 0 0");
    ASSERT_EQ(outlook.contacts.size(), 3u);
    for (int i = 1; i <= 3; ++i) {
      EXPECT_EQ(phone.item(i).GetData(0),
                outlook.contacts[static_cast<std::size_t>(i - 1)]->EntryID());
      EXPECT_EQ(phone.item(i).GetData(2), modDate::FormatDateText(outlook.now));
    }
    engine.twoWay = true;
    EXPECT_EQ(Told(ToOutlook(phone)), "0 0 3 0");
    EXPECT_EQ(Told(FromOutlook(phone)), "0 0 3 0");
  }
}

TEST_F(ContactSyncTest, WhatIsNewFromOutlookGoesIntoThePhonesOwnMemory) {
  engine.twoWay = true;
  struct Case {
    Text result;
    const char *count, *list;
  };
  const Case cases[] = {{u"000000000001", "1 0 0 0", "Anna|p000000000001|01/01/2004 00:00:00\n"},
                        {u"-1", "0 0 0 1", ""},
                        {u"", "0 0 0 1", "Anna|p|01/01/2004 00:00:00\n"}};
  const auto item = outlook.AddContact(u"Anna", kOldTime);
  item->texts[static_cast<std::size_t>(outlook::ContactProperty::WebPage)] = u"url";
  outlook.contacts.push_back(std::make_shared<ScriptedOutlook::Other>());
  for (const Case& c : cases) {
    phone = clsT610ContactList();
    phone.ListType = -1;
    result = c.result;
    phoneTakes = c.result.size() > 2;
    EXPECT_EQ(Told(FromOutlook(phone)), c.count);
    EXPECT_EQ(Listed(phone), c.list);
    EXPECT_EQ(written.back(), "p1 Anna url");
  }
  written.clear();
  EXPECT_EQ(Told(FromOutlook(book)), "1 0 0 0");
  EXPECT_EQ(Listed(book), "Anna||01/01/2004 00:00:00\n");
  EXPECT_TRUE(written.empty());
}

TEST_F(ContactSyncTest, AnUpdateOfThePhoneKeepsItsMemoryAndStaysInTheListWhenItFails) {
  engine.twoWay = true;
  const auto item = outlook.AddContact(u"Anna", kNewTime);
  struct PhoneAnswer {
    Text result;
    bool takes;  // not so either when no session came about, and the answer is empty
  };
  for (const Text& mobileId : {Text(u"s4"), Text(u"p1")}) {
    for (const PhoneAnswer& said : {PhoneAnswer{u"", true}, {u"", false}, {u"-1", false}}) {
      phone = clsT610ContactList();
      phone.ListType = -1;
      phone.Add(Record(u"Old", item->EntryID(), mobileId, kOld));
      result = said.result;
      phoneTakes = said.takes;
      EXPECT_EQ(Told(FromOutlook(phone)), said.takes ? "0 1 0 0" : "0 0 0 1");
      EXPECT_EQ(Listed(phone), "Anna|" + ToUtf8(mobileId) + "|02/01/2004 00:00:00\n");
      EXPECT_EQ(written.back(), ToUtf8(mobileId.substr(0, 1)) + "2 Anna ");
    }
  }
}

TEST_F(ContactSyncTest, BetweenPhoneAndBookTheIdentityIsThePhones) {
  engine.twoWay = true;
  phone.Add(Record(u"A", u"g", u"p1", kNew));
  phone.item(1).LetData(u"url", 24);
  phone.Add(Record(u"B", u"g", u"s2", kOld));
  book.Add(Record(u"a", u"", u"p1", kOld));
  EXPECT_EQ(Told(ListToList(phone, book)), "1 1 0 0");
  EXPECT_EQ(Listed(book), "A|p1|02/01/2004 00:00:00\nB|s2|01/01/2004 00:00:00\n");
  EXPECT_EQ(book.item(1).GetData(24), u"");
  EXPECT_EQ(Told(ListToList(book, phone)), "0 0 2 0");

  book.item(2).LetData(kNew, 2);
  book.Add(Record(u"C", u"", u"s9", kOld));
  book.Add(Record(u"D", u"", u"", kOld));
  written.clear();
  EXPECT_EQ(Told(ListToList(book, phone)), "2 1 1 0");
  EXPECT_EQ(written, (std::vector<std::string>{"s2 B ", "s1 C ", "p1 D "}));
  EXPECT_EQ(phone.item(3).GetData(1), u"s77");
  EXPECT_EQ(phone.item(4).GetData(1), u"p77");
  result = u"-1";
  phoneTakes = false;
  book.Add(Record(u"E", u"", u"p5", kOld));
  EXPECT_EQ(Told(ListToList(book, phone)), "0 0 4 1") << "C and D are known by now";
  EXPECT_EQ(phone.Count(), 4);
}

// Yes alone leaves the answer at No; only Yes to all brings a change, and asks no more.
TEST_F(ContactSyncTest, TheOverwriteQuestionDecidesOneWay) {
  struct Case {
    std::int16_t decision;
    bool addAsNew;
    std::size_t questions;
    const char* count;
  };
  const Case cases[] = {{overwrite::kNo, false, 2, "1 0 2 0"},
                        {overwrite::kYesToAll, false, 1, "1 2 0 0"},
                        {overwrite::kYesToAll, true, 1, "3 0 0 0"},
                        {overwrite::kNoToAll, false, 1, "1 0 2 0"},
                        {overwrite::kNo, true, 2, "1 0 2 0"}};
  for (const Case& c : cases) {
    for (const bool toOutlook : {true, false}) {
      outlook.contacts.clear();
      book = clsT610ContactList();
      for (const char16_t* name : {u"A", u"B"}) {
        const auto item = outlook.AddContact(name, kOldTime);
        book.Add(Record(name, item->EntryID(), u"p1", kNew));
      }
      if (toOutlook) {
        book.Add(Record(u"C", u"", u"p3", kNew));
      } else {
        outlook.AddContact(u"C", kOldTime);
      }
      asked.clear();
      engine.overwriteDecision = overwrite::kNo;
      engine.addAsNew = false;
      answer = [this, &c] {
        engine.overwriteDecision = c.decision;
        engine.addAsNew = c.addAsNew;
      };
      selected = {0, 1, 2};
      EXPECT_EQ(Told(toOutlook ? ToOutlook(book) : FromOutlook(book)), c.count);
      EXPECT_EQ(asked.size(), c.questions);
      if (c.addAsNew && c.decision == overwrite::kYesToAll && !toOutlook) {
        EXPECT_EQ(book.item(1).GetData(0), clsT610ContactList::GetTEMPID());
        EXPECT_EQ(book.Count(), 5);
      }
    }
  }
  EXPECT_EQ(
      asked[0],
      u"A\r\nHome: \r\nWork: \r\nMobile: \r\nFax: \r\nOther: \r\nLast modified: \r\n" + kNew +
          u" -> A\r\nHome: \r\nWork: \r\nMobile: \r\nFax: \r\nOther: \r\nLast modified: \r\n" +
          kOld);
}

TEST_F(ContactSyncTest, AsNewBetweenListsUnlinksWhatIsNotThePhones) {
  engine.overwriteDecision = overwrite::kYesToAll;
  engine.addAsNew = true;
  selected = {0};
  phone.Add(Record(u"A", u"", u"p1", kOld));
  book.Add(Record(u"B", u"", u"p1", kOld));
  EXPECT_EQ(Told(ListToList(book, phone)), "1 0 0 0");
  EXPECT_EQ(book.item(1).GetData(1), u"p77");
  EXPECT_EQ(phone.item(2).GetData(1), u"p77");
  book.item(1).LetData(u"p1", 1);
  EXPECT_EQ(Told(ListToList(phone, book)), "1 0 0 0");
  EXPECT_EQ(phone.item(1).GetData(1), u"");
}

TEST_F(ContactSyncTest, OneWayTakesTheSelectedRowsAndSaysWhenThereAreNone) {
  for (const char16_t* name : {u"A", u"B", u"C"}) book.Add(Record(name, u"", u"", kOld));
  selected = {};
  EXPECT_EQ(Told(ToOutlook(book)), "0 0 0 0");
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_EQ(host.boxes[0].text, language.getTSErrStr(text::error::kNothingSelected));
  selected = {2};
  EXPECT_EQ(Told(ToOutlook(book)), "1 0 0 0");
  EXPECT_EQ(book.item(3).GetData(0), u"C1");
  EXPECT_EQ(host.boxes.size(), 1u);
}

TEST_F(ContactSyncTest, AFaultOfOutlooksEndsTheRunAndKeepsWhatWasDone) {
  engine.twoWay = true;
  for (const char16_t* name : {u"A", u"B", u"C"}) book.Add(Record(name, u"", u"", kOld));
  outlook.savesUntilFault = 2;
  EXPECT_THROW(ToOutlook(book), FileError);
  EXPECT_EQ(outlook.contacts.size(), 2u);
  EXPECT_EQ(book.item(2).GetData(0), outlook.contacts[1]->EntryID());
  EXPECT_EQ(book.item(3).GetData(0), u"");
}

TEST_F(ContactSyncTest, AnItemThatCannotBeReadIsNotGone) {
  engine.twoWay = true;
  book.Add(Record(u"A", u"id", u"", kNew));
  outlook.skipped = {u"id"};
  EXPECT_EQ(Told(ToOutlook(book)), "0 0 0 1");
  EXPECT_TRUE(outlook.contacts.empty());
}

TEST_F(ContactSyncTest, WhatChangesWhileTheQuestionStandsStays) {
  const auto item = outlook.AddContact(u"Theirs", kOldTime);
  book.Add(Record(u"Ours", item->EntryID(), u"", kOld));
  selected = {0};
  answer = [&] {
    engine.overwriteDecision = overwrite::kYesToAll;
    ScriptedOutlook::Touch(*item, kNewTime);
  };
  EXPECT_EQ(Told(ToOutlook(book)), "0 0 1 0");
  EXPECT_EQ(item->texts[0], u"Theirs");
}

TEST_F(ContactSyncTest, ATimeThatDoesNotReadFailsItsRowAlone) {
  engine.twoWay = true;
  for (const Text& time : {Text(u"no time at all"), kNew}) {
    const auto item = outlook.AddContact(u"Theirs", kOldTime);
    book.Add(Record(u"Ours", item->EntryID(), u"", time));
  }
  EXPECT_EQ(Told(ToOutlook(book)), "0 1 0 1");
}

// Otherwise the next reading would find the contact changed on the phone, and so the later one.
TEST_F(ContactSyncTest, TheListHoldsWhatThePhoneHasRoomFor) {
  engine.twoWay = true;
  const auto item = outlook.AddContact(Text(70, u'n'), kNewTime);
  item->texts[1] = Text(70, u'1');
  item->texts[static_cast<std::size_t>(outlook::ContactProperty::CompanyName)] = Text(40, u'c');
  item->texts[static_cast<std::size_t>(outlook::ContactProperty::BusinessAddressCity)] = u"Rome";
  struct Case {
    Text mobileId;
    std::size_t name, number, company, workCity;
  };
  for (const Case& c : {Case{u"p1", 62, 40, 30, 0}, {u"s1", 50, 60, 40, 4}}) {
    for (const bool takes : {false, true}) {
      phone = clsT610ContactList();
      phone.ListType = -1;
      phone.Add(Record(u"Old", item->EntryID(), c.mobileId, kOld));
      result = takes ? u"" : u"-1";
      phoneTakes = takes;
      FromOutlook(phone);
      EXPECT_EQ(phone.item(1).GetData(3).size(), takes ? c.name : 70u);
      EXPECT_EQ(phone.item(1).GetData(4).size(), takes ? c.number : 70u);
      EXPECT_EQ(phone.item(1).GetData(10).size(), takes ? c.company : 40u);
      EXPECT_EQ(phone.item(1).GetData(20).size(), takes ? c.workCity : 4u);
    }
  }
}

TEST_F(ContactSyncTest, FieldsGoBothWaysInTheOrderOfTheTable) {
  auto record = Record(u"f3", u"guid", u"p1", kOld);
  for (int field = 3; field < clsT610Contact::kFields; ++field) {
    record->LetData(u"f" + ToText(field), field);
  }
  clsOutlookContact wrapper(outlook);
  wrapper.UpdateByT610Contact(*record);
  std::string order;
  for (const auto& call : outlook.calls) order += call.substr(call.find(' ') + 1) + " ";
  EXPECT_EQ(order, "0 1 2 3 4 5 6 7 8 9 12 15 14 11 13 10 17 20 19 18 16 Save ");
  clsT610Contact back;
  back.LetData(u"own", 1);
  back.UpdateByOutlookContact(ContactOf(wrapper));
  EXPECT_EQ(back.GetData(0), wrapper.CItem->EntryID());
  EXPECT_EQ(back.GetData(1), u"own");
  EXPECT_EQ(back.GetData(2), modDate::FormatDateText(outlook.now));
  EXPECT_EQ(back.GetData(13), u"");
  for (int field = 3; field < clsT610Contact::kFields; ++field) {
    if (field == 13) continue;
    EXPECT_EQ(back.GetData(field), record->GetData(field)) << field;
  }
  wrapper.UpdateByT610Contact(clsT610Contact());
  for (const Text& text : std::dynamic_pointer_cast<Contact>(wrapper.CItem)->texts) {
    EXPECT_EQ(text, u"");
  }
}

TEST_F(ContactSyncTest, TheDisplayNameIsWhatThereIsOfFirstAndLast) {
  const Text cases[][3] = {
      {u"A", u"B", u"A B"}, {u"A", u"", u"A"}, {u"", u"B", u"B"}, {u"", u"", u""}};
  clsOutlookContact wrapper(outlook);
  for (const auto& [first, last, shown] : cases) {
    auto& item = dynamic_cast<Contact&>(*wrapper.CItem);
    item.first = first;
    item.last = last;
    EXPECT_EQ(wrapper.GetDisplayName(), shown);
  }
}

TEST_F(ContactSyncTest, OutlookThatIsNotThereCostsItsMessagesAndLeavesAnEmptyList) {
  outlook.isMissing = true;
  EXPECT_EQ(Outlook().Count(), 0);
  ASSERT_EQ(host.boxes.size(), 2u);
  EXPECT_EQ(host.boxes[0].text, u"Error 625: " + language.getTSErrStr(39));
  EXPECT_EQ(host.boxes[1].text, u"Error: 624 " + language.getTSErrStr(37));
  EXPECT_EQ(host.boxes[1].buttons, MessageButtons::OkCancel);
  outlook.isMissing = false;
  outlook.folderIsMissing = true;
  EXPECT_EQ(Outlook().FindExistingGUID(u"C1"), -1);
  EXPECT_EQ(host.boxes.size(), 4u);
}

}  // namespace
}  // namespace tessarin
