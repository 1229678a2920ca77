#include "phonesim/MmsTarget.h"

namespace phonesim {
namespace {

using namespace obex;

const Bytes& Identifier() {
  static const Bytes identifier = {0xB9, 0xC7, 0xFD, 0x98, 0xE5, 0xF8, 0x11, 0xD1,
                                   0xBF, 0xCE, 0x00, 0x00, 0xF8, 0x75, 0x38, 0x90};
  return identifier;
}

ObexFault NoMessage() { return ObexFault(kBadRequest, "the message service takes only Put"); }

}  // namespace

/// Its Connect names it by Who, where others have a Target.
ObexServiceRow MmsTarget::Row(const FileTree& inbox) {
  return {kWho, Identifier(), false, [&inbox] { return std::make_unique<MmsTarget>(inbox); }};
}

void MmsTarget::SetPath(std::uint8_t /*flags*/, const ObexHeaders& /*headers*/) {
  throw NoMessage();
}

ObexObject MmsTarget::Get(const ObexHeaders& /*headers*/) { throw NoMessage(); }

/// First packet: 02 or 82, length (2), 01, length (2), name, 0000, Body.
ObexUpload MmsTarget::BeginPut(const ObexHeaders& headers) {
  RequireObexHeaders(headers, {kName});
  ObexUpload upload{ObexName(headers[0]), std::nullopt, {}};
  if (!FileTree::IsName(upload.name)) throw ObexFault(kForbidden);
  return upload;
}

Bytes MmsTarget::FinishPut(const ObexUpload& upload) {
  if (!inbox_.Make({}) || !inbox_.Write({}, upload.name, upload.data)) throw ObexFault(kForbidden);
  return {};
}

Bytes MmsTarget::Delete(const ObexHeaders& /*headers*/) { throw NoMessage(); }

}  // namespace phonesim
