#pragma once

// Every word that the program shows, read from one file a language.
//
// A language file is UTF-8 text with NUL characters (shown here as 0) as separators:
//
//   <ignored> ..\0 prompts \\0 errors \\0 interface ..\0 further 1 \\0 further 2 \\0 further 3
//
// and each of the six groups is a list of texts separated by single NULs, numbered from 0.

#include <array>
#include <filesystem>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "codecs/Text.h"
#include "codecs/modFile.h"

namespace tessarin {

struct LanguageRow {
  const char16_t* languageFile;  // below the application folder
  const char16_t* helpFile;
  const char16_t* code;         // in the registry, as the start reads it
  const char16_t* writtenCode;  // in the registry, as the menu writes it
  const char* menuKey;          // its entry in the language menu
  const char* isoCode;          // for the toolkit's own texts
};

// By language index: 0 English, 1 Simplified Chinese, 2 Traditional Chinese, 3 French, 4 German,
// 5 Italian, 6 Spanish, 7 Russian, 8 Romanian. The Romanian entry writes the code of Spanish:
// Romanian holds for the run in which it was chosen, and the next start speaks Spanish.
extern const std::array<LanguageRow, 9> kLanguages;

inline constexpr char16_t kRegistryKey[] = u"SOFTWARE\\Tessarin";
inline constexpr char16_t kRegistryLanguage[] = u"Language";

// The language index of a registry code; 0, English, for any other text.
int LanguageIndexOf(TextView registryCode);

// Prompts, errors, interface texts, and three tables of no use yet.
using LanguageTables = std::array<std::vector<Text>, 6>;

// The six tables of a language file's content. Throws BoundsError when it has fewer pieces or
// groups.
LanguageTables ParseLanguageFile(std::string_view utf8);

// `text` with its placeholders "###1", "###2" ... replaced by the values in order.
Text FillPlaceholders(TextView text, std::initializer_list<Text> values);

class Language {
 public:
  // `files` must outlive this object. Until a file was read all tables are empty.
  explicit Language(const modFile& files) : files_(files) {}

  // Loads the six tables and the help file's path; an index outside 1 to 8 is English. Throws
  // FileError when the file cannot be read, BoundsError when it has fewer pieces or groups; the
  // tables then stay as they were.
  void readLangFile(int index);

  // Each throws BoundsError for an index outside its table.
  const Text& getTSPromptStr(int index) const { return At(Prompts, index); }
  const Text& getTSErrStr(int index) const { return At(Errors, index); }
  const Text& getTSInterfaceStr(int index) const { return At(Interface, index); }

  // An interface text with its placeholders filled.
  Text Filled(int interfaceIndex, std::initializer_list<Text> values) const;

  int index() const { return index_; }
  const std::filesystem::path& helpFile() const { return helpFile_; }

 private:
  enum Table { Prompts, Errors, Interface };

  const Text& At(Table table, int index) const;

  const modFile& files_;
  LanguageTables tables_;
  int index_ = 0;
  std::filesystem::path helpFile_;
};

}  // namespace tessarin
