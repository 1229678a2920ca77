#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "phonesim/Phone.h"

namespace phonesim {

/// The bytes of digits in pairs; blanks do not count, and text between single quotes stands for
/// its own bytes: "49 0005 'ab'".
Bytes Wire(std::string_view text);

/// `name` as UTF-16, high byte first, with its terminator, in digits. Latin only.
std::string NameDigits(std::string_view name);

/// A length in four digits.
std::string Digits16(std::size_t value);

/// An empty folder of its own, gone with the object.
class ScratchFolder {
 public:
  ScratchFolder();
  ~ScratchFolder();
  const std::filesystem::path& Path() const { return path_; }
  void Write(const std::string& name, std::string_view content) const;
  std::string Read(const std::string& name) const;

 private:
  std::filesystem::path path_;
};

/// A phone with two storages and a few files, talked to directly.
class Bench {
 public:
  Bench();

  /// Sends the bytes and gives what comes back, in digits, echoes and answers alike.
  std::string Talk(ByteView bytes);
  std::string Talk(std::string_view wire) { return Talk(Wire(wire)); }

  /// The same for text, both ways.
  std::string TalkText(std::string_view text);

  /// Goes to OBEX mode, connects to folder browsing and remembers the connection identifier.
  void Connect();

  /// Goes down one folder; false unless the phone says success.
  bool GoDown(std::string_view folder);

  /// A request whose length is reckoned: opcode, then the headers with the Connection Id in front.
  std::string Request(std::string_view opcode, const std::string& headers);

  ScratchFolder content;
  Settings settings;
  Reports reports;
  Phone phone;
  std::string id;  ///< of the session, in digits
};

}  // namespace phonesim
