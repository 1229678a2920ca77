#include "codecs/NumberFilter.h"

#include <algorithm>

namespace tessarin {

namespace {

TextView Allowed(Dialling kind) {
  constexpr TextView kAll = u"0123456789*#+";
  switch (kind) {
    case Dialling::kDigits:
      return kAll.substr(0, 10);
    case Dialling::kKeys:
      return kAll.substr(0, 12);
    case Dialling::kKeysAndPlus:
      return kAll;
  }
  return kAll;
}

}  // namespace

bool HoldsForbidden(TextView text, Dialling kind) {
  return text.find_first_not_of(Allowed(kind)) != TextView::npos;
}

}  // namespace tessarin
