#include "phonesim/ObexService.h"

#include <algorithm>

namespace phonesim {

void RequireObexHeaders(const ObexHeaders& headers, std::initializer_list<std::uint8_t> ids) {
  const bool same = std::equal(headers.begin(), headers.end(), ids.begin(), ids.end(),
                               [](const ObexHeader& h, std::uint8_t id) { return h.id == id; });
  if (same) return;
  if (ids.size() == 0) throw ObexFault(obex::kBadRequest, "headers where none belong");
  const Bytes wanted(ids);
  throw ObexFault(obex::kBadRequest, "headers are not " + ToHex(wanted) + " in this order");
}

}  // namespace phonesim
