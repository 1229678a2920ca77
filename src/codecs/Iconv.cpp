#include "codecs/Iconv.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>

#include "codecs/Faults.h"

namespace tessarin {

namespace {

constexpr auto kFailed = static_cast<std::size_t>(-1);

}  // namespace

Iconv::Iconv(const char* to, const char* from) : handle_(iconv_open(to, from)) {
  if (reinterpret_cast<std::intptr_t>(handle_) == -1) throw ConversionError();
}

Iconv::~Iconv() { iconv_close(handle_); }

bool Iconv::ConvertSome(std::string_view& input, std::string& output) {
  std::array<char, 4096> chunk;                // filled by iconv alone
  char* in = const_cast<char*>(input.data());  // iconv only reads it
  std::size_t inLeft = input.size();
  const auto step = [&](char** source) {
    char* out = chunk.data();
    std::size_t room = chunk.size();
    const int error = iconv(handle_, source, &inLeft, &out, &room) == kFailed ? errno : 0;
    output.append(chunk.data(), out);
    return error;
  };
  int error = E2BIG;
  while (error == E2BIG) error = step(&in);
  input.remove_prefix(input.size() - inLeft);
  if (error == 0) step(nullptr);  // closes a run of UTF-7 and resets the state
  return error == 0;
}

std::string Iconv::Convert(std::string_view input, std::string_view substitute,
                           std::size_t unitSize) {
  std::string output;
  while (!ConvertSome(input, output)) {
    input.remove_prefix(std::min(unitSize, input.size()));
    std::string_view inPlace = substitute;
    ConvertSome(inPlace, output);
  }
  return output;
}

std::optional<std::string> Iconv::ConvertStrictly(std::string_view input) {
  std::string output;
  if (ConvertSome(input, output)) return output;
  iconv(handle_, nullptr, nullptr, nullptr, nullptr);
  return std::nullopt;
}

std::string_view AsBytes(TextView text) {
  return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}

Text AsText(std::string_view utf16) {
  Text text(utf16.size() / sizeof(char16_t), u'\0');
  std::memcpy(text.data(), utf16.data(), text.size() * sizeof(char16_t));
  return text;
}

}  // namespace tessarin
