#pragma once

// A tree of nodes with unique keys, as of the folders of a phone.

#include <map>
#include <memory>
#include <vector>

#include "controls/Control.h"

namespace tessarin {

struct TreeNode {
  Text key;
  Text text;
  std::string image;          // icon while the node is not selected
  std::string selectedImage;  // icon while it is
  bool expanded = false;
  bool mayHaveChildren = false;  // shows the handle before any child was added
  TreeNode* parent = nullptr;
  std::vector<std::unique_ptr<TreeNode>> children;
};

class TreeView : public Control {
 public:
  using Control::Control;

  void Clear();
  // Adds a node below `parentKey`, at the top when that is empty. False, and nothing is added, when
  // the key is taken or the parent unknown.
  bool Add(TextView parentKey, Text key, Text text, std::string image, std::string selectedImage);
  // Puts these nodes below `key` in place of what was there, in one step. A node whose key is taken
  // is left out.
  struct Item {
    Text key;
    Text text;
    std::string image;
    std::string selectedImage;
    bool mayHaveChildren = false;
  };
  void FillChildren(TextView key, std::vector<Item> items);
  void SetMayHaveChildren(TextView key, bool mayHaveChildren);
  void Expand(TextView key, bool expanded = true);
  void Select(TextView key);  // an unknown key selects nothing

  const TreeNode* Find(TextView key) const;
  const std::vector<std::unique_ptr<TreeNode>>& roots() const { return roots_; }
  const Text& SelectedKey() const { return selected_; }  // empty when nothing is selected
  int Count() const { return static_cast<int>(byKey_.size()); }

  // The user's acts; the tree's state is already the new one.
  void SelectByUser(TextView key);
  void ExpandByUser(TextView key, bool expanded);
  Signal<> nodeClicked;              // `SelectedKey()` was clicked
  Signal<const Text&> nodeExpanded;  // the node was unfolded

 private:
  TreeNode* Get(TextView key);
  void Forget(const TreeNode& node);
  bool Insert(TreeNode* parent, Item item);

  std::vector<std::unique_ptr<TreeNode>> roots_;
  std::map<Text, TreeNode*, std::less<>> byKey_;
  Text selected_;
};

}  // namespace tessarin
