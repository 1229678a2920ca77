#include "messages/Smileys.h"

namespace tessarin {

namespace {

// Each ends at an "S". Parentheses and dots that are wide are so on purpose.
constexpr char16_t kTable[] =
    u":)S:-)S0-)S:DS..._...S:->:>S3:=9S8-)S8:-IS8:]S"
    u";-)S:-0S:{S:-()S:%)%S:-oS:*)S|-)S|-DS:-!S"
    u"|-PS:-\"S:-<S:-*S:-#|S8:-)S:-#S-(S:-%S!-)S"
    u":-&S!-)S#-)S:-')S#:-)S:-'|S:-9S:-(S%-)S:-（*）S"
    u"%-}S:-（=）S:-{S^O^S^O^S^-^S':-)S(-)S^-<@-@S&:-)S"
    u"..~^.^~...S{:-)S~-~S(-:S=^-^=S(-_-)S?-?S(:)-)S~~~~>-<~~~~S(:-*S"
    u":-）'S(:-&S:-）-{8S(:-(S:-）8S(:-)S:-*S(:-*S:-/S(:-……S"
    u":-0S(:-D)S:-S(:-|k-S:-6S:-7S(:<)S:-8（S(:>>-<S:-{)S"
    u":-{）S(:IS:-{)S(:^(S:-<)S(:<)S:-=)S*-(S:-$So-)S"
    u":-?S@-)S:-qS:-eS:-PS:-QS:-[S:-}S:>)S=:-(S[:-)SB-)";

}  // namespace

const std::vector<Text>& Smileys() {
  static const std::vector<Text> smileys = Split(kTable, u"S");
  return smileys;
}

std::string SmileyPicture(std::size_t index) { return "smileys/" + std::to_string(index + 1); }

}  // namespace tessarin
