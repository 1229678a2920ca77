#pragma once

// The six pages of files on a session bench, with a player and a starter of tools that keep
// account.

#include "files/FilePages.h"
#include "tests/support/SessionBench.h"

namespace tessarin {

class NotedPlayer : public MidiPlayer {
 public:
  MediaError Open(const std::filesystem::path& file) override {
    opened = modFile::FileExists(file) ? modFile::ReadWholeFile(file) : "(none)";
    Note("open");
    return opens;
  }
  MediaError Play() override {
    Note("play");
    return plays;
  }
  void Pause() override { Note("pause"); }
  void Stop() override { Note("stop"); }
  void SeekToStart() override { Note("seek"); }
  void Close() override { Note("close"); }

  // What was asked since the last time, one word each.
  std::string Taken() { return std::exchange(acts_, ""); }

  std::string opened;  // the bytes of the last tune
  MediaError opens = MediaError::None;
  MediaError plays = MediaError::None;

 private:
  void Note(const std::string& act) { acts_ += (acts_.empty() ? "" : " ") + act; }

  std::string acts_;
};

class NotedStarter : public ToolStarter {
 public:
  ToolStart Start(const std::string& tool, const std::vector<std::string>& arguments) override {
    started.push_back(tool);
    if (!arguments.empty()) argument = arguments[0];
    return result;
  }

  std::vector<std::string> started;
  std::string argument;
  ToolStart result{ToolStart::Result::Started, {}, {}};
};

class FilePagesBench : public SessionBench {
 protected:
  void PutOnPhone(const std::string& name, const std::string& content) const {
    std::filesystem::create_directories((folder.Path() / "phone" / name).parent_path());
    folder.Write("phone/" + name, content);
  }
  void PutOnComputer(const std::string& name, const std::string& content) const {
    std::filesystem::create_directories((folder.Path() / "app/UserData" / name).parent_path());
    folder.Write("app/UserData/" + name, content);
  }

  // A click, and the tick that does what it asked for.
  void Open(const char* page) {
    host.RunEvent([&] { session.Toolbar2.clicked(page); });
    Tick(session.Timer1);
  }
  // Opens a page with its search for the folder it starts in.
  void OpenAndSearch(const char* page, Timer& search) {
    Open(page);
    Tick(search);
  }
  void Enter(TreeView& tree, TextView key) {
    host.RunEvent([&] { tree.SelectByUser(key); });
    Tick(session.Timer1);
  }
  // What the user does to the row of that name; -1 none.
  static int RowOf(const ListView& list, TextView name) {
    for (int row = 0; row < list.Count(); ++row) {
      if (list.Cell(row, 0) == name) return row;
    }
    return -1;
  }
  void Choose(ListView& list, TextView name, ListAct act = ListAct::LeftButton) {
    host.RunEvent([&] {
      list.SelectByUser({RowOf(list, name)}, RowOf(list, name));
      list.released(act);
    });
  }
  void Press(Button& button) {
    host.RunEvent([&] {
      if (button.enabled && button.visible) button.clicked();
    });
  }
  // The phone is in AT mode and the program idle, as between any two ticks.
  void ExpectIdle() const {
    EXPECT_EQ(session.commandState, job::kIdlePoll);
    EXPECT_FALSE(phone.InObexMode());
    EXPECT_EQ(host.Find("frmSplashTransmission"), nullptr);
  }
  // The list, one file a word.
  static std::string Files(const ListView& list) {
    std::string files;
    for (const ListRow& row : list.rows()) {
      files += ToUtf8(row.cells[0] + u"|" + row.cells[1] + u"|" + row.cells[2]) + " ";
    }
    return files;
  }
  std::vector<Text> Boxes() {
    std::vector<Text> texts;
    for (const auto& box : host.boxes) texts.push_back(box.text);
    host.boxes.clear();
    return texts;
  }
  Text Error(int index) const { return language.getTSErrStr(index); }
  Text Prompt(int index) const { return language.getTSPromptStr(index); }

  NotedPlayer player;
  NotedStarter starter;
  frmSplashTransmission busyWindow{session};
  FilePages pages{session, link, busyWindow, starter, player};
};

}  // namespace tessarin
