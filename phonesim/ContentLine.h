#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "phonesim/Deck.h"

/// The lines that vCard 2.1 and vCalendar 1.0 are made of: "NAME;PARAMETER;...:value" CR LF.
namespace phonesim {

/// A line as the client wrote it.
struct ContentLine {
  std::string name;
  std::vector<std::string> parameters;
  std::string value;  ///< as it stands

  bool Has(std::string_view parameter) const;

  /// The whole value as UTF-8, without zero bytes: by its ENCODING first, then by its CHARSET.
  std::string Text() const;

  /// The same for each of the parts between semicolons.
  std::vector<std::string> Components() const;

 private:
  std::string Decode(std::string value) const;
};

/// Takes an object apart. Lines that a quoted-printable line break ties together are one. Throws
/// `ObexFault` when it does not end with CR LF, a line has no colon, or a CHARSET or ENCODING is
/// unknown.
std::vector<ContentLine> SplitContentLines(std::string_view object);

/// Throws `ObexFault`, a breach, unless `lines` begin with `head` and end with `tail`; takes both
/// off. Each is "NAME:value".
void TakeFrame(std::vector<ContentLine>& lines, const std::vector<std::string>& head,
               const std::vector<std::string>& tail);

/// How the phone writes a value.
struct Quoting {
  bool all = false;  ///< in a value that needs quoting, every byte is quoted
};

/// The phone's own way to write a line, with CR LF; components are joined by semicolons. A value
/// that cannot stand as it is goes out in quoted-printable UTF-8. No line for empty values.
std::string WriteContentLine(const std::string& name, const std::vector<std::string>& components,
                             Quoting quoting);

}  // namespace phonesim
