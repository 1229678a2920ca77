#pragma once

#include <filesystem>

#include "controls/TreeView.h"
#include "controls/WindowHost.h"

namespace tessarin {

// Opens the computer's folders down to `wanted`, node by node, and selects that one, as far as the
// tree has them.
inline void OpenOnComputer(WindowHost& host, TreeView& tree, const std::filesystem::path& wanted) {
  Text node = tree.roots()[0]->key;
  for (const std::filesystem::path& step : wanted.relative_path()) {
    host.RunEvent([&] { tree.ExpandByUser(node, true); });
    for (const auto& child : tree.Find(node)->children) {
      if (child->text != FromUtf8(step.string())) continue;
      node = child->key;
      break;
    }
  }
  host.RunEvent([&] { tree.SelectByUser(node); });
}

}  // namespace tessarin
