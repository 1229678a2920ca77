#include "controls/HtmlView.h"

#include <utility>

namespace tessarin {

void HtmlView::ShowPage(std::string path, std::string html, std::string anchor) {
  path_ = std::move(path);
  html_ = std::move(html);
  anchor_ = std::move(anchor);
  ++visits_;
  changed();
}

}  // namespace tessarin
