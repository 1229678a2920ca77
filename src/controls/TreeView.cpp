#include "controls/TreeView.h"

#include <utility>

namespace tessarin {

TreeNode* TreeView::Get(TextView key) {
  const auto found = byKey_.find(key);
  return found == byKey_.end() ? nullptr : found->second;
}

const TreeNode* TreeView::Find(TextView key) const { return const_cast<TreeView*>(this)->Get(key); }

void TreeView::Clear() {
  byKey_.clear();
  roots_.clear();
  selected_.clear();
  changed();
}

bool TreeView::Insert(TreeNode* parent, Item item) {
  if (Get(item.key) != nullptr) return false;
  auto node = std::make_unique<TreeNode>();
  node->key = std::move(item.key);
  node->text = std::move(item.text);
  node->image = std::move(item.image);
  node->selectedImage = std::move(item.selectedImage);
  node->mayHaveChildren = item.mayHaveChildren;
  node->parent = parent;
  byKey_[node->key] = node.get();
  (parent == nullptr ? roots_ : parent->children).push_back(std::move(node));
  return true;
}

bool TreeView::Add(TextView parentKey, Text key, Text text, std::string image,
                   std::string selectedImage) {
  TreeNode* parent = Get(parentKey);
  if (parent == nullptr && !parentKey.empty()) return false;
  if (!Insert(parent,
              {std::move(key), std::move(text), std::move(image), std::move(selectedImage)})) {
    return false;
  }
  changed();
  return true;
}

void TreeView::Forget(const TreeNode& node) {
  for (const auto& child : node.children) Forget(*child);
  byKey_.erase(node.key);
  if (node.key == selected_) selected_.clear();
}

void TreeView::FillChildren(TextView key, std::vector<Item> items) {
  TreeNode* node = Get(key);
  if (node == nullptr) return;
  for (const auto& child : node->children) Forget(*child);
  node->children.clear();
  for (Item& item : items) Insert(node, std::move(item));
  changed();
}

void TreeView::SetMayHaveChildren(TextView key, bool mayHaveChildren) {
  TreeNode* node = Get(key);
  if (node == nullptr) return;
  node->mayHaveChildren = mayHaveChildren;
  changed();
}

void TreeView::Expand(TextView key, bool expanded) {
  TreeNode* node = Get(key);
  if (node == nullptr || node->expanded == expanded) return;
  node->expanded = expanded;
  changed();
}

void TreeView::Select(TextView key) {
  selected_ = Get(key) == nullptr ? Text() : Text(key);
  changed();
}

void TreeView::SelectByUser(TextView key) {
  if (Get(key) == nullptr) return;
  selected_ = key;
  nodeClicked();
}

void TreeView::ExpandByUser(TextView key, bool expanded) {
  TreeNode* node = Get(key);
  if (node == nullptr || node->expanded == expanded) return;
  node->expanded = expanded;
  if (expanded) nodeExpanded(node->key);
}

}  // namespace tessarin
