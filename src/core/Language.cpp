#include "core/Language.h"

#include "codecs/Faults.h"

namespace tessarin {

namespace {

using namespace std::string_view_literals;

constexpr TextView kPieceSeparator = u"..\\\0"sv;
constexpr TextView kGroupSeparator = u"\\\\\0"sv;
constexpr TextView kTextSeparator = u"\0"sv;
constexpr int kGroups = 3;

}  // namespace

const std::array<LanguageRow, 9> kLanguages = {{
    {u"\\English.lng", u"\\TessarinEng.chm", u"en", u"en", "English", "en"},
    {u"\\SimplifiedChinese.lng", u"\\TessarinSim.chm", u"sch", u"sch", "SChinese", "zh_CN"},
    {u"\\TraditionalChinese.lng", u"\\TessarinChi.chm", u"tch", u"tch", "TChinese", "zh_TW"},
    {u"\\French.lng", u"\\TessarinFra.chm", u"fra", u"fra", "French", "fr"},
    {u"\\German.lng", u"\\TessarinGer.chm", u"ger", u"ger", "German", "de"},
    {u"\\Italian.lng", u"\\TessarinIta.chm", u"it", u"it", "Italian", "it"},
    {u"\\Spanish.lng", u"\\TessarinSpa.chm", u"spa", u"spa", "Spanish", "es"},
    {u"\\Russian.lng", u"\\TessarinRus.chm", u"ru", u"ru", "Russian", "ru"},
    {u"\\Romanian.lng", u"\\TessarinRom.chm", u"rom", u"spa", "Romanian", "ro"},
}};

int LanguageIndexOf(TextView registryCode) {
  for (std::size_t index = 1; index < kLanguages.size(); ++index) {
    if (registryCode == kLanguages[index].code) return static_cast<int>(index);
  }
  return 0;
}

void Language::readLangFile(int index) {
  const int known = index >= 1 && index <= 8 ? index : 0;
  const LanguageRow& row = kLanguages[static_cast<std::size_t>(known)];
  tables_ = ParseLanguageFile(modFile::ReadWholeFile(files_.ShippedPath(row.languageFile)));
  index_ = known;
  helpFile_ = files_.ShippedPath(row.helpFile);
}

LanguageTables ParseLanguageFile(std::string_view utf8) {
  const auto pieces = Split(FromUtf8(utf8), kPieceSeparator);
  LanguageTables tables;
  for (std::size_t piece = 1; piece <= 2; ++piece) {
    if (piece >= pieces.size()) throw BoundsError();
    const auto groups = Split(pieces[piece], kGroupSeparator);
    if (groups.size() < kGroups) throw BoundsError();
    for (std::size_t group = 0; group < kGroups; ++group) {
      tables[(piece - 1) * kGroups + group] = Split(groups[group], kTextSeparator);
    }
  }
  return tables;
}

const Text& Language::At(Table table, int index) const {
  const auto& texts = tables_[table];
  if (index < 0 || index >= static_cast<int>(texts.size())) throw BoundsError();
  return texts[static_cast<std::size_t>(index)];
}

Text Language::Filled(int interfaceIndex, std::initializer_list<Text> values) const {
  return FillPlaceholders(getTSInterfaceStr(interfaceIndex), values);
}

// One pass, so that a value that holds "###2" itself stays as it is.
Text FillPlaceholders(TextView text, std::initializer_list<Text> values) {
  constexpr TextView kMark = u"###";
  Text filled;
  for (std::size_t at = 0; at < text.size();) {
    const bool mark = text.substr(at).starts_with(kMark) && at + kMark.size() < text.size();
    const std::size_t number =
        mark ? static_cast<std::size_t>(text[at + kMark.size()]) - std::size_t{u'1'}
             : values.size();
    if (number < values.size()) {
      filled += values.begin()[number];
      at += kMark.size() + 1;
    } else {
      filled += text[at++];
    }
  }
  return filled;
}

}  // namespace tessarin
