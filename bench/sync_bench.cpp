// A two-way run between the phone and a folder of linked contacts, in which nothing is to be done.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "bench/NoScreen.h"
#include "codecs/modFile.h"
#include "outlook/ContactRows.h"
#include "outlook/ContactSync.h"
#include "outlook/VdirOutlook.h"

namespace {

using namespace tessarin;

constexpr int kContacts = 2000;

// A phone's list of contacts with all of a business card, and the folder that it is linked to.
class LinkedContacts {
 public:
  LinkedContacts() {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    language_.readLangFile(0);
    list_.ListType = -1;
    clsOutContactList outlook(OutlookNeeds{outlook_, host_, language_});
    for (int i = 0; i < kContacts; ++i) {
      auto contact = std::make_shared<clsT610Contact>();
      for (int field = 3; field < clsT610Contact::kFields; ++field) {
        contact->LetData(u"Value " + ToText(i) + u" of " + ToText(field), field);
      }
      contact->LetData(u"p" + ToText(100000000000 + i), clsT610Contact::kMobileId);
      list_.Add(contact);
      outlook.AddOutlookContact(*contact);
    }
  }
  ~LinkedContacts() { std::filesystem::remove_all(folder_); }

  // All that lies between the click and its result: the folder is read, and each pass walks a pane
  // that was filled just before. Gives how many rows were left alone.
  int OpenAndRun() {
    clsOutContactList outlook(OutlookNeeds{outlook_, host_, language_});
    outlook.LoadOutlookContact();
    engine_.twoWay = true;
    pane_.Fill(ContactRows(list_, language_));
    engine_.SyncListToOutlook(list_, outlook, pane_);
    int leftAlone = engine_.count().leftAlone;
    pane_.Fill(OutlookRows(outlook));
    engine_.SyncOutlookToList(outlook, list_, pane_);
    return leftAlone + engine_.count().leftAlone;
  }

 private:
  const std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() / "tessarin-sync-bench";
  NoScreen host_;
  modFile files_{folder_, TESSARIN_SHARE};
  Language language_{files_};
  SystemClock clock_;
  outlook::VdirOutlook outlook_{files_, clock_, [](const Text&) {}};
  clsT610ContactList list_;
  Window window_{host_, "window"};
  ProgressBar bar_{window_, "bar"};
  Label label_{window_, "label"};
  ListView pane_{window_, "pane"};
  SyncProgress progress_{window_, bar_, label_, language_};
  ContactSync engine_{{host_, language_, progress_, nullptr, nullptr}};
};

void TwoWayWithNothingToDo(benchmark::State& state) {
  LinkedContacts contacts;
  int leftAlone = 0;
  for (auto step : state) leftAlone = contacts.OpenAndRun();
  if (leftAlone != 2 * kContacts) state.SkipWithError("the run moved something");
}
BENCHMARK(TwoWayWithNothingToDo)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
