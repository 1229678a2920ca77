#pragma once

// Reading the phone's two memories whole into the mobile list: the SIM in batches of ten places,
// phone memory as one object.

#include "codecs/ATPhonebook.h"
#include "codecs/PhoneBookRecord.h"
#include "core/PhoneLink.h"
#include "core/TessarinMenu.h"
#include "core/bar.h"
#include "phonebook/PhonebookLists.h"

namespace tessarin {

class PhonebookReader {
 public:
  // All must outlive the reader.
  PhonebookReader(TessarinMenu& session, const PhoneLink& link, PhonebookLists& lists);

  // Both move their bar. False when the phone refused or what it sent cannot be read; the list is
  // then as it was.
  [[nodiscard]] bool ReadSim(bar& bars);
  [[nodiscard]] bool ReadPhone(bar& bars);

  // Whether what was last read of phone memory was all that the phone said to have.
  bool PhoneIsWhole() const { return phoneIsWhole_; }

 private:
  // The entries of all places, one behind the other.
  bool ReadSimText(Text& text, bar& bars);
  void TakeSim(const std::vector<SIMPhoneBookRecord>& records);
  bool ReadObject(int& count, Text& text, bar& bars);
  // `counted` is how many the phone says there are.
  void TakePhone(const std::vector<PhoneBookRecord>& records, int counted, bar& bars);

  TessarinMenu& session_;
  PhoneLink link_;
  PhonebookLists& lists_;
  ATPhonebook book_;
  bool phoneIsWhole_ = false;
};

}  // namespace tessarin
