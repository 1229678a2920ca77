#pragma once

// Single contacts in the two memories of the phone: SIM entries by AT commands, phone memory as
// cards, each in an OBEX session of its own.

#include <functional>
#include <map>

#include "codecs/ATPhonebook.h"
#include "codecs/PhoneBookRecord.h"
#include "core/PhoneLink.h"
#include "core/Session.h"
#include "phonebook/clsT610Contact.h"

namespace tessarin {

class PhoneMemories {
 public:
  static constexpr char16_t kSim = u's', kPhone = u'p';  // as identifiers begin

  // All must outlive this object.
  PhoneMemories(Session& session, const PhoneLink& link)
      : session_(session), link_(link), book_(link.com) {}

  // Drops what came over the line unasked and makes the SIM the storage of what follows.
  [[nodiscard]] bool SelectSim();
  // The lowest free location of the selected SIM, 0 when it is full or does not answer. A SIM whose
  // range is not known yet is asked for it.
  int FindFreeSimLocation();
  // What stands at that location of the selected SIM; false when nothing does.
  [[nodiscard]] bool ReadSimEntry(TextView location, SIMPhoneBookRecord& record);
  [[nodiscard]] bool WriteSimEntry(TextView location, const SIMPhoneBookRecord& record);
  [[nodiscard]] bool DeleteSimEntry(TextView location);

  // What came of an act on a card, which takes a session of its own. A card whose identifier is not
  // of 12 characters cannot be named to a phone that is to delete it.
  enum class Outcome { Done, Refused, NoSession, Nameless };
  // `luid` gets the phone's identifier of the new card.
  Outcome AddCard(const PhoneBookRecord& record, Text& luid);
  Outcome ReplaceCard(TextView luid, const PhoneBookRecord& record);
  Outcome DeleteCard(TextView luid);
  // What was last written to that card since phone memory was read, or null.
  const PhoneBookRecord* LastWritten(TextView luid) const;
  void ForgetWritten() { written_.clear(); }

  // Writes the contact to that memory: as a new entry when `mode` is 1, else over the one that its
  // field 1 names. "-1" when the phone refused. Otherwise empty text, but for a new entry the
  // location or the LUID, which on the SIM stands in field 1 then; empty also when no SIM or no
  // session was to be had, so that a caller may try again.
  // `written`, where it is given, tells whether the phone took the contact.
  Text WriteContactToMobile(clsT610Contact& contact, char16_t kind, int mode,
                            bool* written = nullptr);

 private:
  bool OpenSession();
  Outcome InSession(const std::function<bool()>& act);
  Text WriteToSim(clsT610Contact& contact, int mode, bool& written);
  Text WriteToPhone(const clsT610Contact& contact, int mode, bool& written);

  Session& session_;
  PhoneLink link_;
  ATPhonebook book_;
  std::map<Text, PhoneBookRecord, std::less<>> written_;  // by LUID
};

}  // namespace tessarin
