#pragma once

// Where a reader of the help is, and where the reader was before.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessarin {

struct HelpPlace {
  std::string path;    // in the help file, such as "/sms.html"
  std::string anchor;  // of the page, or empty for its top
  bool operator==(const HelpPlace&) const = default;
};

// Where a link on a page leads ("sms.html#send", "#send", "../pictures/cable.png"). None when it
// leads out of the help, to an address of another kind ("http:", "mailto:").
std::optional<HelpPlace> FollowLink(std::string_view fromPath, std::string_view link);

// The way through the help. Empty at first.
class HelpHistory {
 public:
  // Goes to a place; what lay ahead is forgotten. The present place itself adds nothing.
  void Add(HelpPlace place);
  void Clear();

  bool CanGoBack() const { return now_ > 1; }
  bool CanGoForward() const { return now_ < places_.size(); }
  // Each does nothing where it cannot go on.
  void Back();
  void Forward();
  // Only after an `Add`.
  const HelpPlace& Present() const { return places_[now_ - 1]; }

 private:
  std::vector<HelpPlace> places_;
  std::size_t now_ = 0;  // how many of them lie up to the present one
};

}  // namespace tessarin
