#include "core/ModelTable.h"

namespace tessarin {

namespace {

struct Model {
  const char16_t* code;
  const char16_t* name;
};

constexpr Model kModels[] = {
    {u"1130202", u"T68i"}, {u"1102101", u"T100"}, {u"1130601", u"T300"}, {u"1130501", u"T200"},
    {u"1041011", u"T226"}, {u"1001012", u"T230"}, {u"1130602", u"T310"}, {u"1021011", u"T610"},
    {u"1021012", u"T630"}, {u"1031012", u"T637"},
};

}  // namespace

Text ModelName(TextView modelIdentification) {
  for (const auto& model : kModels) {
    if (ContainsIgnoringCase(modelIdentification, model.code)) return model.name;
  }
  return kUnknownModel;
}

}  // namespace tessarin
