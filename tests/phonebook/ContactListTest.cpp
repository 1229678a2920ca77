#include <gtest/gtest.h>

#include "codecs/Faults.h"
#include "codecs/modHexStr.h"
#include "phonebook/PhonebookLists.h"
#include "tests/link/TempFolder.h"
#include "tests/support/OrdinaryUser.h"

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
  list.WriteContactToFile(file);
  const std::string content = folder_.Read("list.dat");
  EXPECT_EQ(content, Line(u"Žižek ") + "\r\n" + Line(u"李") + "\r\n");
  for (const std::string& stored : {content, "\r\n\n" + Line(u"Žižek ") + "\n" + Line(u"李")}) {
    folder_.Write("list.dat", stored);
    clsT610ContactList read;
    EXPECT_TRUE(read.LoadTSCContactList(file).empty());
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
