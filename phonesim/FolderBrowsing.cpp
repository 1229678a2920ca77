#include "phonesim/FolderBrowsing.h"

#include "phonesim/FolderListing.h"

namespace phonesim {
namespace {

using namespace obex;

constexpr std::uint8_t kDontCreate = 0x02;
constexpr std::uint8_t kUp = 0x01;
constexpr std::string_view kListingType = "x-obex/folder-listing";

const Bytes& Identifier() {
  static const Bytes identifier = {0xF9, 0xEC, 0x7B, 0xC4, 0x95, 0x3C, 0x11, 0xD2,
                                   0x98, 0x4E, 0x52, 0x54, 0x00, 0xDC, 0x9E, 0x09};
  return identifier;
}

}  // namespace

ObexServiceRow FolderBrowsing::Row(const FileTree& files, Settings& settings) {
  return {kTarget, Identifier(), true,
          [&files, &settings] { return std::make_unique<FolderBrowsing>(files, settings); }};
}

/// Request: 85, length (2), flags, constants 00, CB, id (4), 01, length (2), name, 0000. Flags 02
/// with a name go down, with no name to the root; 03 without a Name header goes up. A Name of
/// length 3 and one that holds its terminator only are both no name.
void FolderBrowsing::SetPath(std::uint8_t flags, const ObexHeaders& headers) {
  if (flags == (kDontCreate | kUp)) {
    RequireObexHeaders(headers, {});
    if (folder_.empty()) throw ObexFault(kNotFound);
    folder_.pop_back();
    return;
  }
  if (flags != kDontCreate) throw ObexFault(kBadRequest, "SetPath flags are neither 02 nor 03");
  RequireObexHeaders(headers, {kName});
  FileTree::Place target;
  if (const std::string name = ObexName(headers.front()); !name.empty()) {
    target = folder_;
    target.push_back(name);
  }
  if (!files_.HasFolder(target)) throw ObexFault(kNotFound);
  folder_ = target;
}

ObexObject FolderBrowsing::Get(const ObexHeaders& headers) {
  const bool listing = headers.front().id == kType;
  RequireObexHeaders(headers, {listing ? kType : kName});
  return listing ? Listing(headers.front()) : File(headers.front());
}

ObexObject FolderBrowsing::Listing(const ObexHeader& type) const {
  const std::string text(type.value.begin(), type.value.end() - 1);
  if (text != kListingType) throw ObexFault(kUnsupportedType);
  return {ToBytes(RenderFolderListing(files_.List(folder_), folder_.empty())), {}, {}};
}

ObexObject FolderBrowsing::File(const ObexHeader& name) {
  auto data = files_.Read(folder_, ObexName(name));
  if (!data) throw ObexFault(kNotFound);
  ObexObject object;
  if (settings_.With([](const Behaviour& b) { return b.echoRequestHeaders; })) {
    AppendObexHeader(object.repeatedRequest, kName, name.value);
  }
  AppendObexNumber(object.headers, kLength, static_cast<std::uint32_t>(data->size()));
  object.data = std::move(*data);
  return object;
}

/// First packet: 02 or 82, length (2), CB, id (4), 01, length (2), name, 0000, C3, size (4), Body.
ObexUpload FolderBrowsing::BeginPut(const ObexHeaders& headers) {
  RequireObexHeaders(headers, {kName, kLength});
  ObexUpload upload{ObexName(headers[0]), Read32(headers[1].value), {}};
  if (!files_.MayWrite(folder_, upload.name)) throw ObexFault(kForbidden);
  return upload;
}

Bytes FolderBrowsing::FinishPut(const ObexUpload& upload) {
  if (!files_.Write(folder_, upload.name, upload.data)) throw ObexFault(kForbidden);
  return {};
}

Bytes FolderBrowsing::Delete(const ObexHeaders& /*headers*/) {
  throw ObexFault(kBadRequest, "Put without a Body as last header");
}

}  // namespace phonesim
