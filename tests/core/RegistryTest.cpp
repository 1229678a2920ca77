#include <gtest/gtest.h>

#include "codecs/Faults.h"
#include "core/regAPI.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/TempFolder.h"

namespace tessarin {
namespace {

constexpr char16_t kKey[] = u"SOFTWARE\\Tessarin";

class RegistryTest : public testing::Test {
 protected:
  Text Get(TextView name = u"Language") const { return registry_.RegGetString(kKey, name); }
  void Set(TextView name, TextView value, RegType type = RegType::String) const {
    registry_.RegSetValue(kKey, name, value, type);
  }
  std::string File() const { return folder_.Read("conf/registry.ini"); }
  void Write(const std::string& content) const {
    std::filesystem::create_directories(folder_.Path() / "conf");
    folder_.Write("conf/registry.ini", content);
  }

  TempFolder folder_;
  regAPI registry_{folder_.Path() / "conf" / "registry.ini"};
};

TEST_F(RegistryTest, KeepsWhatWasWritten) {
  const Text texts[] = {u"ger",
                        u"",
                        u"with \"quotes\" and \\ and =",
                        u"a\nb",
                        u"[not a key]",
                        u"русский",
                        u"dword:0000002a",
                        u" blanks "};
  for (const Text& text : texts) {
    Set(u"Language", text);
    EXPECT_EQ(Get(), text);
  }
  Set(u"Count", u"4294967295", RegType::Number);
  EXPECT_EQ(Get(u"Count"), u"4294967295");
  EXPECT_EQ(Get(), u" blanks ");
  EXPECT_EQ(File(), "[SOFTWARE\\Tessarin]\nLanguage=\" blanks \"\nCount=dword:ffffffff\n");
}

TEST_F(RegistryTest, CutsTextsAtTheirFirstZero) {
  Set(u"Language", Text(u"ru\0ru", 5));
  EXPECT_EQ(Get(), u"ru");
  Write(std::string("[SOFTWARE\\Tessarin]\nLanguage=\"it\0x\"\n", 36));
  EXPECT_EQ(Get(), u"it");
}

TEST_F(RegistryTest, RefusesNumbersThatDoNotFit) {
  Set(u"Count", u"7", RegType::Number);
  for (const char16_t* number : {u"", u"x", u"4294967296", u"-1", u"1 ", u"0x10"}) {
    EXPECT_THROW(Set(u"Count", number, RegType::Number), ConversionError) << ToUtf8(number);
  }
  EXPECT_EQ(Get(u"Count"), u"7");
}

TEST_F(RegistryTest, LeavesTheRestOfTheFileAsItStands) {
  Write("; mine\n[Other]\nLanguage=\"xx\"\n\n[SOFTWARE\\Tessarin]\nOld=1\n[Last]\nb=\"c\"");
  EXPECT_EQ(Get(), u"");
  Set(u"Language", u"fra");
  EXPECT_EQ(File(),
            "; mine\n[Other]\nLanguage=\"xx\"\n\n[SOFTWARE\\Tessarin]\nOld=1\nLanguage=\"fra\"\n"
            "[Last]\nb=\"c\"\n");
  EXPECT_EQ(registry_.RegGetString(u"Last", u"b"), u"c");
  EXPECT_EQ(Get(u"Lang"), u"") << "a name is a whole name";
}

TEST_F(RegistryTest, ReadsFilesOfOthersHands) {
  const struct {
    std::string value;
    const char16_t* text;
  } cases[] = {{"Language=spa", u"spa"},     {"Language=\"spa\"\r", u"spa"}, {"Language=\"", u"\""},
               {"Language=dword:2A", u"42"}, {"Language=dword:", u""},       {"Language=", u""},
               {"Language=dword:2G", u""},   {"language=\"spa\"", u""}};
  for (const auto& c : cases) {
    Write("[SOFTWARE\\Tessarin]\n" + c.value + "\n");
    EXPECT_EQ(Get(), c.text) << c.value;
  }
}

TEST_F(RegistryTest, GivesNothingWhereNothingCanBeRead) {
  EXPECT_EQ(Get(), u"") << "no file";
  EXPECT_EQ(File(), "(none)") << "and asking makes none";
  Set(u"Language", u"ger");
  const auto file = folder_.Path() / "conf" / "registry.ini";
  std::filesystem::permissions(file, std::filesystem::perms::none);
  const OrdinaryUser user;
  EXPECT_EQ(Get(), u"");
  EXPECT_THROW(Set(u"Language", u"fra"), FileError) << "what cannot be read is not written over";
}

TEST_F(RegistryTest, TellsWhenItCannotWrite) {
  Set(u"Language", u"ger");
  std::filesystem::permissions(folder_.Path() / "conf", std::filesystem::perms(0555));
  {
    const OrdinaryUser user;
    EXPECT_THROW(Set(u"Language", u"fra"), FileError);
    EXPECT_EQ(Get(), u"ger");
  }
  std::filesystem::permissions(folder_.Path() / "conf", std::filesystem::perms(0755));
}

}  // namespace
}  // namespace tessarin
