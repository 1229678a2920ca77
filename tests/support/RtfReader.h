#pragma once

// A reader of Rich Text Format 1.5 by itself: it knows the words that a plain document needs and
// throws at everything else.

#include <cctype>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>

#include "codecs/Text.h"

namespace tessarin {

class RtfReader {
 public:
  // The text, with a line feed behind each paragraph that is ended. Throws std::runtime_error.
  static Text Read(std::string_view document) {
    RtfReader reader(document);
    if (!document.starts_with("{\\rtf1\\ansi")) reader.Fail("no document");
    reader.Next();
    reader.ReadGroup(false);
    if (reader.rest_.find_first_not_of("\r\n") != std::string_view::npos) {
      reader.Fail("something behind the document");
    }
    return reader.text_;
  }

 private:
  explicit RtfReader(std::string_view document) : rest_(document) {}

  [[noreturn]] void Fail(const char* what) const {
    throw std::runtime_error(std::string(what) + " before: " + std::string(rest_.substr(0, 20)));
  }
  char Next() {
    if (rest_.empty()) Fail("an open group");
    const char next = rest_.front();
    rest_.remove_prefix(1);
    return next;
  }

  void ReadGroup(bool isFontTable) {
    for (char next = Next(); next != '}'; next = Next()) {
      if (static_cast<unsigned char>(next) >= 0x80) Fail("no ASCII");
      if (next == '{') {
        ReadGroup(isFontTable || rest_.starts_with("\\fonttbl"));
      } else if (next == '\\') {
        ReadControl(isFontTable);
      } else if (next != '\r' && next != '\n' && !isFontTable) {
        Add(static_cast<char16_t>(next));
      }
    }
    if (toSkip_ > 0) Fail("a unit without its substitute");
  }

  void ReadControl(bool isFontTable) {
    if (std::isalpha(static_cast<unsigned char>(rest_.front())) == 0) {
      const char symbol = Next();
      if (std::string_view("\\{}").find(symbol) == std::string_view::npos) Fail("unknown symbol");
      if (!isFontTable) Add(static_cast<char16_t>(symbol));
      return;
    }
    std::string word, number;
    while (std::isalpha(static_cast<unsigned char>(rest_.front())) != 0) word += Next();
    while (std::isdigit(static_cast<unsigned char>(rest_.front())) != 0 ||
           (number.empty() && rest_.front() == '-')) {
      number += Next();
    }
    if (rest_.front() == ' ') Next();  // ends the word and is no text
    Obey(word, number.empty() ? 1 : std::stoi(number), isFontTable);
  }

  void Obey(const std::string& word, int number, bool isFontTable) {
    static const std::set<std::string> without = {"rtf",  "ansi", "deff", "fonttbl",
                                                  "fnil", "pard", "b",    "fs"};
    if (word == "f" && isFontTable) {
      fonts_.insert(number);
    } else if (word == "f") {
      if (!fonts_.contains(number)) Fail("a font that is in no table");
    } else if (word == "uc") {
      substitutes_ = number;
    } else if (word == "u") {
      if (number < -32768 || number > 32767) Fail("a unit beyond its range");
      Add(static_cast<char16_t>(number & 0xFFFF));
      toSkip_ = substitutes_;
    } else if (word == "tab" || word == "par") {
      Add(word == "tab" ? u'\t' : u'\n');
    } else if (!without.contains(word)) {
      Fail(("unknown word " + word).c_str());
    }
  }

  void Add(char16_t unit) {
    if (toSkip_ > 0) {
      --toSkip_;
    } else {
      text_ += unit;
    }
  }

  std::string_view rest_;
  std::set<int> fonts_;
  int substitutes_ = 1;
  int toSkip_ = 0;
  Text text_;
};

}  // namespace tessarin
