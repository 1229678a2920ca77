#include "core/Language.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>

#include "codecs/Faults.h"
#include "core/TextIndex.h"
#include "tests/support/TempFolder.h"

namespace tessarin {
namespace {

using namespace std::string_literals;

// A language file in short: "0" stands for NUL.
std::string Packed(std::string text) {
  std::replace(text.begin(), text.end(), '0', '\0');
  return text;
}

constexpr char kSmall[] = R"(..\0p00p1\\0e\\0i00i2..\0f\\0g\\0h)";

class LanguageTest : public testing::Test {
 protected:
  void Ship(const std::string& name, const std::string& content) const {
    folder_.Write(name, Packed(content));
  }

  TempFolder folder_;
  modFile files_{folder_.Path() / "app", folder_.Path()};
  Language language_{files_};
};

TEST_F(LanguageTest, SplitsPiecesGroupsAndTexts) {
  EXPECT_THROW(language_.getTSPromptStr(0), BoundsError) << "empty until a file was read";
  Ship("English.lng", R"(..\0p000p2\\0e0e1\\0i..\0f\\0g\\0h..\0more)");
  language_.readLangFile(0);
  EXPECT_EQ(language_.getTSPromptStr(0), u"p");
  EXPECT_EQ(language_.getTSPromptStr(1), u"");
  EXPECT_EQ(language_.getTSPromptStr(3), u"p2");
  EXPECT_EQ(language_.getTSErrStr(1), u"e1");
  EXPECT_EQ(language_.getTSInterfaceStr(0), u"i");
  for (const int index : {-1, 1}) {
    EXPECT_THROW(language_.getTSInterfaceStr(index), BoundsError) << index;
  }
}

TEST_F(LanguageTest, KeepsEveryCharacterThatIsNoSeparator) {
  Ship("German.lng",
       "\xEF\xBB\xBFnote..\\0a\r\nb..\\x\\\\0\xC3\xBC \\\\y\\\\0z\xFF..\\0f\\\\0g\\\\0h");
  language_.readLangFile(4);
  EXPECT_EQ(language_.getTSPromptStr(0), u"a\r\nb..\\x");
  EXPECT_EQ(language_.getTSErrStr(0), u"ü \\\\y");
  EXPECT_EQ(language_.getTSInterfaceStr(0), u"z\uFFFD");
}

TEST_F(LanguageTest, AFileThatIsShortOrMissingRaisesAndLeavesTheOldTables) {
  Ship("English.lng", kSmall);
  language_.readLangFile(0);
  for (const char* content : {"", "..\\0", R"(..\0p\\0e\\0i)", R"(..\0p\\0e..\0f\\0g\\0h)",
                              R"(..\0p\\0e\\0i..\0f\\0g)", R"(p\\0e\\0i..\0f\\0g\\0h)"}) {
    Ship("French.lng", content);
    EXPECT_THROW(language_.readLangFile(3), BoundsError) << content;
  }
  EXPECT_THROW(language_.readLangFile(5), FileError);
  EXPECT_EQ(language_.getTSPromptStr(0), u"p");
  EXPECT_EQ(language_.index(), 0);
}

TEST_F(LanguageTest, TakesTheFilesByIndexAndTheUsersOwnFirst) {
  for (const LanguageRow& row : kLanguages) {
    Ship(ToUtf8(row.languageFile).substr(1), "..\\0" + ToUtf8(row.code) + R"(\\0\\0..\0\\0\\0)");
  }
  for (int index = -1; index <= 9; ++index) {
    language_.readLangFile(index);
    const int known = index >= 1 && index <= 8 ? index : 0;
    const LanguageRow& row = kLanguages[static_cast<std::size_t>(known)];
    EXPECT_EQ(language_.getTSPromptStr(0), row.code) << index;
    EXPECT_EQ(language_.helpFile(), folder_.Path() / ToUtf8(row.helpFile).substr(1)) << index;
  }
  std::filesystem::create_directories(folder_.Path() / "app");
  Ship("app/Italian.lng", R"(..\0mine\\0\\0..\0\\0\\0)");
  language_.readLangFile(5);
  EXPECT_EQ(language_.getTSPromptStr(0), u"mine");
}

TEST(LanguageIndex, FollowsTheRegistryCodes) {
  const std::map<Text, int> codes = {{u"en", 0},  {u"sch", 1}, {u"tch", 2}, {u"fra", 3},
                                     {u"ger", 4}, {u"it", 5},  {u"spa", 6}, {u"ru", 7},
                                     {u"rom", 8}, {u"", 0},    {u"GER", 0}, {u"german", 0}};
  for (const auto& [code, index] : codes) EXPECT_EQ(LanguageIndexOf(code), index) << ToUtf8(code);
}

TEST(FillPlaceholders, ReplacesInOnePass) {
  EXPECT_EQ(FillPlaceholders(u"###2 of ###1, ###3 ### ####1", {u"###2", u"x"}),
            u"x of ###2, ###3 ### ####2");
  EXPECT_EQ(FillPlaceholders(u"a###", {u"x"}), u"a###");
}

// "###1" and so on in the order of their numbers; translations may move them about.
std::multiset<Text> Placeholders(const Text& text) {
  std::multiset<Text> found;
  for (auto at = text.find(u"###"); at != Text::npos; at = text.find(u"###", at + 3)) {
    const auto end = text.find_first_not_of(u"0123456789", at + 3);
    found.insert(text.substr(at, std::min(end, text.size()) - at));
  }
  return found;
}

using Getter = const Text& (Language::*)(int) const;

std::vector<Text> All(const Language& language, Getter get) {
  std::vector<Text> texts;
  try {
    for (int index = 0;; ++index) texts.push_back((language.*get)(index));
  } catch (const BoundsError&) {
    return texts;
  }
}

// The nine files that are shipped: a text that one language lacks would be an empty caption there,
// and one with other placeholders a message without its file name.
TEST(ShippedLanguages, HaveTheSameTextsWithTheSamePlaceholders) {
  const modFile files("/nowhere", TESSARIN_SHARE);
  Language english(files), other(files);
  english.readLangFile(0);
  for (int language = 1; language <= 8; ++language) {
    other.readLangFile(language);
    for (const Getter get :
         {&Language::getTSPromptStr, &Language::getTSErrStr, &Language::getTSInterfaceStr}) {
      const auto here = All(other, get), there = All(english, get);
      ASSERT_GT(there.size(), 500u);
      ASSERT_EQ(here.size(), there.size()) << language;
      for (std::size_t index = 0; index < there.size(); ++index) {
        SCOPED_TRACE(std::to_string(language) + " " + ToUtf8(there[index]));
        EXPECT_EQ(here[index].empty(), there[index].empty());
        EXPECT_EQ(Placeholders(here[index]), Placeholders(there[index]));
        EXPECT_EQ(here[index].find(u'&'), Text::npos) << "would underline a letter";
        EXPECT_EQ(here[index].find(u'\uFFFD'), Text::npos);
      }
    }
  }
}

TEST(ShippedTexts, HaveWordsForEveryNamedNumber) {
  std::ifstream header(TESSARIN_TEXT_INDEX);
  ASSERT_TRUE(header);
  const std::pair<const char*, int> several[] = {{"First of three", 3}, {"First of four", 4},
                                                 {"First of five", 5},  {"First of six", 6},
                                                 {"First of seven", 7}, {"First of twelve", 12}};
  const modFile files("/nowhere", TESSARIN_SHARE);
  std::vector<Language> languages(9, Language(files));
  for (int index = 0; auto& language : languages) language.readLangFile(index++);
  int found = 0;
  auto get = &Language::getTSPromptStr;
  for (std::string line; std::getline(header, line);) {
    if (line == "namespace error {") get = &Language::getTSErrStr;
    if (line == "namespace interface_ {") get = &Language::getTSInterfaceStr;
    const auto equals = line.find(" = ");
    if (!line.starts_with("inline constexpr int k") || equals == std::string::npos) continue;
    ++found;
    int count = 1;
    for (const auto& [words, number] : several) {
      if (line.find(words) != std::string::npos) count = number;
    }
    EXPECT_EQ(count > 1, line.find("First of") != std::string::npos) << line;
    for (int index = std::stoi(line.substr(equals + 3)); count > 0; ++index, --count) {
      for (const Language& language : languages) {
        EXPECT_FALSE((language.*get)(index).empty()) << language.index() << " " << line;
      }
    }
  }
  EXPECT_GT(found, 300);
}

}  // namespace
}  // namespace tessarin
