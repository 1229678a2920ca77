#include "outlook/CardKinds.h"

#include <algorithm>

namespace tessarin::outlook {

namespace {

using P = ContactProperty;

constexpr std::string_view kTelScheme = "TEL:";

// Types that say how a number is used or reached, not whose it is.
constexpr std::string_view kNeutral[] = {"VOICE", "PREF",        "MSG",   "TEXT",
                                         "MAIN",  "MAIN-NUMBER", "OTHER", ""};

bool Has(const std::vector<std::string>& types, std::string_view type) {
  return std::find(types.begin(), types.end(), type) != types.end();
}

}  // namespace

bool IsPreferred(const ContentLine& line) {
  return Has(ParameterValues(line, "TYPE"), "PREF") || ParameterText(line, "PREF") == "1";
}

std::optional<P> NumberKind(const ContentLine& line) {
  const auto types = ParameterValues(line, "TYPE");
  const bool home = Has(types, "HOME");
  if (Has(types, "PAGER")) return std::nullopt;
  if (Has(types, "FAX")) {
    return home ? std::nullopt : std::optional(P::BusinessFaxNumber);
  }
  if (Has(types, "CELL") || Has(types, "MOBILE")) return P::MobileTelephoneNumber;
  if (home) return P::HomeTelephoneNumber;
  if (Has(types, "WORK")) return P::BusinessTelephoneNumber;
  const bool plain = std::all_of(types.begin(), types.end(), [](const std::string& type) {
    return std::find(std::begin(kNeutral), std::end(kNeutral), type) != std::end(kNeutral);
  });
  return plain ? std::optional(P::OtherTelephoneNumber) : std::nullopt;
}

std::string NumberHead(P property) {
  switch (property) {
    case P::HomeTelephoneNumber:
      return "TEL;TYPE=HOME";
    case P::BusinessTelephoneNumber:
      return "TEL;TYPE=WORK";
    case P::MobileTelephoneNumber:
      return "TEL;TYPE=CELL";
    case P::BusinessFaxNumber:
      return "TEL;TYPE=WORK,FAX";
    default:
      return "TEL;TYPE=VOICE";
  }
}

bool HasTelScheme(std::string_view value) {
  return UpperAscii(value.substr(0, kTelScheme.size())) == kTelScheme;
}

std::string_view WithoutTelScheme(std::string_view value) {
  return HasTelScheme(value) ? value.substr(kTelScheme.size()) : value;
}

std::optional<P> AddressKind(const ContentLine& line) {
  const auto types = ParameterValues(line, "TYPE");
  if (Has(types, "HOME")) return P::HomeAddressStreet;
  if (Has(types, "WORK")) return P::BusinessAddressStreet;
  return std::nullopt;
}

P AddressPart(P street, int part) { return static_cast<P>(static_cast<int>(street) + part); }

}  // namespace tessarin::outlook
