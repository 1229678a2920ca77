#pragma once

// The phonebook and the calendar as objects (IrMC 1.1), over a session that ConnectIrmcSync opened:
// reading a whole book, and adding, replacing and deleting one entry by its LUID, the phone's own
// identifier of 12 characters. The packets carry no Connection Id.
//
// What the entries say is no business of this file: a book comes as text, decoded from UTF-7, and
// an entry goes out as the hexadecimal text of its bytes.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "codecs/Text.h"
#include "link/modComLib.h"

namespace tessarin {

class IrMC {
 public:
  // Told of each packet of a book that others follow: 1 for the first, rising to 37 and staying.
  using Progress = std::function<void(int step)>;
  static constexpr int kProgressSteps = 38;  // what a whole book counts for

  // `com` must outlive this object.
  explicit IrMC(modComLib& com) : com_(com) {}

  // `count` entries, the text of them all, and how many the phone has room for. A phone that has
  // none is not asked for the text, which is then empty. The text has a U+0000 behind its end.
  // False when the phone refused, when its information log lacks a number, or when it sends without
  // end; the arguments are then not to be used.
  //
  // The phonebook's room is always given as 100, whatever the log says: the phone itself refuses
  // what it has no room for. Its change counter is read along, and a phone that refuses that fails
  // the whole.
  [[nodiscard]] bool ReadPhonebookObject(int& count, Text& text, int& maxRecords,
                                         const Progress& progress = nullptr);
  [[nodiscard]] bool ReadCalendarObject(int& count, Text& text, int& maxRecords);

  // The counter that the phone raises with every change of its phonebook, in its low 16 bits.
  [[nodiscard]] bool ReadPbChangeCounter();
  std::int16_t pbChangeCounter() const { return pbChangeCounter_; }

  // `luid` gets the identifier that the phone gave to the new entry. An entry goes out in one
  // packet, however long: a phone refuses what it has no room for.
  [[nodiscard]] bool AddPhonebookEntry(const std::string& hex, Text& luid);
  [[nodiscard]] bool AddCalendarEntry(const std::string& hex, Text& luid);
  [[nodiscard]] bool ReplacePhonebookEntry(TextView luid, const std::string& hex);
  [[nodiscard]] bool ReplaceCalendarEntry(TextView luid, const std::string& hex);
  // The packet's lengths are those of a LUID of 12 characters, whatever is given.
  [[nodiscard]] bool DeletePhonebookEntry(TextView luid);
  [[nodiscard]] bool DeleteCalendarEntry(TextView luid);

  struct Book;

 private:
  // A whole GET: the contents of all its replies, in hexadecimal; none when the phone refused.
  std::optional<std::string> Get(TextView name, const Progress& progress = nullptr);
  // An information log or a counter: one byte, one unit.
  std::optional<Text> GetLog(TextView name);
  bool ReadObject(TextView name, Text& text, const Progress& progress);

  bool Add(const Book& book, const std::string& hex, Text& luid);
  bool Replace(const Book& book, TextView luid, const std::string& hex);
  bool Delete(const Book& book, TextView luid);
  bool Put(TextView name, const std::string& hex, std::string& reply);
  // Sends one packet of any length and reads its reply. True for a final success.
  bool Exchange(const std::string& packet, std::string& reply);

  modComLib& com_;
  std::int16_t pbChangeCounter_ = 0;
};

}  // namespace tessarin
