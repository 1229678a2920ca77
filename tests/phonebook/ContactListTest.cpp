#include <gtest/gtest.h>
#include <sys/stat.h>

#include "codecs/Faults.h"
#include "codecs/modHexStr.h"
#include "phonebook/PhonebookLists.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/TempFolder.h"

namespace tessarin {
namespace {

// A contact whose field n holds `mark` and n.
std::shared_ptr<clsT610Contact> Contact(const Text& mark) {
  auto contact = std::make_shared<clsT610Contact>();
  for (int field = 0; field < clsT610Contact::kFields; ++field) {
    contact->LetData(mark + ToText(field), field);
  }
  return contact;
}

std::string Line(const Text& mark) { return clsT610ContactList::EncodeContactStr(*Contact(mark)); }

class ContactListTest : public testing::Test {
 protected:
  ContactListTest() { files_.CheckDataFiles(); }
  void Write(const std::string& book) const { folder_.Write("Pb/ContactTSC.dat", book); }
  std::string Book() const { return folder_.Read("Pb/ContactTSC.dat"); }
  std::string Mobile() const { return folder_.Read("Pb/ContactMobile.dat"); }

  TempFolder folder_;
  modFile files_{folder_.Path(), folder_.Path()};
};

TEST_F(ContactListTest, ALineIsTwentyFourGroupsOfHexadecimalUnits) {
  clsT610Contact contact;
  contact.LetData(u"a,Ж\r\n", 0);
  contact.LetData(Text(u"\0", 1), 23);
  contact.LetData(u"never written", 24);
  const std::string line = "0061002C0416000D000A" + std::string(23, ',') + "0000";
  EXPECT_EQ(clsT610ContactList::EncodeContactStr(contact), line);

  clsT610ContactList list;
  list.AssignContact(clsT610ContactList::DecodeContactStr(line + ",0062"));
  EXPECT_EQ(list.item(1).GetData(0), u"a,Ж\r\n");
  EXPECT_EQ(list.item(1).GetData(1), u"");
  EXPECT_EQ(list.item(1).GetData(23), Text(u"\0", 1));
  EXPECT_EQ(list.item(1).GetData(24), u"");
  for (const int place : {-1, 0, 2}) EXPECT_THROW(list.item(place), BoundsError) << place;
  for (const int field : {-1, 25}) EXPECT_THROW(list.item(1).GetData(field), BoundsError) << field;
}

TEST_F(ContactListTest, ReadsWhatItWroteInAnyLineEnds) {
  clsT610ContactList list;
  list.Add(Contact(u"Žižek "));
  list.Add(Contact(u"李"));
  const auto file = folder_.Path() / "list.dat";
  list.WriteContactToFile(file, {});
  const std::string content = folder_.Read("list.dat");
  EXPECT_EQ(content, Line(u"Žižek ") + "\r\n" + Line(u"李") + "\r\n");
  for (const std::string& stored : {content, "\r\n\n" + Line(u"Žižek ") + "\n" + Line(u"李")}) {
    folder_.Write("list.dat", stored);
    clsT610ContactList read;
    EXPECT_EQ(read.LoadTSCContactList(file), std::vector<std::string>());
    ASSERT_EQ(read.Count(), 2);
    EXPECT_EQ(read.item(1).GetData(23), u"Žižek 23");
    EXPECT_EQ(read.item(2).GetData(0), u"李0");
  }
}

TEST_F(ContactListTest, KeepsAllFromADamagedLineOn) {
  const std::string damaged = Line(u"b").substr(0, 60);
  const std::string content = Line(u"a") + "\r\n" + damaged + "\r\n" + Line(u"c") + "\r\n";
  Write(content);
  PhonebookLists lists(files_);
  lists.PhoneFound();
  EXPECT_EQ(lists.tscContacts->Count(), 1) << "reading ends at the damage";
  lists.tscContacts->Add(Contact(u"new"));
  lists.Unloading();
  EXPECT_EQ(Book(),
            Line(u"a") + "\r\n" + Line(u"new") + "\r\n" + damaged + "\r\n" + Line(u"c") + "\r\n");
}

TEST_F(ContactListTest, KeepsTheSavedLinesOfAPhoneThatWasNotRead) {
  const std::string saved = Line(u"s1") + "\r\n" + Line(u"p2") + "\r\n";
  folder_.Write("Pb/ContactMobile.dat", saved);
  PhonebookLists lists(files_);
  lists.PhoneFound();
  EXPECT_TRUE(lists.phoneContacts->ListType);
  EXPECT_FALSE(lists.tscContacts->ListType);
  EXPECT_EQ(lists.phoneContacts->Count(), 0);
  lists.phoneContacts->Add(Contact(u"p9"));
  lists.Unloading();
  EXPECT_EQ(Mobile(), Line(u"p9") + "\r\n" + saved);
  EXPECT_EQ(lists.phoneContacts, nullptr);
  lists.Unloading();
  EXPECT_EQ(Mobile(), Line(u"p9") + "\r\n" + saved) << "what was released is not written again";
}

// A contact with these first fields; the others are given as they come.
std::shared_ptr<clsT610Contact> Known(const std::vector<Text>& fields) {
  auto contact = std::make_shared<clsT610Contact>();
  for (std::size_t field = 0; field < fields.size(); ++field) {
    contact->LetData(fields[field], static_cast<int>(field));
  }
  return contact;
}

std::string Saved(const std::vector<Text>& fields) {
  return clsT610ContactList::EncodeContactStr(*Known(fields)) + "\r\n";
}

TEST_F(ContactListTest, FindsCopiesAndRemoves) {
  clsT610ContactList list;
  for (const Text id : {u"s1", u"p1", u"", u"s10", u"p1"}) list.Add(Known({id + u"g", id}));
  EXPECT_EQ(list.FindExistingMobileID(u"s1"), 1);
  EXPECT_EQ(list.FindExistingMobileID(u"S1"), -1);
  EXPECT_EQ(list.FindExistingMobileID(u"p1"), 2);
  EXPECT_EQ(list.FindExistingMobileID(u""), 3);
  EXPECT_EQ(list.FindExistingGUID(u"s10g"), 4);
  EXPECT_EQ(list.FindExistingGUID(u"s10"), -1);

  const auto contact = Contact(u"x");
  list.AddContact(*contact);
  contact->LetData(u"changed", 3);
  EXPECT_EQ(list.item(6).GetData(3), u"x3");
  EXPECT_EQ(list.item(6).GetData(23), u"x23");
  EXPECT_EQ(list.item(6).GetData(24), u"");
  list.item(2).LetData(u"kept", 24);
  list.UpdateContact(*contact, 2);
  EXPECT_EQ(list.item(2).GetData(3), u"changed");
  EXPECT_EQ(list.item(2).GetData(24), u"kept");

  list.Remove(1);
  EXPECT_EQ(list.item(1).GetData(3), u"changed");
  for (const int place : {0, 6}) EXPECT_THROW(list.Remove(place), BoundsError) << place;
  list.ClearAllPMRecord();
  list.ClearAllSIMRecord();
  std::vector<Text> left;
  for (const auto& kept : list) left.push_back(kept->GetData(1));
  EXPECT_EQ(left, (std::vector<Text>{u"x1", u"", u"x1"}));
}

TEST_F(ContactListTest, TakesOverWhatOutlookHas) {
  clsT610ContactList list;
  list.Add(Contact(u"a"));
  list.AddOutlookContact(*Contact(u"o"));
  list.UpdateOutlookContact(*Contact(u"o"), 1, u"-1");
  for (int field = 0; field < clsT610Contact::kFields; ++field) {
    const bool kept = field == 1 || field == 13;
    EXPECT_EQ(list.item(1).GetData(field), (kept ? u"a" : u"o") + ToText(field));
    EXPECT_EQ(list.item(2).GetData(field), kept ? Text() : u"o" + ToText(field));
  }
  list.UpdateOutlookContact(*Contact(u"o"), 1, u"s7");
  EXPECT_EQ(list.item(1).GetData(1), u"s7");
}

TEST_F(ContactListTest, JoinsTheSavedLinksAndTimesToWhatThePhoneHas) {
  const auto file = folder_.Path() / "list.dat";
  folder_.Write("list.dat", Saved({u"g1", u"s1", u"old", u"Ann", u"1", u"other work"}) +
                                Saved({u"g2", u"s2", u"old", u"Bob", u"2"}) +
                                Saved({u"g3", u"p1", u"old", u"Cid", u"3", u"4"}) +
                                Saved({u"g4", u"p2", u"old", u"Dan", u"5", u"6"}) +
                                Saved({u"g5", u"p9", u"old", u"gone"}) +
                                Saved({u"g6", u"p1x", u"old"}));
  clsT610ContactList list;
  list.Add(Known({u"new", u"s1", u"now", u"Ann", u"1"}));
  list.Add(Known({u"new", u"s2", u"now", u"Bob", u"22"}));
  list.Add(Known({u"new", u"p1", u"now", u"Cid", u"3", u"4"}));
  list.Add(Known({u"new", u"p2", u"now", u"Dan", u"5", u"66"}));
  list.Add(Known({u"new", u"p3", u"now", u"Eve"}));
  list.item(3).LetData(u"http://a.example", 24);  // not compared: the file does not keep it
  EXPECT_TRUE(list.LoadT610ContactList(file));
  const std::vector<std::pair<Text, Text>> expected = {
      {u"g1", u"old"}, {u"g2", u"now"}, {u"g3", u"old"}, {u"g4", u"now"}, {u"new", u"now"}};
  ASSERT_EQ(list.Count(), 5);
  for (int place = 1; place <= 5; ++place) {
    const auto& [guid, modified] = expected[static_cast<std::size_t>(place - 1)];
    EXPECT_EQ(list.item(place).GetData(0), guid) << place;
    EXPECT_EQ(list.item(place).GetData(2), modified) << place;
  }
  // Behind a damaged line nothing is trusted; a file that is not there says nothing.
  folder_.Write("list.dat", Saved({u"h1", u"s1"}) + "0041,0042\r\n" + Saved({u"h2", u"s2"}));
  EXPECT_TRUE(list.LoadT610ContactList(file));
  EXPECT_TRUE(list.LoadT610ContactList(folder_.Path() / "none.dat"));
  EXPECT_EQ(list.item(1).GetData(0), u"h1");
  EXPECT_EQ(list.item(2).GetData(0), u"g2");
}

TEST_F(ContactListTest, KeepsTheSavedLinesOfAMemoryOnlyUntilItWasRead) {
  const std::string sim = Saved({u"g1", u"s1", u"old", u"Ann", u"1"}) + Saved({u"g2", u"s2"}),
                    phone = Saved({u"g3", u"p1", u"old", u"Cid"}) + Saved({u"g4", u"p2", u"old"});
  folder_.Write("Pb/ContactMobile.dat", sim + phone);
  PhonebookLists lists(files_);
  lists.PhoneFound();
  lists.phoneContacts->Add(Known({u"new", u"s1", u"now", u"Ann", u"1"}));
  lists.MemoryRead(u's');
  const std::string read = Saved({u"g1", u"s1", u"old", u"Ann", u"1"});
  // One that the user has written meanwhile takes the place of its kept line.
  lists.phoneContacts->Add(Known({u"new", u"p2", u"now"}));
  lists.PhoneFound();
  EXPECT_EQ(Mobile(),
            read + Saved({u"new", u"p2", u"now"}) + Saved({u"g3", u"p1", u"old", u"Cid"}));
  lists.MemoryRead(u'p');
  lists.Unloading();
  EXPECT_EQ(Mobile(), read);
}

TEST_F(ContactListTest, KeepsTheSavedLinesOfAMemoryThatWasReadInPart) {
  const std::string first = Saved({u"g1", u"p1", u"old", u"Ann"}),
                    second = Saved({u"g2", u"p2", u"old", u"Bob"});
  folder_.Write("Pb/ContactMobile.dat", first + second);
  PhonebookLists lists(files_);
  lists.PhoneFound();
  lists.phoneContacts->Add(Known({u"new", u"p1", u"now", u"Ann"}));
  lists.MemoryRead(u'p', false);
  lists.Unloading();
  EXPECT_EQ(Mobile(), first + second);
}

TEST_F(ContactListTest, LeavesFilesAloneThatCouldNotBeRead) {
  const std::string saved = Saved({u"g1", u"p1", u"old", u"Ann"});
  Write(saved);
  folder_.Write("Pb/ContactMobile.dat", saved);
  std::filesystem::permissions(folder_.Path() / "Pb", std::filesystem::perms(0777));
  const auto allow = [this](unsigned mode) {
    for (const char* file : {"Pb/ContactTSC.dat", "Pb/ContactMobile.dat"}) {
      ASSERT_EQ(::chmod((folder_.Path() / file).c_str(), mode), 0);
    }
  };
  // When the file cannot be read: at the start, when it is joined to what the phone has, or till
  // the end of the run.
  for (const bool atStart : {true, false}) {
    for (const bool tillTheEnd : {true, false}) {
      SCOPED_TRACE(atStart);
      PhonebookLists lists(files_);
      allow(atStart ? 0222 : 0666);
      {
        const OrdinaryUser user;
        lists.PhoneFound();
      }
      allow(0222);
      {
        const OrdinaryUser user;
        lists.phoneContacts->Add(Known({u"new", u"p1", u"now", u"Ann"}));
        if (!atStart) lists.MemoryRead(u'p');
        if (atStart) lists.tscContacts->Add(Contact(u"b"));
      }
      allow(tillTheEnd ? 0222 : 0666);
      {
        const OrdinaryUser user;
        if (atStart) lists.PhoneFound();
        EXPECT_EQ(lists.tscContacts->Count(), 1) << "what was not written stays";
        lists.Unloading();
      }
      allow(0666);
      EXPECT_EQ(Mobile(), saved);
      EXPECT_EQ(Book(), saved);
    }
  }
}

TEST_F(ContactListTest, SavesTheListsBeforeASecondConnectionReplacesThem) {
  Write(Line(u"a") + "\r\n");
  PhonebookLists lists(files_);
  lists.Unloading();
  EXPECT_EQ(Book(), Line(u"a") + "\r\n") << "a run without a phone writes nothing";
  lists.PhoneFound();
  lists.tscContacts->Add(Contact(u"b"));
  lists.phoneContacts->Add(Contact(u"p1"));
  lists.PhoneFound();
  EXPECT_EQ(lists.tscContacts->Count(), 2);
  EXPECT_EQ(Book(), Line(u"a") + "\r\n" + Line(u"b") + "\r\n");
  EXPECT_EQ(Mobile(), Line(u"p1") + "\r\n");
  lists.Unloading();
  EXPECT_EQ(Mobile(), Line(u"p1") + "\r\n");
}

TEST_F(ContactListTest, AFolderThatCannotBeWrittenLeavesTheOldFile) {
  Write(Line(u"a") + "\r\n");
  PhonebookLists lists(files_);
  lists.PhoneFound();
  lists.tscContacts->Add(Contact(u"b"));
  const auto folder = folder_.Path() / "Pb";
  std::filesystem::permissions(folder, std::filesystem::perms(0555));
  {
    const OrdinaryUser user;
    lists.Unloading();
  }
  std::filesystem::permissions(folder, std::filesystem::perms(0755));
  EXPECT_EQ(Book(), Line(u"a") + "\r\n");
}

}  // namespace
}  // namespace tessarin
