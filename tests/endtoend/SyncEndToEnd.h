#pragma once

// What the end-to-end tests of both synchronisation windows share: what the user does in one, and
// the folders of Outlook's items behind it.

#include <map>
#include <string>
#include <thread>

#include "codecs/modFile.h"
#include "tests/endtoend/EndToEnd.h"

namespace tessarin {

class SyncEndToEnd : public EndToEnd {
 protected:
  using Items = std::map<std::string, std::string>;  // bytes by file name

  explicit SyncEndToEnd(std::string items) : items_("app/Outlook/" + std::move(items) + "/") {
    std::filesystem::create_directories(folder.Path() / items_);
  }

  // Opens the window from the page in front, acts in it, and goes back.
  template <class Dialog>
  void InWindow(Dialog& dialog, const std::function<void(Dialog&)>& act) {
    host.WhenShown(dialog.name(), [&](Window&) {
      act(dialog);
      if (dialog.IsLoaded()) ScriptedHost::Press(dialog, "cmdCancel");
    });
    host.RunEvent([this] { session.Toolbar1.clicked("Sync"); });
  }
  // A command, and the run that it asks for: what is told of the left side, and of the right one.
  // The first of the user's answers in `host.answers` is the one to the question before the run.
  std::string Run(SyncDialog& dialog, const char* button) {
    EXPECT_TRUE(Does([&] { ScriptedHost::Press(dialog, button); }));
    EXPECT_EQ(host.Find("frmSplashTransmission"), nullptr);
    EXPECT_FALSE(dialog.prgRows.visible);
    return ToUtf8(dialog.lblResult[0].text() + u" / " + dialog.lblResult[1].text());
  }
  static std::string Summary(const std::string& side, const std::string& added,
                             const std::string& updated, const std::string& leftAlone,
                             const std::string& failed = "0") {
    return side + ": " + added + " added, " + updated + " updated, " + leftAlone + " left alone, " +
           failed + " failed";
  }
  static void Select(SyncDialog& dialog, int pane, const std::vector<int>& rows) {
    dialog.lvwLocation[static_cast<std::size_t>(pane)].SelectByUser(rows, rows.back());
  }

  Items ReadItems() const {
    Items items;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path() / items_)) {
      items[entry.path().filename().string()] = modFile::ReadWholeFile(entry.path());
    }
    return items;
  }
  // The name of the one file that holds `part`.
  std::string Holding(const std::string& part) const {
    std::string found;
    for (const auto& [name, bytes] : ReadItems()) {
      if (bytes.find(part) == std::string::npos) continue;
      EXPECT_EQ(found, "") << part << " is in several files";
      found = name;
    }
    return found;
  }
  void WriteItem(const std::string& name, const std::string& bytes) const {
    folder.Write(items_ + name, bytes);
  }
  // Another program's edit, a little later than anything that was done here.
  void Edit(const std::string& name, const std::string& from, const std::string& to) const {
    std::string bytes = folder.Read(items_ + name);
    const auto at = bytes.find(from);
    ASSERT_NE(at, std::string::npos) << bytes;
    const auto path = folder.Write(items_ + name, bytes.replace(at, from.size(), to));
    std::filesystem::last_write_time(
        path, std::filesystem::file_time_type::clock::now() + std::chrono::seconds(5));
  }
  // Times count in whole seconds: what comes now is later than all that was.
  static void AwaitNextSecond() {
    const auto now = std::chrono::system_clock::now();
    std::this_thread::sleep_until(std::chrono::ceil<std::chrono::seconds>(now) +
                                  std::chrono::milliseconds(20));
  }

  const std::string items_;  // the folder, and a slash
};

}  // namespace tessarin
