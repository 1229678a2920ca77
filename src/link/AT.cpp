#include "link/AT.h"

namespace tessarin {

Text AT::Query(TextView command) {
  if (!line_.SendATCommand(command)) return {};
  const Text reply = line_.ReadATResponse();
  if (!ContainsIgnoringCase(reply, u"OK")) return {};
  const auto lines = Split(reply, u"\r\n");
  return lines.size() > 1 ? lines[1] : Text();
}

bool AT::SetCharacterSet(TextView name) {
  if (!line_.SendATCommand(Text(u"AT+CSCS=").append(name))) return false;
  return ContainsIgnoringCase(line_.ReadATResponse(), u"OK");
}

}  // namespace tessarin
