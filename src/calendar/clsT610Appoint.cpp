#include "calendar/clsT610Appoint.h"

#include <algorithm>
#include <utility>

#include "codecs/Faults.h"
#include "core/TextIndex.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

constexpr int kTypes = 6;
// Interface texts of types 1 to 6. The last is the kept word itself.
constexpr std::array<int, kTypes> kTypeTexts = {
    words::kCategoryAppointment, words::kCategoryDate,        words::kCategoryTravel,
    words::kCategoryVacation,    words::kCategoryAnniversary, words::kCategoryKept};

}  // namespace

void clsT610Appoint::LetData(Text value, int index) {
  if (index < 0 || index >= kFields) throw BoundsError();
  fields_[static_cast<std::size_t>(index)] = std::move(value);
}

const Text& clsT610Appoint::GetData(int index) const {
  if (index < 0 || index >= kFields) throw BoundsError();
  return fields_[static_cast<std::size_t>(index)];
}

Text clsT610Appoint::GetTypeName(int typeNo, const Language& language) {
  if (typeNo < 1 || typeNo > kTypes) return {};
  return language.getTSInterfaceStr(words::kCategoryKept);
}

int clsT610Appoint::GetTypeNo(TextView typeName, const Language& language) {
  int typeNo = 1;
  for (const int index : kTypeTexts) {
    if (language.getTSInterfaceStr(index) == typeName) return typeNo;
    ++typeNo;
  }
  return kTypes;
}

int clsT610Appoint::TypeOfPhoneCategory(TextView category) {
  const auto* const last = kPhoneCategories.end() - 1;
  const auto* const found = std::find(kPhoneCategories.begin(), last, category);
  return static_cast<int>(found - kPhoneCategories.begin()) + 1;
}

std::array<Text, 6> CategoryWords(const Language& language) {
  std::array<Text, 6> shown;
  for (std::size_t i = 0; i < shown.size(); ++i) {
    const bool isLast = i + 1 == shown.size();
    shown[i] = language.getTSInterfaceStr(isLast ? words::kCategoryMiscellaneous : kTypeTexts[i]);
  }
  return shown;
}

}  // namespace tessarin
