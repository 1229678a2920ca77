// Random changes on both sides: after two two-way runs a third changes nothing, and the later
// change of each contact stands on both sides.

#include <gtest/gtest.h>

#include <random>

#include "outlook/ContactMapping.h"
#include "outlook/ContactRows.h"
#include "outlook/ContactSync.h"
#include "tests/outlook/SyncBench.h"

namespace tessarin {
namespace {

constexpr int kContacts = 8;

// A phone or, when `isPhone` is not set, the system's own book, against Outlook.
class World {
 public:
  World(WindowHost& host, const Language& language, ScriptedOutlook& outlook, ListView& pane,
        SyncProgress& progress, std::filesystem::path cache, bool isPhone, unsigned seed)
      : host_(host),
        language_(language),
        outlook_(outlook),
        pane_(pane),
        engine_({host, language, progress,
                 [this](clsT610Contact& contact, char16_t, int mode, bool& written) {
                   written = true;
                   return Write(contact, mode);
                 },
                 nullptr}),
        cache_(std::move(cache)),
        isPhone_(isPhone),
        random_(seed) {
    engine_.twoWay = true;
    for (int i = 0; i < kContacts; ++i) Pick(2) == 0 ? NewOnList() : NewInOutlook();
  }

  // What the user does between two runs. The phone's changes are seen when it is read, so those in
  // Outlook come before or after that.
  void LiveAndSync() {
    for (int i = 0; i < Pick(6); ++i) ChangeInOutlook();
    for (int i = 0; i < Pick(6); ++i) ChangeOnList();
    Read();
    for (int i = 0; i < Pick(4); ++i) ChangeInOutlook();
    Sync();
  }
  int Sync() {
    Advance();
    clsOutContactList outlook(OutlookNeeds{outlook_, host_, language_});
    outlook.LoadOutlookContact();
    pane_.Fill(ContactRows(list_, language_));
    engine_.SyncListToOutlook(list_, outlook, pane_);
    const SyncCount there = engine_.count();
    Advance();
    pane_.Fill(OutlookRows(outlook));
    engine_.SyncOutlookToList(outlook, list_, pane_);
    const SyncCount back = engine_.count();
    list_.WriteContactToFile(cache_, {});
    return there.added + there.updated + there.failed + back.added + back.updated + back.failed;
  }
  // What is on the phone is what the next run goes by.
  void Read() {
    if (!isPhone_) return;
    Advance();
    list_ = clsT610ContactList();
    list_.ListType = -1;
    for (const auto& [luid, contact] : onPhone_) {
      auto read = std::make_shared<clsT610Contact>(contact);
      read->LetData(Text(clsT610ContactList::GetTEMPID()), 0);
      read->LetData(u"p" + luid, 1);
      read->LetData(modDate::FormatDateText(outlook_.now), 2);
      list_.Add(std::move(read));
    }
    EXPECT_TRUE(list_.LoadT610ContactList(cache_));
    for (const Text& luid : changed_) Expect(u"p" + luid);
    changed_.clear();
  }
  // Both sides hold the same contacts, and of each the last change.
  void ExpectSame() {
    ASSERT_EQ(static_cast<std::size_t>(list_.Count()), outlook_.contacts.size());
    std::map<Text, int> names;
    for (const auto& item : outlook_.contacts) {
      const auto& contact = dynamic_cast<ScriptedOutlook::Contact&>(*item);
      const int position = list_.FindExistingGUID(contact.EntryID());
      ASSERT_GT(position, 0);
      for (const ContactField& entry : ContactReadOrder()) {
        EXPECT_EQ(list_.item(position).GetData(entry.field), contact.Get(entry.property));
      }
      if (isPhone_) {
        EXPECT_EQ(onPhone_.at(list_.item(position).GetData(1).substr(1)).GetData(4),
                  contact.texts[1]);
      }
      const Text& name = contact.texts[0];
      EXPECT_EQ(++names[name], 1) << ToUtf8(name) << " is there twice";
      const auto last = last_.find(name);
      ASSERT_NE(last, last_.end()) << ToUtf8(name);
      EXPECT_EQ(contact.texts[1], last->second) << ToUtf8(name);
    }
    for (const auto& [name, number] : last_) EXPECT_EQ(names.count(name), 1u) << ToUtf8(name);
  }

 private:
  int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  void Advance() { outlook_.now += (1 + Pick(100)) / 86400.0; }
  Text NewName() { return u"N" + ToText(++names_); }
  Text NewNumber() { return ToText(++numbers_); }

  // The contact of that field 1 has its last change just now.
  void Expect(const Text& mobileId) {
    const int position = list_.FindExistingMobileID(mobileId);
    if (position > 0) last_[list_.item(position).GetData(3)] = list_.item(position).GetData(4);
  }
  // The contact was deleted on one side: it comes back as the other side has it, if that does.
  void Forget(const Text& name, const Text& other) {
    if (other.empty()) {
      last_.erase(name);
    } else {
      last_[name] = other;
    }
  }
  Text NumberOnList(const Text& name) const {
    for (const auto& [luid, contact] : onPhone_) {
      if (contact.GetData(3) == name) return contact.GetData(4);
    }
    for (const auto& contact : list_) {
      if (!isPhone_ && contact->GetData(3) == name) return contact->GetData(4);
    }
    return {};
  }
  Text NumberInOutlook(const Text& name) const {
    for (const auto& item : outlook_.contacts) {
      const auto& texts = dynamic_cast<ScriptedOutlook::Contact&>(*item).texts;
      if (texts[0] == name) return texts[1];
    }
    return {};
  }
  Text Write(clsT610Contact& contact, int mode) {
    const Text luid = mode == 1 ? Text(12 - ToText(luids_ + 1).size(), u'0') + ToText(luids_ + 1)
                                : contact.GetData(1).substr(1);
    if (mode == 1) ++luids_;
    onPhone_[luid] = contact;
    return mode == 1 ? luid : Text();
  }
  void NewOnList() {
    clsT610Contact contact;
    const Text name = NewName();
    contact.LetData(name, 3);
    contact.LetData(NewNumber(), 4);
    last_[name] = contact.GetData(4);
    if (isPhone_) {
      Write(contact, 1);
      return;
    }
    Advance();
    contact.LetData(modDate::FormatDateText(outlook_.now), 2);
    list_.AddContact(contact);
  }
  void NewInOutlook() {
    Advance();
    const Text name = NewName();
    const auto contact = outlook_.AddContact(name, outlook_.now);
    contact->texts[1] = last_[name] = NewNumber();
  }
  void ChangeInOutlook() {
    const int act = Pick(6);
    if (act == 0 || outlook_.contacts.empty()) return NewInOutlook();
    const auto which = static_cast<std::size_t>(Pick(static_cast<int>(outlook_.contacts.size())));
    if (act == 1) {
      const Text name = dynamic_cast<ScriptedOutlook::Contact&>(*outlook_.contacts[which]).texts[0];
      outlook_.contacts.erase(outlook_.contacts.begin() + static_cast<std::ptrdiff_t>(which));
      return Forget(name, NumberOnList(name));
    }
    Advance();
    auto& contact = dynamic_cast<ScriptedOutlook::Contact&>(*outlook_.contacts[which]);
    contact.texts[1] = last_[contact.texts[0]] = NewNumber();
    ScriptedOutlook::Touch(contact, outlook_.now);
  }
  void ChangeOnList() {
    const int act = Pick(6);
    if (act == 0) return NewOnList();
    if (isPhone_) {
      if (onPhone_.empty()) return;
      auto entry = onPhone_.begin();
      std::advance(entry, Pick(static_cast<int>(onPhone_.size())));
      if (act == 1) {
        const Text name = entry->second.GetData(3);
        onPhone_.erase(entry);
        Forget(name, NumberInOutlook(name));
      } else {
        entry->second.LetData(NewNumber(), 4);
        changed_.push_back(entry->first);
      }
      return;
    }
    if (list_.Count() == 0) return;
    const int position = 1 + Pick(list_.Count());
    if (act == 1) {
      const Text name = list_.item(position).GetData(3);
      list_.Remove(position);
      return Forget(name, NumberInOutlook(name));
    }
    Advance();
    clsT610Contact& contact = list_.item(position);
    contact.LetData(NewNumber(), 4);
    contact.LetData(modDate::FormatDateText(outlook_.now), 2);
    last_[contact.GetData(3)] = contact.GetData(4);
  }

  WindowHost& host_;
  const Language& language_;
  ScriptedOutlook& outlook_;
  ListView& pane_;
  ContactSync engine_;
  std::filesystem::path cache_;
  bool isPhone_;
  std::mt19937 random_;
  clsT610ContactList list_;
  std::map<Text, clsT610Contact> onPhone_;  // by LUID
  std::vector<Text> changed_;               // LUIDs, since the phone was read
  std::map<Text, Text> last_;               // by name, the number of the last change
  int names_ = 0, numbers_ = 0;
  long long luids_ = 0;
};

class ConvergenceTest : public SyncBench, public testing::WithParamInterface<bool> {};

TEST_P(ConvergenceTest, TheThirdRunChangesNothingAndTheLastChangeStands) {
  for (unsigned seed = 0; seed < 250; ++seed) {
    SCOPED_TRACE(seed);
    outlook.contacts.clear();
    const auto cache = folder.Write("cache", "");
    World world(host, language, outlook, pane, progress, cache, GetParam(), seed);
    world.LiveAndSync();
    world.Read();
    world.Sync();
    world.Read();
    ASSERT_EQ(world.Sync(), 0);
    world.ExpectSame();
    if (HasFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(Places, ConvergenceTest, testing::Bool(), [](const auto& place) {
  return std::string(place.param ? "Phone" : "Book");
});

}  // namespace
}  // namespace tessarin
