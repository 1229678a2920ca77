#include "files/ListSort.h"

#include <algorithm>
#include <limits>
#include <numeric>

#include "codecs/Faults.h"
#include "codecs/modDate.h"

namespace tessarin {

namespace {

// Sorts by one key a row, each made once however often it is compared.
template <class MakeKey>
void SortBy(ListView& list, bool ascending, MakeKey makeKey) {
  using Key = decltype(makeKey(0));
  std::vector<Key> keys;
  keys.reserve(static_cast<std::size_t>(list.Count()));
  for (int row = 0; row < list.Count(); ++row) keys.push_back(makeKey(row));
  std::vector<int> order(keys.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(), [&](int left, int right) {
    const Key& first = keys[static_cast<std::size_t>(ascending ? left : right)];
    const Key& second = keys[static_cast<std::size_t>(ascending ? right : left)];
    return first < second;
  });
  list.Order(order);
}

std::int32_t NumberOf(const Text& cell) {
  std::int64_t value = 0;
  for (const char16_t unit : cell) {
    if (unit < u'0' || unit > u'9') break;
    value = std::min<std::int64_t>(value * 10 + (unit - u'0'),
                                   std::numeric_limits<std::int32_t>::max());
  }
  return static_cast<std::int32_t>(value);
}

DateValue DateOf(const Text& cell) {
  try {
    return modDate::ReadSystemDate(cell);
  } catch (const ConversionError&) {
    return std::numeric_limits<DateValue>::lowest();
  }
}

template <class KeyOfCell>
void SortAsShown(ListView& list, KeyOfCell keyOfCell) {
  if (list.sortColumn < 0) return;
  SortBy(list, list.sortAscending,
         [&](int row) { return keyOfCell(list.Cell(row, list.sortColumn)); });
}

template <class KeyOfCell>
void SortByColumn(ListView& list, int column, KeyOfCell keyOfCell) {
  const bool ascending = list.sortColumn != column || !list.sortAscending;
  cLVHeaderSortIcons::SetPhoneHeaderIcons(list, column, ascending);
  SortAsShown(list, keyOfCell);
}

}  // namespace

void cLVHeaderSortIcons::SetHeaderIcons(int column) {
  const auto position = static_cast<std::size_t>(column);
  if (position >= descending_.size()) descending_.resize(position + 1);
  if (list_.sortColumn == column) descending_[position] = !descending_[position];
  SetPhoneHeaderIcons(list_, column, !descending_[position]);
  SortListByText(list_);
}

void cLVHeaderSortIcons::SetPhoneHeaderIcons(ListView& list, int column, bool ascending) {
  list.sortColumn = column;
  list.sortAscending = ascending;
}

void SortListByText(ListView& list) {
  SortAsShown(list, [](const Text& cell) { return ToLower(cell); });
}

void KeepSortedByNumber(ListView& list) { SortAsShown(list, NumberOf); }

void sortListByNumber(ListView& list, int column) { SortByColumn(list, column, NumberOf); }
void sortListByDate(ListView& list, int column) { SortByColumn(list, column, DateOf); }

}  // namespace tessarin
