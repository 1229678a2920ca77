#include "phonesim/ObexTransfer.h"

#include <algorithm>
#include <utility>

namespace phonesim {
namespace {

constexpr std::size_t kHead = 3;  ///< of a packet and of a Body header alike

}  // namespace

ObexDownload::ObexDownload(ObexObject object, Bytes prefix, std::size_t limit)
    : object_(std::move(object)), prefix_(std::move(prefix)), limit_(limit) {
  const std::size_t fixed = 2 * kHead + prefix_.size() + object_.headers.size();
  if (fixed + object_.repeatedRequest.size() > limit_) object_.repeatedRequest.clear();
}

Bytes ObexDownload::Next() {
  Bytes rest = prefix_;
  if (std::exchange(first_, false)) {
    Append(rest, object_.repeatedRequest);
    Append(rest, object_.headers);
  }
  const ByteView left = ByteView(object_.data).subspan(sent_);
  const std::size_t count = std::min(left.size(), limit_ - rest.size() - 2 * kHead);
  done_ = count == left.size() && (left.empty() || !object_.emptyEnd);
  sent_ += count;
  AppendObexHeader(rest, done_ ? obex::kEndOfBody : obex::kBody, left.first(count));
  return ObexResponse(done_ ? obex::kSuccess : obex::kContinue, rest);
}

void TakeUploadBody(ObexUpload& upload, const ObexHeader& body, bool final) {
  const auto breach = [](const char* what) { return ObexFault(obex::kBadRequest, what); };
  if (final && body.id != obex::kEndOfBody) throw breach("last Put without End of Body last");
  if (!final && body.id != obex::kBody) throw breach("Put with more to come without Body last");
  Append(upload.data, body.value);
  if (!upload.length) return;
  if (upload.data.size() > *upload.length) throw breach("Put of more data than its Length");
  if (final && upload.data.size() < *upload.length)
    throw breach("Put of less data than its Length");
}

}  // namespace phonesim
