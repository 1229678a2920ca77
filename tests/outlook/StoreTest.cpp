// The folders of cards and events, and what other programs do to them meanwhile.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <ctime>

#include "codecs/Faults.h"
#include "outlook/LocalTime.h"
#include "outlook/VdirOutlook.h"
#include "outlook/clsOutContactList.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/TempFolder.h"

namespace tessarin::outlook {
namespace {

using P = ContactProperty;

class StandingClock : public tessarin::Clock {
 public:
  DateValue Now() const override { return modDate::PackDate(2004, 6, 15); }
  int StandardBiasMinutes() const override { return 0; }
};

class StoreTest : public testing::Test {
 protected:
  StoreTest() { store.CreateObject(u"Outlook.Application"); }

  std::shared_ptr<ItemCollection> Load(int which = kContactsFolder) {
    return store.Shared().GetNamespace(u"MAPI")->GetDefaultFolder(which)->Items();
  }
  static std::shared_ptr<ContactItem> Contact(const ItemCollection& items, int position) {
    return std::dynamic_pointer_cast<ContactItem>(items.Item(position));
  }
  static std::string CardOf(const std::string& lines) {
    return "BEGIN:VCARD\r\nVERSION:3.0\r\n" + lines + "END:VCARD\r\n";
  }
  // A file of that time, in seconds since 1970: one that is still to come, as it cannot be told
  // from outside when a file came to be.
  void Put(const std::string& name, const std::string& bytes, std::int64_t time = 4000000000) {
    const auto path = folder.Write("app/Outlook/" + name, bytes);
    const timespec times[] = {{time, 999999999}, {time, 999999999}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
  }
  std::filesystem::path Path(const std::string& name) {
    return folder.Path() / "app/Outlook" / name;
  }
  std::string Get(const std::string& name) { return folder.Read("app/Outlook/" + name); }

  TempFolder folder;
  modFile files{folder.Path() / "app", folder.Path()};
  StandingClock clock;
  std::vector<Text> skipped;
  VdirOutlook store{files, clock, [this](const Text& names) { skipped.push_back(names); }};
};

TEST_F(StoreTest, TakesItemsByTheRulesOfTheFolder) {
  Put("Contacts/b.vcf", CardOf("UID:two\r\nFN:B\r\n"));
  Put("Contacts/a name.vcf", CardOf("FN:A\r\n"));
  Put("Contacts/group.vcf", CardOf("KIND:group\r\n"));
  Put("Contacts/broken.vcf", "BEGIN:VCARD\r\nitem1.uid;X=1:of-\r\n broken\r\n");
  Put("Contacts/empty.vcf", "");
  std::filesystem::create_symlink("nowhere", Path("Contacts/link.vcf"));
  ASSERT_EQ(mkfifo(Path("Contacts/pipe.vcf").c_str(), 0600), 0);
  Put("Contacts/capitals.VCF", CardOf("FN:C\r\n"));
  for (const char* other : {".hidden.vcf", "x.vcf.tmp", "y.txt", "z.ics"}) {
    Put(std::string("Contacts/") + other, CardOf("FN:X\r\n"));
  }
  std::filesystem::create_directories(Path("Contacts/folder.vcf"));
  const auto items = Load();
  ASSERT_EQ(items->Count(), 4);
  EXPECT_EQ(items->Item(1)->EntryID(), u"a name");
  EXPECT_EQ(items->Item(2)->EntryID(), u"two");
  EXPECT_EQ(items->Item(3)->EntryID(), u"capitals");
  EXPECT_EQ(items->Item(4)->TypeName(), u"DistListItem");
  EXPECT_EQ(skipped, std::vector<Text>{u"broken.vcf, empty.vcf, link.vcf, pipe.vcf"});
  for (const char16_t* id : {u"broken", u"of-broken", u"empty", u"link", u"pipe"}) {
    EXPECT_TRUE(items->IsSkipped(id)) << ToUtf8(id);
  }
  for (const char16_t* id : {u"a name", u"b", u"two", u"x", u"folder", u""}) {
    EXPECT_FALSE(items->IsSkipped(id)) << ToUtf8(id);
  }
  EXPECT_THROW(items->Item(5), BoundsError);
}

TEST_F(StoreTest, ANewItemGetsItsIdentityAndItsFileWhenSaved) {
  const auto item = std::dynamic_pointer_cast<ContactItem>(store.Shared().CreateItem(kContactType));
  EXPECT_EQ(item->EntryID(), u"");
  EXPECT_EQ(Load()->Count(), 0);
  item->Set(P::FullName, u"Anna Berg");
  item->Save();
  const Text id = item->EntryID();
  EXPECT_EQ(Get("Contacts/" + ToUtf8(id) + ".vcf"),
            CardOf("PRODID:-//Tessarin//EN\r\nUID:" + ToUtf8(id) +
                   "\r\nFN:Anna Berg\r\nN:Berg;Anna;;;\r\n"));
  const auto items = Load();
  ASSERT_EQ(items->Count(), 1);
  EXPECT_EQ(items->Item(1)->EntryID(), id);
  EXPECT_EQ(items->Item(1)->LastModificationTime(), item->LastModificationTime());
  EXPECT_EQ(Contact(*items, 1)->LastName(), u"Berg");
}

// The file's time counts in whole seconds, and a save that changes nothing does not move it.
TEST_F(StoreTest, SavingWithoutAChangeLeavesTheFileAlone) {
  Put("Contacts/a.vcf", CardOf("FN:A\r\nN:;A;;;\r\n"));
  const auto items = Load();
  const auto item = Contact(*items, 1);
  const DateValue before = item->LastModificationTime();
  EXPECT_EQ(modDate::FormatDateText(before).substr(16), u":40");
  item->Set(P::FullName, u"A");
  item->Set(P::WebPage, u"");
  item->Save();
  EXPECT_EQ(item->LastModificationTime(), before);
  item->Set(P::WebPage, u"http://x.org");
  item->Save();
  EXPECT_NE(item->LastModificationTime(), before);
}

TEST_F(StoreTest, AFileThatAnotherProgramChangedIsReadAgainFirst) {
  Put("Contacts/a.vcf", CardOf("UID:u\r\nFN:A\r\nN:;A;;;\r\nTEL;TYPE=HOME:1\r\n"));
  const auto items = Load();
  const auto item = Contact(*items, 1);
  Put("Contacts/a.vcf", CardOf("UID:u\r\nFN:A\r\nN:;A;;;\r\nTEL;TYPE=HOME:2\r\nNOTE:new\r\n"));
  // All texts are set, one of them to another value than the one that was loaded.
  item->Set(P::FullName, u"A");
  item->Set(P::HomeTelephoneNumber, u"1");
  item->Set(P::WebPage, u"http://x.org");
  item->Save();
  EXPECT_EQ(
      Get("Contacts/a.vcf"),
      CardOf("UID:u\r\nFN:A\r\nN:;A;;;\r\nTEL;TYPE=HOME:2\r\nNOTE:new\r\nURL:http://x.org\r\n"));
  EXPECT_EQ(item->Get(P::HomeTelephoneNumber), u"2");

  Put("Contacts/a.vcf", CardOf("UID:u\r\nFN:Anna\r\n"), 4100000000);
  EXPECT_EQ(modDate::Unpack(item->LastModificationTime()).year, 2099);
  EXPECT_EQ(item->Get(P::FullName), u"Anna");

  for (const std::string& other :
       {std::string("damaged"), CardOf("UID:another\r\n"), CardOf("FN:B\r\n")}) {
    Put("Contacts/a.vcf", other);
    item->Set(P::FullName, u"B");
    EXPECT_THROW(item->Save(), FileError);
    EXPECT_EQ(Get("Contacts/a.vcf"), other);
    EXPECT_EQ(item->Get(P::FullName), u"Anna") << "what could not be saved is not shown";
  }
  std::filesystem::remove(folder.Path() / "app/Outlook/Contacts/a.vcf");
  item->Set(P::FullName, u"B");
  item->Save();
  EXPECT_EQ(Get("Contacts/a.vcf"), CardOf("UID:u\r\nFN:B\r\nN:;B;;;\r\n"));
}

// The time is asked for each row that is shown, whatever the file has become by then.
TEST_F(StoreTest, AnItemWhoseFileCannotBeReadAnyMoreStaysAsItWas) {
  Put("Contacts/a.vcf", CardOf("UID:u\r\nFN:A\r\n"));
  const auto items = Load();
  const auto item = Contact(*items, 1);
  const DateValue before = item->LastModificationTime();
  const auto path = Path("Contacts/a.vcf");
  const auto expectSame = [&](const char* became) {
    EXPECT_EQ(item->LastModificationTime(), before) << became;
    EXPECT_EQ(item->Get(P::FullName), u"A") << became;
    std::filesystem::remove_all(path);
  };
  expectSame("untouched");
  expectSame("gone");
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  expectSame("a pipe");
  std::filesystem::create_directories(path);
  expectSame("a folder");
  Put("Contacts/a.vcf", "damaged");
  expectSame("damaged");
  Put("Contacts/a.vcf", CardOf("KIND:group\r\n"));
  EXPECT_THROW(item->Save(), FileError);
  expectSame("a group");
}

TEST_F(StoreTest, EventsAreKeptTheSameWay) {
  const auto item =
      std::dynamic_pointer_cast<AppointmentItem>(store.Shared().CreateItem(kAppointmentType));
  item->SetSubject(u"Lunch");
  item->SetReminderSet(true);
  item->SetReminderMinutesBeforeStart(15);
  item->Save();
  Put("Calendar/todo.ics",
      "BEGIN:VCALENDAR\nVERSION:2.0\nBEGIN:VTODO\nUID:u\nEND:VTODO\nEND:VCALENDAR\n");
  Put("Calendar/broken.ics", "x");
  const auto items = Load(kCalendarFolder);
  ASSERT_EQ(items->Count(), 2);
  EXPECT_EQ(skipped, std::vector<Text>{u"broken.ics"});
  for (int position = 1; position <= 2; ++position) {
    const auto found = items->Item(position);
    if (found->TypeName() == u"TaskItem") continue;
    EXPECT_EQ(found->EntryID(), item->EntryID());
    const auto& fields = dynamic_cast<AppointmentItem&>(*found).Get();
    EXPECT_EQ(fields.Subject, u"Lunch");
    EXPECT_EQ(fields.ReminderMinutesBeforeStart, 15);
  }
}

// Programs that fetch a file from elsewhere give it the time of the change there, which may lie
// before the last run here.
TEST_F(StoreTest, AFileThatCameJustNowIsNewWhateverItsTime) {
  const DateValue start = *ToLocalTime(std::time(nullptr));
  Put("Contacts/a.vcf", CardOf("FN:A\r\n"), 1000000000);
  const auto items = Load();
  const auto item = Contact(*items, 1);
  EXPECT_GE(item->LastModificationTime(), start);
  Put("Contacts/a.vcf", CardOf("FN:B\r\n"), 1000000000);
  EXPECT_GE(item->LastModificationTime(), start);
  EXPECT_EQ(item->Get(P::FullName), u"B");
}

// Otherwise the link of the phone's contact would lead nowhere, and both would be there twice.
TEST_F(StoreTest, AUidThatComesLaterDoesNotMakeAnItemAnotherOne) {
  Put("Contacts/a.vcf", CardOf("FN:A\r\n"));
  Put("Contacts/gone.vcf", CardOf("FN:G\r\n"));
  Put("Contacts/new.vcf", CardOf("UID:n\r\nFN:N\r\n"));
  auto items = Load();
  const auto item = Contact(*items, 1);
  Put("Contacts/a.vcf", CardOf("UID:late\r\nFN:B\r\n"));
  item->Set(P::WebPage, u"http://x.org");
  item->Save();
  EXPECT_EQ(Get("Contacts/a.vcf"), CardOf("UID:late\r\nFN:B\r\nURL:http://x.org\r\n"));
  EXPECT_EQ(item->EntryID(), u"a");
  std::filesystem::remove(Path("Contacts/gone.vcf"));
  for (int again = 0; again < 2; ++again) {
    items = Load();
    EXPECT_EQ(items->Item(1)->EntryID(), u"a");
    EXPECT_EQ(items->Item(2)->EntryID(), u"n");
  }
  Put("Contacts/gone.vcf", CardOf("UID:g\r\nFN:G\r\n"));
  EXPECT_EQ(Load()->Item(2)->EntryID(), u"g");
  // Damaged for a while, it is the same item afterwards.
  Put("Contacts/a.vcf", "damaged");
  EXPECT_EQ(Load()->Count(), 2);
  Put("Contacts/a.vcf", CardOf("UID:late\r\nFN:B\r\n"));
  EXPECT_EQ(Load()->Item(1)->EntryID(), u"a");
}

TEST_F(StoreTest, AnItemThatGotAnotherFileNameIsWrittenThere) {
  Put("Contacts/a.vcf", CardOf("UID:u\r\nFN:A\r\n"));
  const auto items = Load();
  const auto item = Contact(*items, 1);
  std::filesystem::rename(Path("Contacts/a.vcf"), Path("Contacts/b.vcf"));
  Put("Contacts/another.vcf", CardOf("UID:v\r\nFN:A\r\n"));
  item->Set(P::WebPage, u"http://x.org");
  item->Save();
  EXPECT_EQ(Get("Contacts/a.vcf"), "(none)");
  EXPECT_EQ(Get("Contacts/b.vcf"), CardOf("UID:u\r\nFN:A\r\nURL:http://x.org\r\n"));
}

// An entry of the phone's need not say when it ends.
TEST_F(StoreTest, AnEventThatIsMovedStaysAsLongAsItWas) {
  const auto item =
      std::dynamic_pointer_cast<AppointmentItem>(store.Shared().CreateItem(kAppointmentType));
  const DateValue length = item->Get().End - item->Get().Start;
  for (const int year : {2004, 2027, 1999}) {
    const DateValue start = modDate::PackDate(year, 1, 1);
    item->SetStart(start);
    item->Save();
    const auto read = Load(kCalendarFolder)->Item(1);
    const AppointmentFields& fields = dynamic_cast<AppointmentItem&>(*read).Get();
    EXPECT_NEAR(fields.Start, start, 1e-6);
    EXPECT_NEAR(fields.End, start + length, 1e-6) << year;
  }
}

// Whoever leans on a list has to tell items that are gone from items that could not be had.
TEST_F(StoreTest, AListTellsWhatItsLoadingCouldNotTake) {
  ScriptedHost host;
  const modFile shipped(folder.Path() / "app", TESSARIN_SHARE);
  Language language(shipped);
  language.readLangFile(0);
  const OutlookNeeds needs{store, host, language};
  Put("Contacts/a.vcf", CardOf("FN:A\r\n"));
  Put("Contacts/b.vcf", "damaged");
  clsOutContactList list(needs);
  list.LoadOutlookContact();
  EXPECT_EQ(list.Count(), 1);
  EXPECT_TRUE(list.IsSkipped(u"b"));
  EXPECT_FALSE(list.IsSkipped(u"a"));
  EXPECT_FALSE(list.LoadFailed());

  clsOutContactList failed(needs);
  std::filesystem::remove_all(Path("Contacts"));
  failed.LoadOutlookContact();
  EXPECT_TRUE(failed.LoadFailed());
  EXPECT_FALSE(failed.IsSkipped(u"b"));
  EXPECT_EQ(host.boxes.size(), 1u);
}

TEST_F(StoreTest, AFolderThatCannotBeMadeIsAFault) {
  const modFile blocked(folder.Write("file", "x"), folder.Path());
  VdirOutlook none(blocked, clock, nullptr);
  EXPECT_THROW(none.CreateObject(u"Outlook.Application"), FileError);
}

}  // namespace
}  // namespace tessarin::outlook
