#include "controls/ListView.h"

#include <utility>

#include "codecs/Faults.h"

namespace tessarin {

void ListView::Clear() { Fill({}); }

void ListView::Add(ListRow row) {
  rows_.push_back(std::move(row));
  changed();
}

void ListView::Fill(std::vector<ListRow> rows) {
  rows_ = std::move(rows);
  current_ = -1;
  changed();
}

ListRow& ListView::At(int index) {
  if (index < 0 || index >= Count()) throw BoundsError();
  return rows_[static_cast<std::size_t>(index)];
}

const ListRow& ListView::Row(int index) const { return const_cast<ListView*>(this)->At(index); }

Text ListView::Cell(int row, int column) const {
  const auto& cells = Row(row).cells;
  const auto position = static_cast<std::size_t>(column);
  return position < cells.size() ? cells[position] : Text();
}

void ListView::SetCell(int row, int column, Text text) {
  auto& cells = At(row).cells;
  const auto position = static_cast<std::size_t>(column);
  if (position >= cells.size()) cells.resize(position + 1);
  cells[position] = std::move(text);
  changed();
}

void ListView::Order(const std::vector<int>& order) {
  std::vector<ListRow> ordered(rows_.size());
  std::vector<bool> taken(rows_.size());
  if (order.size() != rows_.size()) throw BoundsError();
  int current = -1;
  for (std::size_t place = 0; place < order.size(); ++place) {
    const auto from = static_cast<std::size_t>(order[place]);
    if (from >= taken.size() || taken[from]) throw BoundsError();
    taken[from] = true;
    if (order[place] == current_) current = static_cast<int>(place);
  }
  for (std::size_t place = 0; place < order.size(); ++place) {
    ordered[place] = std::move(rows_[static_cast<std::size_t>(order[place])]);
  }
  rows_ = std::move(ordered);
  current_ = current;
  changed();
}

void ListView::SetCurrent(int index) {
  if (index != -1) At(index);
  for (auto& row : rows_) row.selected = false;
  current_ = index;
  if (index != -1) At(index).selected = true;
  changed();
}

void ListView::SetSelected(int index, bool selected) {
  At(index).selected = selected;
  changed();
}

void ListView::SelectByUser(const std::vector<int>& rows, int current) {
  for (auto& row : rows_) row.selected = false;
  for (const int row : rows) At(row).selected = true;
  current_ = current;
  selectionChanged();
}

}  // namespace tessarin
