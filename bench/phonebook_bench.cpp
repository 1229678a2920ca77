// A large phonebook: its cards read and written, its list filled and sorted, its saved file joined.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "codecs/vcard.h"
#include "phonebook/ContactRecord.h"
#include "phonebook/ContactTexts.h"
#include "phonebook/clsT610ContactList.h"

namespace {

using namespace tessarin;

constexpr int kContacts = 1000;

// As phones write them: Latin and Cyrillic names in turn, an address, three e-mails.
Text Cards() {
  Text cards;
  for (int i = 0; i < kContacts; ++i) {
    const Text number = ToText(i);
    cards += u"BEGIN:VCARD\r\nVERSION:2.1\r\n";
    cards += i % 2 == 0 ? u"N:Family" + number + u";Given\r\n"
                        : u"N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=D0=91=D0=B5=\r\n=D0=BB" +
                              number + u";=D0=90=D0=BD=D0=BD=D0=B0\r\n";
    cards += u"ORG:Company " + number + u"\r\nTEL;HOME:+441" + number + u"\r\nTEL;CELL:+442" +
             number + u"\r\nEMAIL;INTERNET:a" + number + u"@b.example\r\nEMAIL;INTERNET:c" +
             number + u"@d.example\r\nEMAIL;INTERNET:e" + number +
             u"@f.example\r\nADR;HOME:;;Street " + number + u";City;;" + number +
             u";Country\r\nX-IRMC-LUID:" + Text(12 - number.size(), u'0') + number +
             u"\r\nEND:VCARD\r\n";
  }
  return cards;
}

const Text kCards = Cards();

void DecodeCards(benchmark::State& state) {
  std::vector<PhoneBookRecord> records;
  for (auto step : state) vcard::DecodeVCards(kCards, kContacts, records);
  if (records.size() != kContacts) state.SkipWithError("not all cards were read");
}
BENCHMARK(DecodeCards)->Unit(benchmark::kMillisecond);

void EncodeCards(benchmark::State& state) {
  std::vector<PhoneBookRecord> records;
  vcard::DecodeVCards(kCards, kContacts, records);
  for (auto step : state) {
    for (const auto& record : records) benchmark::DoNotOptimize(vcard::EncodeVCard(record));
  }
}
BENCHMARK(EncodeCards)->Unit(benchmark::kMillisecond);

// The mobile list of such a phone.
clsT610ContactList MobileList() {
  std::vector<PhoneBookRecord> records;
  vcard::DecodeVCards(kCards, kContacts, records);
  clsT610ContactList list;
  for (const auto& record : records) {
    auto contact = std::make_shared<clsT610Contact>();
    TakeReadRecord(record, *contact);
    list.Add(std::move(contact));
  }
  return list;
}

void ShowAndSortList(benchmark::State& state) {
  const modFile files("/nowhere", TESSARIN_SHARE);
  Language language(files);
  language.readLangFile(0);
  const auto contacts = MobileList();
  for (auto step : state) {
    auto rows = ContactRows(contacts, u'p', language);
    SortRows(rows, 0, true);
    benchmark::DoNotOptimize(rows);
  }
}
BENCHMARK(ShowAndSortList)->Unit(benchmark::kMillisecond);

void JoinSavedFile(benchmark::State& state) {
  const auto file = std::filesystem::temp_directory_path() / "tessarin-phonebook-bench.dat";
  auto contacts = MobileList();
  contacts.WriteContactToFile(file, {});
  for (auto step : state) (void)contacts.LoadT610ContactList(file);
  std::filesystem::remove(file);
}
BENCHMARK(JoinSavedFile)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
