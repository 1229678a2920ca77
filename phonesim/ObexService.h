#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "phonesim/ObexPacket.h"

namespace phonesim {

/// What a Get is answered with. The headers stand between the Connection Id and the Body of the
/// first reply, in this order; a repeated request is left out when the packet has no room for it.
struct ObexObject {
  Bytes data;
  Bytes repeatedRequest;
  Bytes headers;
  bool emptyEnd = false;  ///< the last data are followed by an End of Body of their own, empty
};

/// A Put under way: what its first packet said and the data so far.
struct ObexUpload {
  std::string name;
  std::optional<std::uint32_t> length;
  Bytes data;
};

/// One service behind a Connect, alive from that Connect to the end of the session. The headers it
/// is handed have no Connection Id and no Body any more. Every call may throw `ObexFault`.
class ObexService {
 public:
  virtual ~ObexService() = default;

  virtual void SetPath(std::uint8_t flags, const ObexHeaders& headers) = 0;
  virtual ObexObject Get(const ObexHeaders& headers) = 0;

  /// Looks at the headers of the first packet, before any data is taken.
  virtual ObexUpload BeginPut(const ObexHeaders& headers) = 0;

  /// Keeps the object. The result is the headers of the last reply.
  virtual Bytes FinishPut(const ObexUpload& upload) = 0;

  /// A Put without any Body asks to delete. The result is the headers of the reply.
  virtual Bytes Delete(const ObexHeaders& headers) = 0;
};

/// A row of the phone's services: how a Connect names it, and how it is made.
struct ObexServiceRow {
  std::uint8_t header = obex::kTarget;
  Bytes identifier;
  bool usesConnectionId = true;  ///< every request begins with the Connection Id
  std::function<std::unique_ptr<ObexService>()> make;
};

/// Throws unless `headers` are exactly those of `ids`, in that order.
void RequireObexHeaders(const ObexHeaders& headers, std::initializer_list<std::uint8_t> ids);

}  // namespace phonesim
