#include <algorithm>

#include "messages/Smileys.h"
#include "messages/frmAddTextTemplate.h"
#include "tests/messages/MessageBench.h"

namespace tessarin {
namespace {

namespace words = text::interface_;

constexpr char kTemplateFile[] = "app/UserData/SMS/Template/ttemplate.dat";

class ComposerTest : public MessageBench {
 protected:
  // Opens the composer as "New" does; `use` is what the user then does in it.
  void Compose(const std::function<void()>& use) {
    host.WhenShown("frmComposeSMS", [&](Window&) { use(); });
    host.RunEvent([this] {
      composer.SetVariable(u"", u"");
      composer.Show(Modality::Modal);
    });
  }
  void Press(const char* button) { ScriptedHost::Press(composer, button); }
  void Type(const Text& text) {
    composer.RichTextBox1.text = text;
    composer.RichTextBox1.caret = static_cast<int>(text.size());
    composer.RichTextBox1.edited();
  }
  // What the window says under the text.
  std::string Counter() const {
    return ToUtf8(composer.Label2.text() + u" " + composer.Label3.text() + u" " +
                  composer.lblParts.text());
  }
  std::string Status() const { return ToUtf8(composer.lblSending.text()); }
  std::string LeftOut(int characters) const {
    return ToUtf8(language.Filled(words::kComposerLeftOut, {ToText(characters)}));
  }
  // Presses Send and lets the tick come that sends; the numbers that the phone was given.
  std::vector<std::string> Send(const Text& recipients, const Text& text) {
    composer.Text1.text = recipients;
    Type(text);
    line.sent.clear();
    Press("CmdSend");
    EXPECT_TRUE(line.sent.empty()) << "the click itself sends nothing";
    Tick(session.Timer1);
    EXPECT_EQ(session.commandState, job::kIdlePoll);
    std::vector<std::string> numbers;
    for (const Text& sent : line.sent) {
      if (sent.starts_with(u"raw:")) numbers.push_back(ToUtf8(sent.substr(10, 10)));
    }
    return numbers;
  }
  std::string Templates() const {
    std::string list;
    for (int i = 0; i < composer.List1.Count(); ++i) list += ToUtf8(composer.List1.Item(i)) + "|";
    return list;
  }
  // What the user does in the editor of templates: leaves a text by OK, or presses Cancel.
  void EditTo(const Text& text, const char* button) {
    host.WhenShown("frmAddTextTemplate", [this, text, button](Window& window) {
      auto& editor = static_cast<frmAddTextTemplate&>(window);
      editorShowed_ = ToUtf8(editor.caption() + u"|" + editor.Text1.text());
      editor.Text1.text = text;
      ScriptedHost::Press(window, button);
    });
  }
  std::string editorShowed_;
};

TEST(Recipients, AreNumbersWithOrWithoutAName) {
  const struct {
    const char16_t* entry;
    const char16_t* number;
  } cases[] = {{u"123", u"123"},      {u"  +49*#  ", u"+49*#"},
               {u"<Bob>123", u"123"}, {u" <Bob> 12 3 ", u"12 3"},
               {u"Bob<123>", u"123"}, {u"Bob (Home)< +49 > ", u"+49"},
               {u"A>B<123>", u"123"}, {u"A<B<123>", u"123"},
               {u"Bob", u"Bob"},      {u"<Bob>", u"Bob"},
               {u"Bob<>", u""},       {u"<>", u""},
               {u">", u""},           {u"", u""}};
  for (const auto& c : cases) EXPECT_EQ(RecipientNumber(c.entry), c.number) << ToUtf8(c.entry);
}

TEST(Smileys, AreTheTablesEntries) {
  const auto& smileys = Smileys();
  ASSERT_EQ(smileys.size(), 102u);
  EXPECT_EQ(smileys.front(), u":)");
  EXPECT_EQ(smileys.back(), u"B-)");
  EXPECT_EQ(smileys[39], u":-\uFF08*\uFF09");
  EXPECT_EQ(smileys[69], u"(:-\u2026\u2026");
  EXPECT_TRUE(std::none_of(smileys.begin(), smileys.end(), [](const Text& smiley) {
    return smiley.empty() || smiley.find(u'S') != Text::npos;
  }));
  for (std::size_t i = 0; i < smileys.size(); ++i) {
    const auto picture =
        std::filesystem::path(TESSARIN_SHARE) / "icons" / (SmileyPicture(i) + ".svg");
    EXPECT_TRUE(std::filesystem::exists(picture)) << picture;
  }
}

TEST_F(ComposerTest, CountsCharactersAndParts) {
  Compose([this] {
    EXPECT_EQ(Counter(), "0 / 160 ");
    const struct {
      Text text;
      std::string counter;
    } cases[] = {
        {Text(160, u'x'), "160 / 160 "},
        {Text(161, u'x'), "161 / 160 Parts: 2"},
        {Text(306, u'x'), "306 / 160 Parts: 2"},
        {Text(307, u'x'), "307 / 160 Parts: 3"},
        {u"\u007F", "1 / 160 "},
        {u"\u0080", "1 / 70 "},
        {u"", "0 / 70 "},  // an empty text has no width
        {Text(71, u'中'), "71 / 70 Parts: 2"},
        {u"x", "1 / 160 "},
    };
    for (const auto& c : cases) {
      Type(c.text);
      EXPECT_EQ(Counter(), c.counter);
    }
    Press("cmdCancel");
  });
}

TEST_F(ComposerTest, KeepsTheCaretWhereTheUserWrites) {
  Compose([this] {
    auto& box = composer.RichTextBox1;
    box.text = u"ab\r\ncd\r\nef";
    box.caret = 6;  // behind "cd"
    box.edited();
    EXPECT_EQ(box.text(), u"ab\ncd\nef");
    EXPECT_EQ(box.caret(), 5);
    EXPECT_EQ(composer.Label2.text(), u"8");
    composer.Command1[0]->clicked();
    EXPECT_EQ(box.text(), u"ab\ncd:)\nef");
    EXPECT_EQ(box.caret(), 7);
    EXPECT_EQ(composer.Command1[0]->toolTip(), u":)");
    EXPECT_EQ(composer.Label2.text(), u"10");
    Type(Text(803, u'x'));
    composer.Command1[0]->clicked();
    EXPECT_EQ(box.text->size(), 803u) << "what does not fit whole is left out";
    EXPECT_EQ(Status(), LeftOut(2));
    Type(Text(802, u'x'));
    EXPECT_EQ(Status(), "");
    composer.Command1[0]->clicked();
    EXPECT_EQ(box.text->size(), 804u);
    EXPECT_EQ(Status(), "");
    box.edited();
    box.cut(7);  // a text that was pasted
    EXPECT_EQ(Status(), LeftOut(7));
    Press("cmdCancel");
  });
}

// A long message that is passed on may be longer than one that can be sent.
TEST_F(ComposerTest, SaysHowMuchOfATextIsLeftOut) {
  const struct {
    Text text;
    std::size_t shown;
    std::string status;
  } cases[] = {{Text(804, u'x'), 804, ""},
               {Text(918, u'x'), 804, LeftOut(114)},
               {Text(803, u'x') + u"😀", 803, LeftOut(2)},
               {u"", 0, ""}};
  for (const auto& c : cases) {
    host.WhenShown("frmComposeSMS", [&](Window&) {
      EXPECT_EQ(composer.RichTextBox1.text->size(), c.shown);
      EXPECT_EQ(Status(), c.status);
      Press("cmdCancel");
    });
    host.RunEvent([&] {
      composer.SetVariable(u"", c.text);
      composer.Show(Modality::Modal);
    });
  }
}

TEST_F(ComposerTest, ShowsOneSidePanelAtATime) {
  Compose([this] {
    const auto seen = [this] {
      return std::string(composer.Frame1.visible ? "side " : "") +
             (composer.Frame2.visible ? "smileys " : "") +
             (composer.Frame3.visible ? "templates " : "") +
             (composer.Command2.visible ? "more" : "") + (composer.Command3.visible ? "less" : "");
    };
    EXPECT_EQ(seen(), "smileys more");
    Press("Command2");
    EXPECT_EQ(seen(), "side smileys less");
    Press("Label6");
    EXPECT_EQ(seen(), "side templates less");
    Press("Command3");
    EXPECT_EQ(seen(), "templates more");
    Press("cmdCancel");
  });
}

TEST_F(ComposerTest, SendsToEveryRecipientInTurn) {
  Compose([this] {
    const auto sent = Send(u" 123456 ;<Ann>+123457;Bob(Home)<123458>", u"Hi");
    EXPECT_EQ(sent, (std::vector<std::string>{"0681214365", "0691214375", "0681214385"}));
    EXPECT_FALSE(composer.IsLoaded());
  });
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_EQ(host.boxes[0].text, language.getTSPromptStr(text::prompt::kMessageSent));
}

TEST_F(ComposerTest, WhatGoesWrongLeavesTheWindowWithItsText) {
  const struct {
    const char* name;
    Text recipients;
    std::size_t sent;
    int error;
    Text refused;
  } cases[] = {
      {"nobody", u"", 0, text::error::kPhoneNumber, u""},
      {"blanks", u"  ", 0, text::error::kPhoneNumber, u""},
      {"a name without a number", u"Bob", 0, text::error::kPhoneNumber, u""},
      {"a blank inside", u"123 456", 0, text::error::kPhoneNumber, u""},
      {"more digits than a number has", Text(41, u'1'), 0, text::error::kPhoneNumber, u""},
      {"the second is none", u"123456;Bob<>;123457", 1, text::error::kPhoneNumber, u""},
      {"an entry behind a last ;", u"123456;", 1, text::error::kPhoneNumber, u""},
      {"the phone refuses", u"123456;123457", 0, text::error::kSendMessage, u"AT+CMGS"},
  };
  Compose([&] {
    for (const auto& c : cases) {
      host.boxes.clear();
      refuses = c.refused;
      EXPECT_EQ(Send(c.recipients, u"Hi").size(), c.sent) << c.name;
      ASSERT_EQ(host.boxes.size(), 1u) << c.name;
      EXPECT_EQ(host.boxes[0].text, language.getTSErrStr(c.error)) << c.name;
      EXPECT_TRUE(composer.IsLoaded()) << c.name;
      EXPECT_EQ(composer.RichTextBox1.text(), u"Hi") << c.name;
    }
    refuses.clear();
    Press("cmdCancel");
  });
}

TEST_F(ComposerTest, SaysHowFarItCameUntilTheUserWritesAgain) {
  const auto stopped = [this](const Text& place) {
    return ToUtf8(language.Filled(words::kComposerStopped, {place, u"3"}));
  };
  Compose([&] {
    Send(u"123456;Bob;123457", u"Hi");
    EXPECT_EQ(Status(), stopped(u"2"));
    composer.Text1.edited();
    EXPECT_EQ(Status(), "");
    Send(u"123456;123457;", u"Hi");
    EXPECT_EQ(Status(), stopped(u"3"));
    Type(u"Ho");
    EXPECT_EQ(Status(), "");
    Press("cmdCancel");
  });
  Compose([&] {
    EXPECT_EQ(Status(), "");
    Press("cmdCancel");
  });
}

TEST_F(ComposerTest, WithoutAPhoneSendingIsRefusedAtOnce) {
  Compose([this] {
    composer.Text1.text = u"123456";
    Type(u"Hi");
    session.statusPhase = kNoPhone;
    Press("CmdSend");
    EXPECT_EQ(session.commandState, job::kIdlePoll);
    session.statusPhase = kPhonePresent;
    Press("cmdCancel");
  });
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_EQ(host.boxes[0].text, language.getTSErrStr(text::error::kSendMessage));
}

TEST_F(ComposerTest, AWindowThatWasClosedSendsNothing) {
  Compose([this] {
    composer.Text1.text = u"123456";
    Type(u"Hi");
    Press("CmdSend");
    Press("cmdCancel");
  });
  EXPECT_EQ(composer.RichTextBox1.text(), u"");
  // Nor does the next one that comes up before the tick.
  Compose([this] {
    composer.Text1.text = u"123456";
    Type(u"not yet");
    Tick(session.Timer1);
    EXPECT_TRUE(composer.IsLoaded());
    Press("cmdCancel");
  });
  Tick(session.Timer1);
  EXPECT_TRUE(line.sent.empty());
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(ComposerTest, TemplatesAreKeptOnlyWhenTheyAreSaved) {
  std::filesystem::remove_all(folder.Path() / "app" / "UserData");
  Compose([this] {
    EXPECT_EQ(Templates(), "");
    EXPECT_EQ(folder.Read(kTemplateFile), "") << "the empty file was made";
    for (const char* button : {"Command6", "Command7", "Command8"}) {
      EXPECT_FALSE(composer.Find(button)->enabled) << button;
    }
    EditTo(u"On my way", "Command1");
    Press("Command5");
    EXPECT_EQ(editorShowed_, ToUtf8(Word(words::kTemplateNewTitle) + u"|"));
    EXPECT_EQ(composer.List1.Selected(), 0);
    EditTo(u"two\nlines", "Command1");
    Press("Command5");
    EditTo(u"never", "Command2");
    Press("Command5");
    EXPECT_EQ(Templates(), "On my way|two\nlines|");
    composer.List1.Select(0);
    composer.List1.clicked();
    EditTo(u"На пути", "Command1");
    Press("Command7");
    EXPECT_EQ(editorShowed_, ToUtf8(Word(words::kTemplateEditTitle) + u"|On my way"));
    EditTo(u"", "Command1");
    Press("Command7");
    EXPECT_EQ(Templates(), "На пути|two\nlines|") << "an emptied text is no change";
    Type(u"<>");
    composer.RichTextBox1.caret = 1;
    Press("Command6");
    EXPECT_EQ(composer.RichTextBox1.text(), u"<На пути>");
    EXPECT_EQ(Counter(), "9 / 70 ");
    Press("Command4");
    EXPECT_EQ(folder.Read(kTemplateFile), "На пути\r\ntwo\nlines\r\n");
    Press("Command8");
    EXPECT_EQ(Templates(), "two\nlines|");
    EXPECT_FALSE(composer.Command8.enabled);
    Press("cmdCancel");
  });
  Compose([this] {
    EXPECT_EQ(Templates(), "На пути|two|lines|") << "what was not saved is lost";
    Press("cmdCancel");
  });
}

TEST_F(ComposerTest, TemplateFilesOfEveryShape) {
  const struct {
    std::string content, list;
  } cases[] = {{"a\r\nb\r\n", "a|b|"},
               {"a\nb", "a|b|"},
               {"a\r\r\nb\r", "a||b|"},
               {"\r\n", "|"},
               {"\xEF\xBB\xBF"
                "a",
                "a|"},
               {"Gr\xFC\xDF"
                "e\r\nGrüße\r\n",
                "Grüße|Grüße|"}};
  std::filesystem::create_directories((folder.Path() / kTemplateFile).parent_path());
  for (const auto& c : cases) {
    folder.Write(kTemplateFile, c.content);
    Compose([&] {
      EXPECT_EQ(Templates(), c.list);
      Press("cmdCancel");
    });
  }
  EXPECT_TRUE(host.boxes.empty());
  std::filesystem::remove(folder.Path() / kTemplateFile);
  std::filesystem::create_directory(folder.Path() / kTemplateFile);
  Compose([&] {
    EXPECT_EQ(Templates(), "");
    Press("Command4");
    Press("cmdCancel");
  });
  EXPECT_EQ(host.boxes.size(), 2u) << "neither reading nor saving is possible";
}

// As an older system writes them in its own code page.
TEST_F(ComposerTest, LinesThatAreNoUtf8AreKeptAsTheyAre) {
  std::filesystem::create_directories((folder.Path() / kTemplateFile).parent_path());
  folder.Write(kTemplateFile, "\xC4rger\r\nabc\r\n\xE4\r\n");
  Compose([this] {
    EXPECT_EQ(Templates(), "Ärger|abc|ä|");
    composer.List1.Select(2);
    EditTo(u"ö", "Command1");
    Press("Command7");
    Press("Command4");
    Press("cmdCancel");
  });
  EXPECT_EQ(folder.Read(kTemplateFile), "\xC4rger\r\nabc\r\nö\r\n");
}

// What a file holds that could not be read once is not lost by the next saving.
TEST_F(ComposerTest, AnUnreadFileIsNotWrittenOver) {
  const auto file = folder.Path() / kTemplateFile;
  std::filesystem::create_directories(file);
  Compose([&] {
    std::filesystem::remove(file);
    folder.Write(kTemplateFile, "kept\r\n");
    EditTo(u"new", "Command1");
    Press("Command5");
    Press("Command4");
    Press("cmdCancel");
  });
  EXPECT_EQ(folder.Read(kTemplateFile), "kept\r\n");
  ASSERT_EQ(host.boxes.size(), 2u);
  EXPECT_EQ(host.boxes[1].kind, MessageKind::Error);
  Compose([this] {
    EXPECT_EQ(Templates(), "kept|");
    Press("cmdCancel");
  });
}

}  // namespace
}  // namespace tessarin
