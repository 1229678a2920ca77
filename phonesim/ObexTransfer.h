#pragma once

#include "phonesim/ObexService.h"

/// The two kinds of object transfer, cut into packets.
namespace phonesim {

/// The replies to one Get. Wire layout of the first reply:
///
///     code, length (2) | CB, id (4) | repeated request | headers | 48 or 49, length (2), data
///
/// and of the later ones, where the data of a full packet of 512 bytes are 501:
///
///     code, length (2) | CB, id (4) | 48 or 49, length (2), data
///
/// Code 90 and Body 48 while more follows, A0 and End of Body 49 in the last.
class ObexDownload {
 public:
  /// `prefix` is the Connection Id header, empty for services that use none; `limit` the longest
  /// packet that the client takes.
  ObexDownload(ObexObject object, Bytes prefix, std::size_t limit);

  Bytes Next();
  bool Done() const { return done_; }

 private:
  ObexObject object_;
  Bytes prefix_;
  std::size_t limit_;
  std::size_t sent_ = 0;
  bool first_ = true;
  bool done_ = false;
};

/// Takes the Body header of one packet of a Put into `upload`: 48 in a packet with more to follow,
/// 49 in the last. Throws when the header is the wrong one or the data do not fit the Length.
void TakeUploadBody(ObexUpload& upload, const ObexHeader& body, bool final);

}  // namespace phonesim
