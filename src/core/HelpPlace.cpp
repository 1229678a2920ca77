#include "core/HelpPlace.h"

#include <utility>

namespace tessarin {

namespace {

// "/a/../b/./c" without its detours. ".." does not lead above the top.
std::string WithoutDetours(std::string_view path) {
  std::string result;
  while (!path.empty()) {
    const auto step = path.substr(0, path.find('/'));
    path.remove_prefix(std::min(step.size() + 1, path.size()));
    if (step == "..") {
      result.erase(result.empty() ? 0 : result.rfind('/'));
    } else if (!step.empty() && step != ".") {
      result.append("/").append(step);
    }
  }
  return result;
}

}  // namespace

std::optional<HelpPlace> FollowLink(std::string_view fromPath, std::string_view link) {
  const auto hash = link.find('#');
  const auto target = link.substr(0, hash);
  if (target.find(':') != std::string_view::npos || target.starts_with("//")) return std::nullopt;
  HelpPlace place;
  if (hash != std::string_view::npos) place.anchor = link.substr(hash + 1);
  if (target.empty()) {
    place.path = fromPath;
  } else if (target.starts_with('/')) {
    place.path = WithoutDetours(target);
  } else {
    const auto folder = fromPath.substr(0, fromPath.rfind('/') + 1);
    place.path = WithoutDetours(std::string(folder).append(target));
  }
  return place;
}

void HelpHistory::Add(HelpPlace place) {
  if (now_ > 0 && Present() == place) return;
  places_.resize(now_);
  places_.push_back(std::move(place));
  now_ = places_.size();
}

void HelpHistory::Clear() {
  places_.clear();
  now_ = 0;
}

void HelpHistory::Back() {
  if (CanGoBack()) --now_;
}

void HelpHistory::Forward() {
  if (CanGoForward()) ++now_;
}

}  // namespace tessarin
