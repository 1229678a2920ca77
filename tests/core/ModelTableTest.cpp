#include "core/ModelTable.h"

#include <gtest/gtest.h>

namespace tessarin {
namespace {

TEST(ModelName, IsThatOfTheFirstRowWhoseCodeStandsInTheIdentification) {
  const struct {
    const char16_t* identification;
    const char16_t* name;
  } cases[] = {
      {u"1130202", u"T68i"},
      {u"1102101-BVT100", u"T100"},
      {u"1130601", u"T300"},
      {u"1130501", u"T200"},
      {u"1041011", u"T226"},
      {u"1001012", u"T230"},
      {u"1130602", u"T310"},  // shares six digits with the T300
      {u"  +CGMM: 1021011-bvt610 ", u"T610"},
      {u"1021012", u"T630"},
      {u"1031012", u"T637"},
      {u"1021012 1130202", u"T68i"},  // the table's order, not the text's
      {u"", u"Unknown"},
      {u"102101", u"Unknown"},
      {u"T610", u"Unknown"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ModelName(c.identification), c.name) << ToUtf8(c.identification);
  }
}

}  // namespace
}  // namespace tessarin
