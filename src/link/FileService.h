#pragma once

// Listing, reading and writing the phone's files over an open folder-browsing session, in the
// folder that the session stands in.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "codecs/Text.h"
#include "link/modComLib.h"
#include "link/modOBEX.h"

namespace tessarin {

class FileService {
 public:
  enum class Failure { Get, Put };
  // Tells the user that a transfer failed.
  using ReportFailure = std::function<void(Failure)>;
  // Told how many bytes of a file have crossed so far.
  using Progress = std::function<void(std::uint64_t bytes)>;

  // `com` must outlive this object.
  FileService(modComLib& com, ReportFailure report) : com_(com), report_(std::move(report)) {}

  // The folder's listing as XML text, one character for each of its bytes. `type` is always
  // "x-obex/folder-listing".
  [[nodiscard]] bool GetFolderListing(const std::string& connectionId, Text& xml,
                                      std::string_view type);

  // Writes the phone's file to `folder` + `name`, replacing what is there. On failure reports, and
  // what was written of the file stays. A name that no file can safely have (empty, ".", "..", with
  // "/" or U+0000) fails before anything is asked or written.
  bool GetFile(const std::string& connectionId, TextView name, const std::filesystem::path& folder);

  // The same without a report.
  [[nodiscard]] bool FetchFile(const std::string& connectionId, TextView name,
                               const std::filesystem::path& folder);

  // The same into memory; no report.
  [[nodiscard]] bool GetFileBytes(const std::string& connectionId, TextView name, Bytes& bytes);

  // Puts the file at `path` under its own name. PutFileNoId leaves the Connection Id and Length
  // headers out, for the multimedia message service. On failure reports.
  bool PutFile(const std::string& connectionId, const std::filesystem::path& path);
  bool PutFileNoId(const std::filesystem::path& path);

  // Called after each packet of a file, of whatever operation but the listing, until set anew;
  // empty for nobody.
  void SetProgress(Progress progress) { progress_ = std::move(progress); }

 private:
  // Takes the contents of one reply, in hexadecimal; its false ends the GET.
  using Sink = std::function<bool(std::string_view hex)>;

  // A whole GET: the request, then continuations until the phone's final success. Every reply's
  // contents go to `sink`, also when they are empty.
  bool Get(const std::string& headers, const Sink& sink);
  bool GetNamed(const std::string& connectionId, TextView name, const Sink& sink);
  bool Put(const std::string& idHeader, const std::filesystem::path& path, bool withLength);
  // Sends one packet and expects this kind of reply.
  bool Send(const std::string& packet, modOBEX::Reply expected);
  // Reports a failed transfer and hands its result on.
  bool Reported(bool success, Failure kind) const;
  void Tell(std::uint64_t bytes) const;

  modComLib& com_;
  ReportFailure report_;
  Progress progress_;
};

// Whether a name that came from the phone may name a file of this computer.
bool IsSafeFileName(TextView name);

}  // namespace tessarin
