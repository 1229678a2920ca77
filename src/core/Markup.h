#pragma once

// As much of HTML as the help is read with: tags one after the other, and the plain text of a page.

#include <optional>
#include <string>
#include <string_view>

#include "codecs/Text.h"

namespace tessarin {

// Goes through UTF-8 HTML tag by tag. Anything is taken for HTML; what does not end goes on to the
// end of the page.
class MarkupReader {
 public:
  // `html` must stay while the reader lives.
  explicit MarkupReader(std::string_view html) : rest_(html) {}

  // Goes to the next tag. False when there is none any more; `TextBefore()` is then the text behind
  // the last one. Comments and declarations are passed over as tags without a name.
  bool Next();

  // The text, still with its entities, between the tag before and this one.
  std::string_view TextBefore() const { return textBefore_; }
  // In lower case; a closing tag's begins with "/".
  const std::string& Name() const { return name_; }
  // The attribute's value with its entities replaced; none when the tag has no such attribute.
  std::optional<Text> Attribute(std::string_view attribute) const;

 private:
  std::string_view rest_;
  std::string_view textBefore_;
  std::string_view tag_;  // behind its name
  std::string name_;
};

// UTF-8 with entities as text. An entity that is not known stays as it stands.
Text DecodeEntities(std::string_view html);

// What a reader of the page sees, in one line: no tags, each run of blanks and line breaks as one
// blank, none at the ends.
Text PlainText(std::string_view html);

// The page's title, in the same way.
Text PageTitle(std::string_view html);

}  // namespace tessarin
