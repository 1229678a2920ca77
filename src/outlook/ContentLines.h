#pragma once

// The content lines of a vCard (RFC 2426, RFC 6350) or an iCalendar object (RFC 5545), which share
// one grammar:
//
//   [group "."] name *(";" parameter ["=" value *("," value)]) ":" value
//
// A line may be folded: a line end followed by a blank or a tab goes on with the line before. Each
// line keeps its bytes; only a line that is edited is written anew, folded after 75 bytes. So a
// file that is read and written again differs in the edited lines alone.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessarin::outlook {

struct ContentLine {
  std::string raw;        // the bytes as they stand, line end and folds included
  std::string text;       // unfolded, without the line end
  std::string name;       // upper-case, without the group; empty for a blank line
  std::size_t colon = 0;  // its place in `text`

  std::string_view value() const {
    return name.empty() ? std::string_view() : std::string_view(text).substr(colon + 1);
  }
  // Name, group and parameters, before the colon.
  std::string_view head() const { return std::string_view(text).substr(0, colon); }
  // Upper-case; empty for a line without.
  std::string group() const;
};

// A component: the lines from BEGIN to END, both included.
struct ContentBlock {
  std::string name;  // upper-case
  std::size_t begin;
  std::size_t end;
  int depth;  // 0 for one that stands in no other
};

class ContentLines {
 public:
  // None when the bytes are no such object: a line without a colon, a component that is not closed
  // or closed by another, a line outside of all components, or bytes that are not UTF-8. A byte
  // order mark in front is kept.
  static std::optional<ContentLines> Read(std::string_view bytes);

  std::string Bytes() const;
  const std::vector<ContentLine>& lines() const { return lines_; }

  // In the order of their BEGIN lines.
  const std::vector<ContentBlock>& blocks() const { return blocks_; }
  // The lines that stand in the block itself, neither BEGIN, END nor in a component inside it.
  std::vector<std::size_t> OwnLines(const ContentBlock& block) const;

  // Writes one line anew with another value; group, name and parameters stay byte for byte.
  void SetValue(std::size_t line, std::string_view value);
  // Writes one line anew, unless it says that already.
  void SetText(std::size_t line, std::string_view text);
  // Puts new lines before the given one.
  void Insert(std::size_t before, const std::vector<std::string>& texts);
  // Puts these lines into this order, at the places that they have together.
  void Reorder(const std::vector<std::size_t>& lines);
  // Removes lines; the numbers may stand in any order.
  void Erase(std::vector<std::size_t> lines);

 private:
  bool FindBlocks();
  std::string Raw(std::string_view text) const;

  std::string mark_;              // the byte order mark, or empty
  std::string lineEnd_ = "\r\n";  // of the first line
  std::vector<ContentLine> lines_;
  std::vector<ContentBlock> blocks_;
};

// The values of a parameter, such as those of TYPE, upper-case and without quotes. Parameters that
// stand without a name (";HOME;PREF") count as values of TYPE.
std::vector<std::string> ParameterValues(const ContentLine& line, std::string_view name);
// The first value as it is written, without quotes; empty when there is none.
std::string ParameterText(const ContentLine& line, std::string_view name);
// The head without the parameters of that name.
std::string HeadWithout(const ContentLine& line, std::string_view name);

// The values of all lines of that name, in bytes that need be no whole object.
std::vector<std::string> ValuesIn(std::string_view bytes, std::string_view name);

// Without the blanks and tabs at its end, which some programs leave behind.
std::string_view TrimEnd(std::string_view value);
std::string UpperAscii(std::string_view text);

}  // namespace tessarin::outlook
