#include "files/ListSort.h"

#include <gtest/gtest.h>

#include "codecs/Faults.h"
#include "tests/support/ScriptedHost.h"

namespace tessarin {
namespace {

class ListSortTest : public testing::Test {
 protected:
  ListSortTest() {
    list_.Fill({Row(u"b.mid", u"10KB", u"01/02/2004 10:00:00"), Row(u"A.mid", u"2KB", u""),
                Row(u"c.mid", u"9KB", u"31/01/2004 23:59:59"), Row(u"a.mid", u"10KB", u"?")});
    list_.SetCurrent(2);
  }
  ~ListSortTest() override { EXPECT_EQ(Selected(), u"c.mid") << "a sort keeps the selection"; }

  static ListRow Row(const Text& name, const Text& size, const Text& date) {
    ListRow row;
    row.cells = {name, size, date};
    return row;
  }
  Text Order(int column) const {
    Text order;
    for (const ListRow& row : list_.rows())
      order += row.cells[static_cast<std::size_t>(column)] + u" ";
    return order + (list_.sortAscending ? u"up" : u"down");
  }
  Text Selected() const {
    return list_.Row(list_.Current()).selected ? list_.Cell(list_.Current(), 0) : u"";
  }

  ScriptedHost host_;
  Window window_{host_, "window"};
  ListView list_{window_, "list"};
};

TEST_F(ListSortTest, TextSortsAsTextAndEachColumnRemembersItsDirection) {
  cLVHeaderSortIcons sorting(list_);
  sorting.SetHeaderIcons(0);
  EXPECT_EQ(Order(0), u"A.mid a.mid b.mid c.mid up");
  sorting.SetHeaderIcons(0);
  EXPECT_EQ(Order(0), u"c.mid b.mid A.mid a.mid down");
  sorting.SetHeaderIcons(1);
  EXPECT_EQ(Order(1), u"10KB 10KB 2KB 9KB up");
  EXPECT_EQ(list_.sortColumn, 1);
  sorting.SetHeaderIcons(0);
  EXPECT_EQ(Order(0), u"c.mid b.mid a.mid A.mid down");
}

TEST_F(ListSortTest, NumbersAndDatesTurnRoundOnlyOnTheSortedColumn) {
  sortListByNumber(list_, 1);
  EXPECT_EQ(Order(1), u"2KB 9KB 10KB 10KB up");
  sortListByNumber(list_, 1);
  EXPECT_EQ(Order(1), u"10KB 10KB 9KB 2KB down");
  sortListByDate(list_, 2);
  EXPECT_EQ(Order(0), u"a.mid A.mid c.mid b.mid up") << "what is no date comes first";
  list_.SetCell(0, 1, u"99999999999999999999");
  list_.SetCell(1, 1, u"");
  sortListByNumber(list_, 1);
  EXPECT_EQ(Order(1), u" 9KB 10KB 99999999999999999999 up");
}

TEST_F(ListSortTest, AnOrderHoldsEveryRowOnce) {
  for (const std::vector<int>& wrong : std::initializer_list<std::vector<int>>{
           {0, 1, 2}, {0, 1, 2, 2}, {0, 1, 2, 4}, {0, 1, 2, -1}}) {
    EXPECT_THROW(list_.Order(wrong), BoundsError);
  }
}

}  // namespace
}  // namespace tessarin
