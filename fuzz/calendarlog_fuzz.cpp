// A phone that tells anything at all of its calendar: the information log and the calendar arrive
// as pieces (Pieces.h), each of which becomes a packet of the right length. Reading gives true or
// false or waits on, and what was read can be decoded or is refused in one of two ways.
#include <algorithm>

#include "codecs/Faults.h"
#include "codecs/vCalendar.h"
#include "fuzz/Pieces.h"
#include "link/IrMC.h"

namespace {

using namespace tessarin;

class FuzzClock : public Clock {
 public:
  DateValue Now() const override { return 0.0; }
  int StandardBiasMinutes() const override { return 300; }
};

void SetLengths(ScriptedPort::Pieces& pieces) {
  for (auto& piece : pieces) {
    if (piece.empty()) continue;
    const std::size_t length = piece.size() + 2;
    piece.insert(1, {static_cast<char>(length >> 8), static_cast<char>(length)});
  }
}

void CheckDecoding(const Text& text, int count) {
  std::vector<CalendarRecord> records(static_cast<std::size_t>(std::min(count, 500)));
  try {
    vcard::DecodeVCalendars(text, static_cast<std::int16_t>(records.size()), records, FuzzClock());
  } catch (const BoundsError&) {
    return;
  } catch (const vcard::EntryTimeError& fault) {
    Require(fault.entry() < records.size());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  auto pieces = TakePieces({reinterpret_cast<const char*>(data), size});
  SetLengths(pieces);
  ScriptedPort port(pieces);
  port.emptyReadsLeft = 50;
  PortMap map{"/nowhere", "/nowhere"};
  modComLib com{port, map};
  IrMC irmc{com};
  Ends([&] {
    int count = -1, maxRecords = -1;
    Text text;
    if (!irmc.ReadCalendarObject(count, text, maxRecords)) return;
    Require(count >= 0 && count <= 0xFFFF && maxRecords >= 0 && maxRecords <= 0xFFFF);
    Require(count > 0 || text.empty());
    CheckDecoding(text, count);
  });
  return 0;
}
