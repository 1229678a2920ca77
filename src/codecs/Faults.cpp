#include "codecs/Faults.h"

#include <utility>

namespace tessarin {

namespace {

Text Reasoned(std::string_view reason, std::string_view about) {
  return FromUtf8(std::string(reason) + ": " + std::string(about));
}

}  // namespace

Fault::Fault(Text message) : message_(std::move(message)), utf8_(ToUtf8(message_)) {}

BoundsError::BoundsError() : Fault(u"Subscript out of range") {}

ConversionError::ConversionError() : Fault(u"Type mismatch") {}

FileError::FileError(std::error_code reason, const std::filesystem::path& path)
    : Fault(Reasoned(reason.message(), path.string())), reason_(reason) {}

FileError::FileError(int systemError, const std::filesystem::path& path)
    : FileError(std::error_code(systemError, std::generic_category()), path) {}

DocumentError::DocumentError(int number, std::string_view reason)
    : Fault(Reasoned(std::to_string(number), reason)), number_(number) {}

}  // namespace tessarin
