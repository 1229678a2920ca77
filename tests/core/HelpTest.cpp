// The help: the files that are really shipped, and what becomes of damaged ones.

#include <gtest/gtest.h>

#include "codecs/Faults.h"
#include "codecs/modFile.h"
#include "core/HelpFile.h"
#include "core/HelpSearch.h"
#include "core/Language.h"
#include "core/Lzx.h"
#include "core/Markup.h"

namespace tessarin {
namespace {

constexpr const char* kPages[] = {"index.html", "connect.html",  "file.html",      "sms.html",
                                  "mms.html",   "ringtone.html", "picture.html",   "theme.html",
                                  "movie.html", "calendar.html", "phonebook.html", "sync.html"};

std::string Shipped(std::size_t language) {
  const auto name = ToUtf8(kLanguages[language].helpFile).substr(1);
  return modFile::ReadWholeFile(std::filesystem::path(TESSARIN_SHARE) / name);
}

std::string Utf8(const std::optional<Text>& text) { return text ? ToUtf8(*text) : ""; }

// The anchors of a page, each between blanks.
std::string AnchorsOf(std::string_view html) {
  std::string anchors = " ";
  for (MarkupReader reader(html); reader.Next();) anchors += Utf8(reader.Attribute("id")) + " ";
  return anchors;
}

class ShippedHelp : public testing::TestWithParam<std::size_t> {
 protected:
  const HelpFile help_{Shipped(GetParam())};
};

TEST_P(ShippedHelp, ContentsNameEveryPageInOrderWithItsSections) {
  std::vector<std::string> pages;
  std::string present;
  for (const HelpEntry& entry : help_.contents()) {
    EXPECT_FALSE(entry.title.empty());
    EXPECT_EQ(entry.title.find(kReplacement), Text::npos) << ToUtf8(entry.title);
    if (entry.level == 0) {
      EXPECT_EQ(entry.title, help_.Title(entry.place.path)) << entry.place.path;
      pages.push_back(present = entry.place.path);
    } else {
      EXPECT_EQ(entry.level, 1);
      EXPECT_EQ(entry.place.path, present);
      EXPECT_FALSE(entry.place.anchor.empty());
    }
  }
  std::vector<std::string> expected;
  for (const char* page : kPages) expected.push_back(std::string("/") + page);
  EXPECT_EQ(pages, expected);
  EXPECT_EQ(help_.pages(), expected);
  EXPECT_EQ(help_.home(), "/index.html");
}

TEST_P(ShippedHelp, EveryLinkAndPictureLeadsSomewhere) {
  int pictures = 0;
  for (const std::string& page : help_.pages()) {
    for (MarkupReader reader(*help_.Read(page)); reader.Next();) {
      auto link = reader.Attribute(reader.Name() == "img" ? "src" : "href");
      if (!link) continue;
      const auto place = FollowLink(page, ToUtf8(*link));
      ASSERT_TRUE(place) << page << " leads out: " << ToUtf8(*link);
      const auto target = help_.Read(place->path);
      ASSERT_TRUE(target) << page << ": " << ToUtf8(*link);
      if (reader.Name() == "img") pictures += target->starts_with("\x89PNG") ? 1 : 0;
      if (place->anchor.empty()) continue;
      EXPECT_NE(AnchorsOf(*target).find(" " + place->anchor + " "), std::string::npos)
          << page << ": " << ToUtf8(*link);
    }
  }
  EXPECT_GE(pictures, 12);
}

INSTANTIATE_TEST_SUITE_P(Languages, ShippedHelp, testing::Range<std::size_t>(0, kLanguages.size()),
                         [](const auto& row) { return kLanguages[row.param].menuKey; });

struct Question {
  std::size_t language;
  const char* words;
  const char* first;  // page, empty for nothing found
};

TEST(HelpSearchTest, FindsWordsInAnyScript) {
  const Question questions[] = {
      {0, "calendar", "/calendar.html"},
      {0, "DIALOUT", "/connect.html"},
      {0, "modemmanager stop", "/connect.html"},
      {0, "  ", ""},
      {0, "calendar xyzzy", ""},
      {0, "charset=", ""},
      {1, "日历", "/calendar.html"},
      {1, "手机　日历", "/index.html"},
      {2, "行事曆", "/calendar.html"},
      {7, "КАЛЕНДАРЬ", "/calendar.html"},
      {3, "CALENDRIER", "/calendar.html"},
  };
  for (const Question& question : questions) {
    const HelpFile help(Shipped(question.language));
    const auto words = SearchWords(FromUtf8(question.words));
    const auto hits = HelpSearch(help).Find(words);
    ASSERT_EQ(hits.empty(), *question.first == '\0') << question.words;
    if (hits.empty()) continue;
    EXPECT_EQ(hits[0].path, question.first) << question.words;
    EXPECT_EQ(hits[0].title, help.Title(hits[0].path));
    for (const HelpHit& hit : hits) {
      EXPECT_LE(hit.snippet.size(), 124U);
      EXPECT_TRUE(ContainsIgnoringCase(hit.title + hit.snippet, words[0])) << question.words;
    }
  }
}

TEST(HelpFileTest, DamageIsRefusedOrHarmless) {
  const std::string whole = Shipped(0);
  for (const char* content : {"", "ITSF", "No help file at all, though not short."}) {
    EXPECT_THROW(HelpFile{std::string(content)}, DocumentError) << content;
  }
  for (std::size_t length = 0; length < whole.size(); length += 7919) {
    EXPECT_THROW(HelpFile{whole.substr(0, length)}, DocumentError) << length;
  }
  // The numbers of the headers, some of the directory, the tables of the compression, and some of
  // what is compressed, each set as high as it goes.
  std::vector<std::size_t> places;
  for (std::size_t at = 4; at < 0xE0; at += 4) places.push_back(at);
  for (std::size_t at = 0xE0; at < 0x10CC; at += 101) places.push_back(at);
  for (std::size_t at = 0x1154; at < 0x11E0; at += 4) places.push_back(at);
  for (std::size_t at = 0x1400; at < whole.size() - 4; at += 20011) places.push_back(at);
  int refused = 0;
  for (const std::size_t at : places) {
    std::string damaged = whole;
    damaged.replace(at, 4, "\xFF\xFF\xFF\x7F");
    try {
      const HelpFile help(damaged);
      for (const std::string& page : help.pages()) EXPECT_TRUE(help.Read(page));
    } catch (const DocumentError&) {
      ++refused;
    }
  }
  EXPECT_GT(refused, 15);
}

// One bit of no translation, kind 3, length 5, the rest of a word, three distances, the bytes, one
// that fills the word; then the same block again, of length 1.
TEST(LzxTest, ReadsUncompressedBlocks) {
  using namespace std::string_literals;
  const std::string distances = "\1\0\0\0\1\0\0\0\1\0\0\0"s;
  const std::string frame =
      "\x00\x30\x50\x00"s + distances + "hello\0"s + "\x00\x60\x20\x00"s + distances + "!\0"s;
  const auto read = [](std::string_view input, std::size_t length) {
    std::string output = "before ";
    LzxDecoder decoder(16, output);
    decoder.ReadFrame(input, length);
    return output;
  };
  EXPECT_EQ(read(frame, 5), "before hello");
  EXPECT_EQ(read(frame, 6), "before hello!");
  EXPECT_THROW(read(frame, 7), DocumentError) << "nothing is behind";
  EXPECT_THROW(read(frame.substr(0, 18), 5), DocumentError);
  EXPECT_THROW(read("\x00\x80"s + frame.substr(2), 5), DocumentError) << "translated";
  EXPECT_THROW(read("\x00\x70"s + frame.substr(2), 5), DocumentError) << "kind 7";
  EXPECT_THROW(read("", 1), DocumentError);
}

TEST(MarkupTest, ReadsTextTitleAndAttributes) {
  const std::pair<const char*, const char*> pages[] = {
      {"", ""},
      {"<p>One</p><p>t<b>w</b>o\n\t three</p>", "One two three"},
      {"<head><title>T</title><style>p{}</style></head><body>a&nbsp;&lt;b&gt; &amp;amp;",
       "a <b> &amp;"},
      {"&#x4F60;&#22909; &#128241;&unknown; & &#xD800; &#;", "你好 📱&unknown; & \uFFFD &#;"},
      {"<!-- <p>no</p> -->yes<!DOCTYPE x><script>if (a<b) c</script>", "yes"},
      {"cut <a href=\"x", "cut"},
  };
  for (const auto& [html, text] : pages) EXPECT_EQ(ToUtf8(PlainText(html)), text) << html;
  EXPECT_EQ(PageTitle("<HEAD><TITLE>\n A &amp; B </TITLE>"), u"A & B");

  MarkupReader reader(R"(<IMG src = 'a&amp;b.png' Alt="x > y" width=4 hidden><br/>)");
  ASSERT_TRUE(reader.Next());
  EXPECT_EQ(reader.Name(), "img");
  EXPECT_EQ(Utf8(reader.Attribute("src")), "a&b.png");
  EXPECT_FALSE(reader.Attribute("height"));
}

TEST(HelpPlaceTest, FollowsLinks) {
  struct Row {
    const char* from;
    const char* link;
    const char* path;
    const char* anchor;
  };
  const Row rows[] = {
      {"/sms.html", "mms.html", "/mms.html", ""},
      {"/sms.html", "mms.html#new", "/mms.html", "new"},
      {"/sms.html", "#send", "/sms.html", "send"},
      {"/a/b/c.html", "../pictures/x.png", "/a/pictures/x.png", ""},
      {"/sms.html", "../../x.png", "/x.png", ""},
      {"/a/b.html", "/./c//d.html", "/c/d.html", ""},
  };
  for (const Row& row : rows) {
    const auto place = FollowLink(row.from, row.link);
    ASSERT_TRUE(place) << row.link;
    EXPECT_EQ(place->path, row.path) << row.link;
    EXPECT_EQ(place->anchor, row.anchor) << row.link;
  }
  for (const char* link : {"https://example.org/", "mailto:a@example.org", "//example.org/x"}) {
    EXPECT_FALSE(FollowLink("/sms.html", link)) << link;
  }
}

}  // namespace
}  // namespace tessarin
