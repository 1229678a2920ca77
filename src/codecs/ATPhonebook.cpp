#include "codecs/ATPhonebook.h"

#include <algorithm>

#include "codecs/Faults.h"
#include "codecs/Numbers.h"

namespace tessarin {

namespace {

constexpr TextView kEntry = u"\r\n+CPBR:";
constexpr TextView kEntryHead = u"\r\n+CPBR: ";

// What stands behind the first `mark`; empty when there is none.
TextView Behind(TextView text, TextView mark) {
  const auto at = text.find(mark);
  return at == TextView::npos ? TextView() : text.substr(at + mark.size());
}

TextView Before(TextView text, TextView mark) { return text.substr(0, text.find(mark)); }

// Whether the reply ends in success. The echo of a command, or an entry, may hold a name like
// "Brooks", so only the whole line counts, and only behind the last refusal.
bool IsOk(TextView reply) {
  const auto refusal = reply.rfind(u"\r\n+CMS ERROR:");
  return ContainsIgnoringCase(reply.substr(refusal == TextView::npos ? 0 : refusal), u"\r\nOK\r\n");
}

SIMPhoneBookRecord ParseEntry(TextView entry) {
  SIMPhoneBookRecord record;
  record.Index = static_cast<std::int16_t>(ReadNumber(Before(entry, u",")));
  const TextView number = Behind(entry, u",\"");
  record.Number = Before(number, u"\",");
  const TextView name = Behind(number, u",\"");
  record.Text = name.substr(0, name.size() - std::min<std::size_t>(name.size(), 1));
  return record;
}

// The first of the places `first` to `last` that no record tells of.
int FirstGap(const std::vector<SIMPhoneBookRecord>& records, int first, int last) {
  for (int place = first; place <= last; ++place) {
    const auto index = static_cast<std::size_t>(place - first);
    if (index >= records.size() || records[index].Index != place) return place;
  }
  return 0;
}

}  // namespace

bool ATPhonebook::Succeeds(TextView command) {
  return line_.SendATCommand(command) && IsOk(line_.ReadATResponse());
}

bool ATPhonebook::SelectPhonebookStorage(TextView storage) {
  return Succeeds(Text(u"AT+CPBS=").append(storage));
}

// The reply: +CPBR: (first-last),length of a number,length of a name.
bool ATPhonebook::GetPhonebookRange(std::int16_t& first, std::int16_t& last) {
  if (!line_.SendATCommand(u"AT+CPBR=?")) return false;
  const Text reply = line_.ReadATResponse();
  if (!IsOk(reply)) return false;
  const int lowest = ReadNumber(Before(Behind(reply, u"("), u"-"));
  const int highest = ReadNumber(Before(Behind(reply, u"-"), u")"));
  first = static_cast<std::int16_t>(lowest);
  last = static_cast<std::int16_t>(highest);
  return true;
}

bool ATPhonebook::ReadPhonebookRange(Text& text, int first, int last) {
  Text command = u"AT+CPBR=" + ToText(first);
  if (last != 0) command += u"," + ToText(last);
  if (!line_.SendATCommand(command)) return false;
  const Text reply = line_.ReadLongResponse();
  if (!IsOk(reply)) return false;
  const auto begin = reply.find(kEntry);
  if (begin == Text::npos) {
    text.clear();
    return true;
  }
  auto end = reply.find(u"\r\n\r\nOK", begin);
  if (end == Text::npos) end = std::max(begin, reply.rfind(u"\r\nOK"));
  text = reply.substr(begin, end - begin);
  return true;
}

int ATPhonebook::FindFreeSIMLocation(int first, int last) {
  for (int start = first; start <= last; start += kBatch) {
    const int end = std::min(start + kBatch - 1, last);
    Text text;
    if (!ReadPhonebookRange(text, start, end)) return 0;
    const int count = CountEntries(text);
    if (count > end - start) continue;
    std::vector<SIMPhoneBookRecord> records;
    ParseCPBRText(text, count, records);
    return FirstGap(records, start, end);
  }
  return 0;
}

bool ATPhonebook::WriteSIMEntry(TextView location, const SIMPhoneBookRecord& record) {
  const Text number = record.Number.Trimmed();
  // The type of an international number and of any other (3GPP TS 24.008, 10.5.4.7).
  const TextView type = number.starts_with(u'+') ? u"145" : u"129";
  Text command = Text(u"AT+CPBW=").append(location).append(u",\"").append(number);
  command.append(u"\",").append(type).append(u",\"").append(record.Text.Trimmed()).append(u"\"");
  std::erase_if(command, [](char16_t unit) { return unit < u' '; });
  return line_.SendATText(command) && IsOk(line_.ReadATResponse());
}

bool ATPhonebook::DeleteSIMEntry(TextView location) {
  return Succeeds(Text(u"AT+CPBW=").append(location));
}

int ATPhonebook::CountEntries(TextView text) {
  const auto entries = Split(text, kEntryHead).size();
  // Entries that cannot be told apart must not count as free places.
  if (Split(text, kEntry).size() != entries) throw ConversionError();
  return static_cast<int>(entries) - 1;
}

void ATPhonebook::ParseCPBRText(TextView text, int count,
                                std::vector<SIMPhoneBookRecord>& records) {
  const auto entries = Split(text, kEntryHead);
  if (static_cast<std::size_t>(count) >= entries.size()) throw BoundsError();
  records.clear();
  for (std::size_t i = 1; i <= static_cast<std::size_t>(count); ++i) {
    records.push_back(ParseEntry(entries[i]));
  }
}

}  // namespace tessarin
