// A phone that answers anything at all to AT commands: every reader gives an answer that ends as it
// should, or waits on.
#include <initializer_list>

#include "fuzz/Pieces.h"
#include "link/AT.h"
#include "link/BatteryReply.h"
#include "link/modComLib.h"

namespace {

using namespace tessarin;

// Whether one of the ends stands in the text: the slow way, for comparison.
bool HasEnd(const Text& text, std::initializer_list<TextView> ends) {
  return std::any_of(ends.begin(), ends.end(),
                     [&](TextView end) { return ContainsIgnoringCase(text, end); });
}

// How many pieces a reader took: it must stop at the first that completes an end.
std::size_t PiecesNeeded(const ScriptedPort::Pieces& pieces, std::initializer_list<TextView> ends) {
  Text text;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    text += FromLatin1(pieces[i]);
    if (!pieces[i].empty() && HasEnd(text, ends)) return i + 1;
  }
  return 0;
}

void CheckResponses(const PortMap& map, const ScriptedPort::Pieces& pieces) {
  const auto ends = {TextView(u"\r\nconnect\r\n"), TextView(u"\r\nok\r\n"), TextView(u"\r\n>"),
                     TextView(u"\r\n+cms error:")};
  const std::size_t needed = PiecesNeeded(pieces, ends);
  ScriptedPort port(pieces);
  const Text reply = modComLib(port, map).ReadATResponse();
  if (needed == 0 || needed > 100) {
    Require(reply == u"ERROR" && port.reads == 100 && port.slept == 10000);
  } else {
    Require(HasEnd(reply, ends) && port.reads == static_cast<int>(needed));
  }

  const auto waitEnds = {TextView(u"\r\nok\r\n"), TextView(u"\r\n+cms error:")};
  ScriptedPort endless(pieces);
  const bool ended =
      Ends([&] { Require(HasEnd(modComLib(endless, map).ReadATResponseWait(), waitEnds)); });
  Require(ended == (PiecesNeeded(pieces, waitEnds) != 0));

  ScriptedPort lengthy(pieces);
  const Text text = modComLib(lengthy, map).ReadLongResponse();
  Require(text == u"ERROR" || text.back() == u'\0');
}

void CheckQueries(const PortMap& map, const ScriptedPort::Pieces& pieces) {
  ScriptedPort port(pieces);
  modComLib com(port, map);
  AT at(com);
  com.OpenPhonePort("COM3");
  const Text name = at.GetManufacturer();
  Require(name.find(u"\r\n") == Text::npos);
  at.GetModelName();
  static_cast<void>(at.SetCharacterSet(u"\"UTF-8\""));
}

void CheckBattery(std::string_view bytes) {
  for (std::size_t i = 0; i <= std::min(bytes.size(), std::size_t{300}); ++i) {
    const BatteryReply reply = ReadBatteryReply(bytes.substr(0, i));
    Require(reply.level <= 100 || reply.level == linkport::kNoBatteryLevel);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const PortMap map("/nowhere", "/nowhere");
  const std::string_view bytes(reinterpret_cast<const char*>(data),
                               std::min(size, std::size_t{4096}));
  const auto pieces = TakePieces(bytes);
  CheckResponses(map, pieces);
  CheckQueries(map, pieces);
  CheckBattery(bytes);
  return 0;
}
