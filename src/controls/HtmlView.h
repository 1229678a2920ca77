#pragma once

// A page of formatted text with pictures and links.

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/Control.h"

namespace tessarin {

class HtmlView : public Control {
 public:
  using Control::Control;

  // Shows UTF-8 HTML from the anchor on, from the top when that is empty. The page's path is what
  // its links are seen from. Showing the same page again goes to the anchor again.
  void ShowPage(std::string path, std::string html, std::string anchor);
  const std::string& path() const { return path_; }
  const std::string& html() const { return html_; }
  const std::string& anchor() const { return anchor_; }
  // Grows with each page that is shown.
  int visits() const { return visits_; }

  // Words that are marked wherever they stand on the page, which then begins at the first of them.
  Property<std::vector<Text>> marks{changed};

  // Gives what a link of the page leads to: a picture, a style sheet. None when there is no such
  // thing. Set once, before the window is shown.
  std::function<std::optional<std::string_view>(const std::string& link)> reader;

  Signal<const std::string&> linkClicked;  // as it is written on the page

 private:
  std::string path_;
  std::string html_;
  std::string anchor_;
  int visits_ = 0;
};

}  // namespace tessarin
