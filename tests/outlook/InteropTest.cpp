// Address book and calendar programs on the same folders, and an account behind a local server:
// they read what we wrote, and we read what they wrote. A tool that is missing is a failure.

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>

#include "outlook/Card.h"
#include "outlook/VdirOutlook.h"
#include "tests/support/TempFolder.h"

namespace tessarin::outlook {
namespace {

using P = ContactProperty;

class StandingClock : public tessarin::Clock {
 public:
  DateValue Now() const override { return modDate::PackDate(2004, 6, 15); }
  int StandardBiasMinutes() const override { return -60; }
};

class InteropTest : public testing::Test {
 protected:
  InteropTest() {
    setenv("TZ", "Europe/Berlin", 1);
    setenv("HOME", folder.Path().c_str(), 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    store.CreateObject(u"Outlook.Application");
  }
  ~InteropTest() override { unsetenv("TZ"); }

  // What the command prints, its errors too. It may take a minute and has to end well.
  std::string Run(const std::string& command) {
    const std::string whole =
        "cd '" + folder.Path().string() + "' && timeout 60 " + command + " 2>&1 </dev/null";
    FILE* pipe = popen(whole.c_str(), "r");
    std::string told;
    std::array<char, 4096> chunk{};
    while (const std::size_t count = fread(chunk.data(), 1, chunk.size(), pipe)) {
      told.append(chunk.data(), count);
    }
    EXPECT_EQ(pclose(pipe), 0) << command << "\n" << told;
    return told;
  }
  std::shared_ptr<ItemCollection> Load(int which) {
    return store.Shared().GetNamespace(u"MAPI")->GetDefaultFolder(which)->Items();
  }
  std::shared_ptr<ContactItem> Find(const Text& name) {
    const auto items = Load(kContactsFolder);
    for (int i = 1; i <= items->Count(); ++i) {
      auto contact = std::dynamic_pointer_cast<ContactItem>(items->Item(i));
      if (contact != nullptr && contact->Get(P::FullName) == name) return contact;
    }
    return nullptr;
  }
  std::shared_ptr<AppointmentItem> FindEvent(const Text& subject) {
    const auto items = Load(kCalendarFolder);
    for (int i = 1; i <= items->Count(); ++i) {
      auto event = std::dynamic_pointer_cast<AppointmentItem>(items->Item(i));
      if (event != nullptr && event->Get().Subject == subject) return event;
    }
    return nullptr;
  }
  void WriteContact(const Text& name, const Text& mobile) {
    const auto item =
        std::dynamic_pointer_cast<ContactItem>(store.Shared().CreateItem(kContactType));
    item->Set(P::FullName, name);
    item->Set(P::MobileTelephoneNumber, mobile);
    item->Set(P::BusinessFaxNumber, u"0999");
    item->Set(P::CompanyName, u"Berg, Söhne");
    item->Set(P::HomeAddressCity, u"Köln; Nord");
    item->Save();
  }
  void WriteEvent(const Text& subject) {
    const auto item =
        std::dynamic_pointer_cast<AppointmentItem>(store.Shared().CreateItem(kAppointmentType));
    item->SetSubject(subject);
    item->SetLocation(u"Room, 2");
    item->SetStart(modDate::ParseDateText(u"16/06/2004 10:00:00"));
    item->SetEnd(modDate::ParseDateText(u"16/06/2004 11:30:00"));
    item->SetReminderSet(true);
    item->SetReminderMinutesBeforeStart(15);
    item->Save();
  }

  TempFolder folder;
  modFile files{folder.Path() / "app", folder.Path()};
  StandingClock clock;
  VdirOutlook store{files, clock, [](const Text& names) { ADD_FAILURE() << ToUtf8(names); }};
};

TEST_F(InteropTest, AnAddressBookProgramReadsOurContactsAndWeReadIts) {
  folder.Write("khard.conf",
               "[addressbooks]\n[[outlook]]\npath = app/Outlook/Contacts\n"
               "[general]\neditor = /bin/true\nmerge_editor = /bin/true\n");
  folder.Write("new.yaml",
               "First name : Bo\nLast name : Ek\nOrganisation : Works\n"
               "Phone :\n    cell : 0123\n    home, pref : 4711\n    work, fax : 99\n"
               "Email :\n    home : bo@example.org\n"
               "Address :\n    home :\n        Street : Street 1\n        City : Town\n"
               "Webpage : http://bo.example.org\n");
  WriteContact(u"Anna Öberg", u"+49 170 1");
  // A SIM may hold numbers without names.
  const auto nameless =
      std::dynamic_pointer_cast<ContactItem>(store.Shared().CreateItem(kContactType));
  nameless->Set(P::MobileTelephoneNumber, u"4712");
  nameless->Save();
  EXPECT_NE(Run("khard -c khard.conf phone").find("4712"), std::string::npos);
  const std::string shown = Run("khard -c khard.conf show --format yaml Anna");
  for (const char* part : {"Formatted name: Anna Öberg", "Last name: Öberg", "CELL: +49 170 1",
                           "FAX", "0999", "Berg, Söhne", "City: Köln; Nord"}) {
    EXPECT_NE(shown.find(part), std::string::npos) << part << " in\n" << shown;
  }
  Run("khard -c khard.conf new -a outlook -i new.yaml");
  const auto bo = Find(u"Bo Ek");
  ASSERT_NE(bo, nullptr);
  const std::pair<P, Text> expected[] = {
      {P::MobileTelephoneNumber, u"0123"},   {P::HomeTelephoneNumber, u"4711"},
      {P::BusinessFaxNumber, u"99"},         {P::CompanyName, u"Works"},
      {P::Email1Address, u"bo@example.org"}, {P::HomeAddressStreet, u"Street 1"},
      {P::WebPage, u"http://bo.example.org"}};
  for (const auto& [property, text] : expected) EXPECT_EQ(bo->Get(property), text);
  bo->Set(P::MobileTelephoneNumber, u"0555");
  bo->Save();
  EXPECT_NE(Run("khard -c khard.conf show Ek").find("cell: 0555"), std::string::npos);
}

TEST_F(InteropTest, ACalendarProgramReadsOurEventsAndWeReadIts) {
  folder.Write(
      "khal.conf",
      std::string("[calendars]\n[[outlook]]\npath = app/Outlook/Calendar\n") +
          "[sqlite]\npath = " + (folder.Path() / "khal.db").string() +
          "\n[default]\ndefault_calendar = outlook\n"
          "[locale]\ntimeformat = %H:%M\ndateformat = %d/%m/%Y\nlongdateformat = %d/%m/%Y\n"
          "datetimeformat = %d/%m/%Y %H:%M\nlongdatetimeformat = %d/%m/%Y %H:%M\n"
          "local_timezone = Europe/Berlin\ndefault_timezone = Europe/Berlin\n");
  WriteEvent(u"Lunch, long");
  const std::string shown =
      Run("khal -c khal.conf list --format '{start-long}|{end-long}|{title}|{location}' "
          "16/06/2004 1d");
  EXPECT_NE(shown.find("16/06/2004 10:00|16/06/2004 11:30|Lunch, long|Room, 2"), std::string::npos)
      << shown;
  Run("khal -c khal.conf new --alarms 20m --location Here 17/06/2004 10:00 11:30 Meeting");
  Run("khal -c khal.conf new 18/06/2004 19/06/2004 Holiday");
  const auto item = FindEvent(u"Meeting");
  ASSERT_NE(item, nullptr);
  const AppointmentFields& meeting = item->Get();
  EXPECT_EQ(modDate::FormatDateText(meeting.Start), u"17/06/2004 10:00:00");
  EXPECT_EQ(modDate::FormatDateText(meeting.End), u"17/06/2004 11:30:00");
  EXPECT_EQ(meeting.Location, u"Here");
  EXPECT_TRUE(meeting.ReminderSet);
  EXPECT_EQ(meeting.ReminderMinutesBeforeStart, 20);
  const auto day = FindEvent(u"Holiday");
  ASSERT_NE(day, nullptr);
  EXPECT_EQ(modDate::FormatDateText(day->Get().Start), u"18/06/2004 00:00:00");
  EXPECT_EQ(modDate::FormatDateText(day->Get().End), u"20/06/2004 00:00:00");
  // What we move, a whole day too, stands there.
  item->SetStart(modDate::ParseDateText(u"21/06/2004 08:00:00"));
  item->Save();
  day->SetStart(modDate::ParseDateText(u"22/06/2004"));
  day->Save();
  const std::string moved =
      Run("khal -c khal.conf list --format '{start-long-full}|{end-long-full}|{title}' "
          "21/06/2004 3d");
  for (const char* part : {"21/06/2004 08:00|21/06/2004 09:30|Meeting", "Holiday"}) {
    EXPECT_NE(moved.find(part), std::string::npos) << moved;
  }
}

// A server for an account, on a port of the loopback device that nobody else has.
class Server {
 public:
  explicit Server(const TempFolder& folder)
      : port_(20000 + static_cast<int>(getpid() % 20000)), process_(fork()) {
    if (process_ != 0) return;
    const std::string log = (folder.Path() / "server.log").string();
    if (freopen(log.c_str(), "w", stdout) == nullptr || dup2(1, 2) < 0) _exit(127);
    const std::string host = "127.0.0.1:" + std::to_string(port_);
    const std::string data = (folder.Path() / "account").string();
    execlp("radicale", "radicale", "--config", "", "--server-hosts", host.c_str(),
           "--storage-filesystem-folder", data.c_str(), "--auth-type", "none", nullptr);
    _exit(127);
  }
  ~Server() {
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;
  // Whether it takes connections, given half a minute to start.
  bool Answers() const {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port_));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    for (int attempt = 0; attempt < 300; ++attempt) {
      const int end = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
      const bool open = connect(end, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
      close(end);
      if (open) return true;
      usleep(100000);
    }
    return false;
  }
  std::string url() const { return "http://127.0.0.1:" + std::to_string(port_) + "/anna/"; }

 private:
  int port_;
  pid_t process_;
};

std::string Pair(const std::string& name, const std::string& folder, const std::string& suffix,
                 const std::string& type, const std::string& url, const std::string& collection) {
  return "[pair " + name + "]\na = \"" + name + "_here\"\nb = \"" + name +
         "_there\"\ncollections = [[\"one\", \"" + collection + "\", \"" + suffix.substr(1) +
         "\"]]\n[storage " + name + "_here]\ntype = \"filesystem\"\npath = \"" + folder +
         "\"\nfileext = \"" + suffix + "\"\n[storage " + name + "_there]\ntype = \"" + type +
         "\"\nurl = \"" + url + "\"\nusername = \"anna\"\npassword = \"x\"\n";
}

// The same account on two computers: what we write reaches the other, what changes there comes
// back.
TEST_F(InteropTest, AnAccountBehindAServerHoldsTheSame) {
  const Server server(folder);
  const std::string top = folder.Path().string();
  const auto configure = [&](const std::string& name, const std::string& place) {
    folder.Write(name, "[general]\nstatus_path = \"" + top + "/status-" + name + "\"\n" +
                           Pair("contacts", place, ".vcf", "carddav", server.url(), "Contacts") +
                           Pair("events", place, ".ics", "caldav", server.url(), "Calendar"));
  };
  configure("here.conf", top + "/app/Outlook");
  configure("other.conf", top + "/other");
  WriteContact(u"Anna Öberg", u"+49 170 1");
  WriteEvent(u"Lunch");
  ASSERT_TRUE(server.Answers());
  for (const char* name : {"here.conf", "other.conf"}) {
    Run("sh -c 'yes | vdirsyncer -c " + std::string(name) + " discover; vdirsyncer -c " + name +
        " sync'");
  }
  const auto item = Find(u"Anna Öberg");
  ASSERT_NE(item, nullptr);
  const std::string file = "Contacts/" + ToUtf8(item->EntryID()) + ".vcf";
  // The server may put the lines in another order.
  const auto other = Card::Read(folder.Read("other/" + file));
  ASSERT_TRUE(other);
  EXPECT_EQ(other->uid(), item->EntryID());
  EXPECT_EQ(other->texts(), Card::Read(folder.Read("app/Outlook/" + file))->texts());
  Run("sh -c 'sed -i s/170/171/ other/Contacts/*.vcf; sed -i s/Lunch/Dinner/ other/Calendar/*.ics; "
      "vdirsyncer -c other.conf sync && vdirsyncer -c here.conf sync'");
  EXPECT_EQ(Find(u"Anna Öberg")->Get(P::MobileTelephoneNumber), u"+49 171 1");
  EXPECT_NE(FindEvent(u"Dinner"), nullptr);
}

}  // namespace
}  // namespace tessarin::outlook
