#pragma once

// The messages of the phone's two stores, and how they are shown: sorted into folders by their
// status, the parts of a long message joined.

#include <string>
#include <vector>

#include "codecs/SMSMessage.h"
#include "controls/ListView.h"

namespace tessarin {

// What the reading pane shows of one row.
struct ReadMessage {
  Text timestamp;
  Text sender;
  Text text;
};

// Which record of which store.
struct MessagePlace {
  const SMSMessage* record;
  TextView store;  // with its quotes, as AT+CPMS takes it
};

// A row's key tells which records it stands for: the store's word and an index, again and again for
// each part in their order. MEM3 is a message of the phone memory, SIM0SIM4SIM2 one of three parts
// on the SIM.
class Mailbox {
 public:
  std::vector<SMSMessage> simMessages;  // store "SM"
  std::vector<SMSMessage> memMessages;  // store "ME"

  void Clear();

  // The rows of the folder of that status, the SIM's first. Cells: no text, the store's word,
  // sender, text, time. A long message is one row with its first part's fields; its parts are
  // looked for in its own store, whatever their status, from the front to the end once. So a
  // missing part, or one that lies before the part that precedes it, ends the message there, and
  // parts without their first are never shown. Trims the fields of the records that it shows.
  std::vector<ListRow> RowsOf(int stat);

  // Sender and time are those of the first part.
  ReadMessage Read(const std::string& key) const;

  // The records of a row in their order; those that are no longer there are left out.
  std::vector<MessagePlace> PlacesOf(const std::string& key) const;
};

}  // namespace tessarin
