// A full mailbox: reading, decoding and listing, the line answering at once.
#include <benchmark/benchmark.h>

#include "codecs/ATMessages.h"
#include "messages/Mailbox.h"
#include "phonebook/NumberLookup.h"
#include "phonesim/SmsPdu.h"
#include "tests/support/ScriptedLine.h"

namespace {

using namespace tessarin;

constexpr int kMessages = 500;

// The replies to AT+CMGR: texts in both alphabets, every fifth message one of three parts.
std::vector<Text> Replies() {
  std::vector<Text> replies;
  for (int i = 0; i < kMessages; ++i) {
    phonesim::SmsDraft draft;
    draft.address = "+4477009" + std::to_string(10000 + i);
    draft.text = i % 2 == 0 ? std::string(140, 'x') : "Привет! Завтра в десять у большого моста?";
    draft.coding = i % 2 == 0 ? phonesim::SmsCoding::Gsm : phonesim::SmsCoding::Ucs2;
    draft.time = "40605131508100";
    if (i % 5 < 3) draft.part = phonesim::SmsPart{i / 5, 3, i % 5 + 1};
    const std::string pdu = phonesim::WriteStored(draft);
    replies.push_back(u"\r\n+CMGR: 1,," +
                      ToText(static_cast<long long>(phonesim::TpduLength(pdu))) + u"\r\n" +
                      FromLatin1(pdu) + u"\r\n\r\nOK\r\n");
  }
  return replies;
}

clsT610ContactList Contacts() {
  clsT610ContactList contacts;
  for (int i = 0; i < 500; ++i) {
    auto contact = std::make_shared<clsT610Contact>();
    contact->LetData(u"Somebody", 3);
    contact->LetData(u"+4477009" + ToText(10250 + i), 6);
    contacts.Add(contact);
  }
  return contacts;
}

void ReadAndList(benchmark::State& state) {
  const auto replies = Replies();
  for (auto step : state) {
    ScriptedLine line;
    line.replies.assign(replies.begin(), replies.end());
    Mailbox mailbox;
    if (!ATMessages(line).ReadAllMessages(kMessages, kMessages, mailbox.memMessages)) {
      state.SkipWithError("not all were read");
    }
    for (int stat = 0; stat < 4; ++stat) benchmark::DoNotOptimize(mailbox.RowsOf(stat));
  }
}

// Every message from somebody else, among 500 contacts.
void NameSenders(benchmark::State& state) {
  const auto contacts = Contacts();
  for (auto step : state) {
    for (int i = 0; i < kMessages; ++i) {
      benchmark::DoNotOptimize(NameOf(contacts, u"4477009" + ToText(10000 + i)));
    }
  }
}

BENCHMARK(ReadAndList)->Unit(benchmark::kMillisecond);
BENCHMARK(NameSenders)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
