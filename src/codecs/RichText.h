// Text with fonts, and the document (Rich Text Format 1.5) that it is saved as.
#pragma once

#include <string>
#include <vector>

#include "codecs/Text.h"

namespace tessarin {

class RichText {
 public:
  struct Style {
    Text font = u"Times New Roman";
    int size = 10;  // points
    bool bold = false;

    friend bool operator==(const Style&, const Style&) = default;
  };

  // A piece of text in one style.
  struct Run {
    Style style;
    Text text;

    friend bool operator==(const Run&, const Run&) = default;
  };

  // Appends `text`, in which U+0009 is a tab and CR LF, CR or LF a line's end. U+0000 is dropped.
  void Append(TextView text, const Style& style);
  void Clear() { runs_.clear(); }

  const std::vector<Run>& Runs() const { return runs_; }

  // The whole document, in ASCII: any other unit goes out as \uN with a "?" for readers that know
  // no Unicode. Control characters other than tab and line end are left out.
  std::string Document() const;

 private:
  std::vector<Run> runs_;
};

}  // namespace tessarin
