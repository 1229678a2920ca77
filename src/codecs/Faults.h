// The faults that may rise out of the system: a small family, each with the wording that the
// message box shows. Nothing of it crosses the phone link, whose operations answer true or false.
#pragma once

#include <exception>
#include <filesystem>
#include <string>
#include <system_error>

#include "codecs/Text.h"

namespace tessarin {

// The family's head: whoever shows a fault catches this and shows `Message()`.
class Fault : public std::exception {
 public:
  explicit Fault(Text message);

  const Text& Message() const noexcept { return message_; }

  // The message in UTF-8.
  const char* what() const noexcept override { return utf8_.c_str(); }

 private:
  Text message_;
  std::string utf8_;
};

// A place behind the end of an array: a text from the phone with too few lines, for instance.
// Message: "Subscript out of range".
class BoundsError : public Fault {
 public:
  BoundsError();
};

// A text that does not read as the number or date it should be. Message: "Type mismatch".
class ConversionError : public Fault {
 public:
  ConversionError();
};

// A refusal of the file system. Message: the system's reason, ": " and the path.
class FileError : public Fault {
 public:
  FileError(std::error_code reason, const std::filesystem::path& path);
  // `systemError` is a value of errno.
  FileError(int systemError, const std::filesystem::path& path);

  const std::error_code& Reason() const noexcept { return reason_; }

 private:
  std::error_code reason_;
};

// A document, such as a folder listing, that its parser refused. Message: the parser's number,
// ": " and its reason.
class DocumentError : public Fault {
 public:
  DocumentError(int number, std::string_view reason);

  int Number() const noexcept { return number_; }

 private:
  int number_;
};

}  // namespace tessarin
