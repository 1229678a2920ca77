// The help window as its user meets it.

#include <gtest/gtest.h>

#include "core/TextIndex.h"
#include "core/frmHelp.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/TempFolder.h"

namespace tessarin {
namespace {

constexpr int kGerman = 4;

class HelpWindowTest : public testing::Test {
 protected:
  HelpWindowTest() { language.readLangFile(0); }

  void TearDown() override { help.Unload(); }

  void Speak(int index) {
    language.readLangFile(index);
    help.ApplyTexts();
  }
  void Search(const Text& question) {
    help.txtSearch.text = question;
    help.txtSearch.edited();
    help.cmdSearch.clicked();
  }

  TempFolder folder;
  ScriptedHost host;
  modFile files{folder.Path(), TESSARIN_SHARE};
  Language language{files};
  frmHelp help{host, language};
};

TEST_F(HelpWindowTest, OpensOnThePageOfThePanelInFront) {
  const char* pages[] = {"file",  "sms",   "mms",      "ringtone",  "picture",
                         "theme", "movie", "calendar", "phonebook", "connect"};
  for (int panel = 0; const char* page : pages) {
    help.Open(panel++);
    EXPECT_EQ(help.htmPage.path(), std::string("/") + page + ".html");
    EXPECT_EQ(help.tvwContents.SelectedKey(), FromUtf8(help.htmPage.path()));
    EXPECT_EQ(help.caption(), help.lblTitle.text() + u" - Tessarin Help");
  }
  EXPECT_EQ(host.shown.size(), std::size(pages)) << "one window, brought to the front each time";
  EXPECT_EQ(host.Find("frmHelp"), &help);
  help.OpenPage("sync.html");
  EXPECT_EQ(help.htmPage.path(), "/sync.html");
  help.OpenPage("no such page");
  EXPECT_EQ(help.htmPage.path(), "/index.html");
}

TEST_F(HelpWindowTest, WalksByLinksAndContentsAndBack) {
  help.OpenPage("index.html");
  EXPECT_FALSE(help.cmdBack.enabled);
  help.htmPage.linkClicked("sms.html");
  help.tvwContents.SelectByUser(u"/sms.html#section2");
  EXPECT_EQ(help.htmPage.anchor(), "section2");
  for (const char* nowhere : {"https://example.org/", "gone.html", ""}) {
    help.htmPage.linkClicked(nowhere);
    EXPECT_EQ(help.htmPage.path(), "/sms.html") << nowhere;
  }
  help.cmdBack.clicked();
  help.cmdBack.clicked();
  help.cmdBack.clicked();
  EXPECT_EQ(help.htmPage.path(), "/index.html");
  EXPECT_FALSE(help.cmdBack.enabled);
  help.cmdForward.clicked();
  EXPECT_EQ(help.htmPage.path(), "/sms.html");
  EXPECT_TRUE(help.cmdForward.enabled);
  help.htmPage.linkClicked("mms.html");
  EXPECT_FALSE(help.cmdForward.enabled) << "another way was taken";
  help.cmdHome.clicked();
  EXPECT_EQ(help.htmPage.path(), "/index.html");
  EXPECT_TRUE(help.htmPage.reader("pictures/welcome.png"));
  EXPECT_FALSE(help.htmPage.reader("https://example.org/x.png"));

  help.Unload();
  help.Open(0);
  EXPECT_FALSE(help.cmdBack.enabled) << "a new window knows no way back";
}

TEST_F(HelpWindowTest, ShowsWhatTheSearchFinds) {
  help.Open(0);
  Search(u"DIALOUT");
  EXPECT_TRUE(help.lvwFound.visible);
  EXPECT_FALSE(help.tvwContents.visible);
  EXPECT_EQ(help.htmPage.path(), "/connect.html");
  EXPECT_EQ(help.htmPage.marks(), std::vector<Text>{u"DIALOUT"});
  Search(u"phone");
  ASSERT_GT(help.lvwFound.Count(), 2);
  EXPECT_EQ(help.lblList.text(), u"Pages found: " + ToText(help.lvwFound.Count()));
  help.lvwFound.SelectByUser({2}, 2);
  EXPECT_EQ(help.htmPage.path(), help.lvwFound.Row(2).key);
  help.htmPage.linkClicked("mms.html");
  EXPECT_TRUE(help.htmPage.marks->empty()) << "only what was found is marked";
  Search(u"xyzzy");
  EXPECT_EQ(help.lvwFound.Count(), 0);
  EXPECT_EQ(help.lvwFound.emptyText(), u"Nothing was found for “xyzzy”.");
  EXPECT_EQ(help.htmPage.path(), "/mms.html");
  help.txtSearch.text = u"";
  help.txtSearch.edited();
  EXPECT_TRUE(help.tvwContents.visible);
  EXPECT_EQ(help.lblList.text(), u"Contents");
}

TEST_F(HelpWindowTest, FollowsTheLanguageOnTheSamePage) {
  Speak(kGerman);
  EXPECT_EQ(host.Find("frmHelp"), nullptr);
  Speak(0);
  help.Open(7);
  const Text english = help.lblTitle.text();
  Speak(kGerman);
  EXPECT_EQ(help.htmPage.path(), "/calendar.html");
  EXPECT_NE(help.lblTitle.text(), english);
  EXPECT_EQ(help.cmdBack.caption(), language.getTSInterfaceStr(text::interface_::kHelpBack));
  EXPECT_EQ(help.tvwContents.Find(u"/calendar.html")->text, help.lblTitle.text());
}

TEST_F(HelpWindowTest, SaysSoWhenTheFileCannotBeRead) {
  const auto own = folder.Write("TessarinEng.chm", "no help");
  language.readLangFile(0);
  help.Open(0);
  ASSERT_EQ(host.boxes.size(), 1U);
  EXPECT_EQ(host.boxes[0].text, u"The help file “" + FromUtf8(own.string()) +
                                    u"” cannot be opened. Install Tessarin again.");
  EXPECT_EQ(host.boxes[0].kind, MessageKind::Error);
  EXPECT_EQ(host.Find("frmHelp"), nullptr);

  language.readLangFile(kGerman);
  help.Open(0);
  EXPECT_EQ(host.Find("frmHelp"), &help);
  Speak(0);
  EXPECT_EQ(host.boxes.size(), 2U);
  EXPECT_EQ(host.Find("frmHelp"), nullptr) << "there is nothing to show any more";
}

}  // namespace
}  // namespace tessarin
