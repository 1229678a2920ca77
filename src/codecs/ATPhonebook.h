// The SIM's phonebook over AT commands (3GPP TS 27.007, clauses 8.11 to 8.14): places, each with a
// name and a number.
#pragma once

#include <cstdint>
#include <vector>

#include "codecs/ATLine.h"
#include "codecs/FixedText.h"

namespace tessarin {

struct SIMPhoneBookRecord {
  std::int16_t Index = 0;  // the place on the SIM
  FixedText<50> Text;
  FixedText<60> Number;
};

// An operation is true when its command was sent and the reply holds OK; otherwise it changes
// nothing.
class ATPhonebook {
 public:
  static constexpr int kBatch = 10;  // places; slow phones are not asked for more at once
  static constexpr TextView kSim = u"\"SM\"";

  // `line` must outlive this object.
  explicit ATPhonebook(ATLine& line) : line_(line) {}

  // `storage` comes with its double quotes, as `kSim` does.
  [[nodiscard]] bool SelectPhonebookStorage(TextView storage);

  // The first and the last place of the storage. Throws ConversionError when the phone's figures do
  // not read as 16-bit numbers.
  [[nodiscard]] bool GetPhonebookRange(std::int16_t& first, std::int16_t& last);

  // The entries of the places `first` to `last`, or of `first` alone when `last` is 0, each as CR
  // LF "+CPBR: " place,"number",type,"name"; empty text when all are free.
  [[nodiscard]] bool ReadPhonebookRange(Text& text, int first, int last);

  // The lowest free place of `first` to `last`, looked for ten places at a time. 0 when there is
  // none, or when the phone refused. Throws ConversionError for a reply without places.
  int FindFreeSIMLocation(int first, int last);

  // The name goes out in UTF-8. Control characters in it, which would end the command, do not.
  [[nodiscard]] bool WriteSIMEntry(TextView location, const SIMPhoneBookRecord& record);
  [[nodiscard]] bool DeleteSIMEntry(TextView location);

  // The number of entries in a text of ReadPhonebookRange, or in several, one behind the other.
  static int CountEntries(TextView text);
  // The first `count` of them, of which there are at least so many. Throws ConversionError when a
  // place is no number.
  static void ParseCPBRText(TextView text, int count, std::vector<SIMPhoneBookRecord>& records);

 private:
  bool Succeeds(TextView command);

  ATLine& line_;
};

}  // namespace tessarin
