#include "tests/phonesim/Bench.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <fstream>
#include <iterator>

namespace phonesim {

Bytes Wire(std::string_view text) {
  Bytes bytes;
  for (std::size_t at = 0; at < text.size();) {
    if (text[at] == '\'') {
      const std::size_t end = text.find('\'', at + 1);
      Append(bytes, text.substr(at + 1, end - at - 1));
      at = end + 1;
    } else if (text[at] == ' ') {
      ++at;
    } else {
      const std::string pair(text.substr(at, 2));
      bytes.push_back(static_cast<std::uint8_t>(std::stoul(pair, nullptr, 16)));
      at += 2;
    }
  }
  return bytes;
}

std::string NameDigits(std::string_view name) {
  std::string digits;
  for (const char c : name) digits += Digits16(static_cast<std::uint8_t>(c));
  return digits + "0000";
}

std::string Digits16(std::size_t value) {
  Bytes bytes;
  Append16(bytes, value);
  return ToHex(bytes) + " ";
}

ScratchFolder::ScratchFolder() {
  std::string form = (std::filesystem::temp_directory_path() / "phonesim-XXXXXX").string();
  if (mkdtemp(form.data()) == nullptr) throw std::runtime_error("no scratch folder");
  path_ = form;
}

ScratchFolder::~ScratchFolder() { std::filesystem::remove_all(path_); }

void ScratchFolder::Write(const std::string& name, std::string_view content) const {
  std::filesystem::create_directories((path_ / name).parent_path());
  std::ofstream(path_ / name, std::ios::binary) << content;
}

std::string ScratchFolder::Read(const std::string& name) const {
  std::ifstream file(path_ / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

Bench::Bench() : phone(content.Path(), settings, reports) {
  content.Write("Phone/Sounds/a.mid", "MThd");
  content.Write("Phone/Sounds/empty", "");
  std::filesystem::create_directories(content.Path() / "Card/Music");
}

std::string Bench::Talk(ByteView bytes) {
  phone.Receive(bytes);
  Bytes all;
  for (const Phone::Output& output : phone.Take()) Append(all, output.bytes);
  phone.Delivered();
  return ToHex(all);
}

std::string Bench::TalkText(std::string_view text) {
  const Bytes answer = Wire(Talk(ToBytes(text)));
  return {answer.begin(), answer.end()};
}

void Bench::Connect() {
  ASSERT_NE(TalkText("AT*EOBEX\r").find("\r\nCONNECT\r\n"), std::string::npos);
  const std::string reply = Talk("80 001A 10 00 0200 46 0013 F9EC7BC4953C11D2984E525400DC9E09");
  ASSERT_EQ(reply.substr(0, 23), "A0 00 1F 10 00 02 00 CB");
  id = reply.substr(24, 11);
}

bool Bench::GoDown(std::string_view folder) {
  const std::string name = NameDigits(folder);
  const std::size_t size = folder.size() * 2 + 5;
  return Talk("85 " + Digits16(size + 10) + "02 00 CB" + id + "01" + Digits16(size) + name) ==
         "A0 00 03";
}

std::string Bench::Request(std::string_view opcode, const std::string& headers) {
  const std::string body = "CB" + id + headers;
  return Talk(std::string(opcode) + Digits16(Wire(body).size() + 3) + body);
}

}  // namespace phonesim
