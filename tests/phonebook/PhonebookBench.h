#pragma once

// The Phonebook page in a session on a simulated phone, driven as a user does.

#include <gtest/gtest.h>

#include "phonebook/PhonebookPage.h"
#include "tests/support/SessionBench.h"

namespace tessarin {

namespace words = text::interface_;
using Contact = clsT610Contact;
using phonesim::Books;
using Names = std::vector<Text>;

class PhonebookBench : public SessionBench {
 protected:
  PhonebookBench() {
    session.AddPart(lists);
    session.AddPage(page);
    session.Timer1.interval = 1;  // ticks inside of modal windows
  }

  template <class Use>
  auto AtThePhone(Use use) {
    return phone.GetMemory().With(use);
  }
  // The phone's books, the page in front, and which memory is read.
  void Connect(const phonesim::SimBook::Entries& sim, const std::vector<phonesim::Fields>& cards,
               const char* answer = "Command1") {
    AtThePhone([&](Books& books) {
      books.sim.Fill(sim);
      books.contacts.Fill(cards);
    });
    AnswerAsking(answer);
    StartAndConnect();
    ASSERT_EQ(session.statusPhase, kPhonePresent);
    session.ShowPage(kPhonebookPanel);
  }
  void Click(const Text& node) {
    host.RunEvent([&] { session.tvwPhonePhonebook.SelectByUser(node); });
  }
  void Do(const std::string& action) {
    host.RunEvent([&] { session.Toolbar1.clicked(action); });
  }
  void Tick() { SessionBench::Tick(session.Timer1); }
  void Select(const std::vector<int>& rows) {
    host.RunEvent([&] { list.SelectByUser(rows, rows.empty() ? -1 : rows.back()); });
  }
  Names Shown() const {
    Names names;
    for (const auto& row : list.rows()) names.push_back(row.cells.front());
    return names;
  }
  Names Boxes() {
    Names texts;
    for (const auto& box : std::exchange(host.boxes, {})) texts.push_back(box.text);
    return texts;
  }
  Text Error(int index) const { return language.getTSErrStr(index); }
  Text Prompt(int index) const { return language.getTSPromptStr(index); }
  bool CanDo(const char* action) const { return session.Toolbar1.Find(action)->enabled; }
  // What the editor is filled with before OK is pressed.
  void WhenEdited(std::function<void(frmAddContact&)> fill) {
    host.WhenShown("frmAddContact", [fill](Window& window) {
      fill(static_cast<frmAddContact&>(window));
      ScriptedHost::Press(window, "Command1");
    });
  }
  // The next message is that of a refusal: the form is looked at, then cancelled.
  void CancelAtTheBox() {
    host.whileBoxStands = [this] {
      stayedOpen = page.editor().IsLoaded();
      ScriptedHost::Press(page.editor(), "Command2");
    };
  }
  // The phone goes away and another connection is made, with what `change` makes of the phone.
  void ConnectAnew(const std::function<void()>& change) {
    port.levels = {linkport::kNoBatteryLevel, linkport::kNoBatteryLevel, linkport::kNoBatteryLevel};
    Tick();
    ASSERT_EQ(session.statusPhase, kNoPhone);
    change();
    SessionBench::Tick(session.Timer2);
    ASSERT_EQ(session.statusPhase, kPhonePresent);
  }
  phonesim::Fields CardAtThePhone() {
    return AtThePhone([](Books& books) { return books.contacts.Entries().at(0).fields; });
  }
  std::size_t Written(std::string_view part) const {
    return static_cast<std::size_t>(std::count_if(
        port.written.begin(), port.written.end(),
        [part](const std::string& written) { return written.find(part) != written.npos; }));
  }

  bool stayedOpen = false;
  frmSplashTransmission busyWindow{session};
  PhonebookLists lists{files};
  PhonebookPage page{session, link, busyWindow, lists};
  ListView& list = session.lvwPhonePhonebook;
};

}  // namespace tessarin
