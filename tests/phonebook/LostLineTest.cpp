#include "tests/phonebook/PhonebookBench.h"

namespace tessarin {
namespace {

// A job that works with the phone, and what the user is told of it.
struct Act {
  const char* name;
  const char16_t* node;
  const char* action;
  int error;
  int success = -1;  // a prompt; none for reading, which shows its result
};

void PrintTo(const Act& act, std::ostream* out) { *out << act.name; }

class LostLineTest : public PhonebookBench, public testing::WithParamInterface<Act> {
 protected:
  LostLineTest() {
    settings.With([](phonesim::Behaviour& b) { b.sim.last = 20; });
    WhenEdited([](frmAddContact& editor) {
      editor.Text1.text = u"written";
      editor.Text2[0].text = u"0";
    });
    host.WhenShown("frmCopyToSIM", [this](Window& dialog) {
      dialogs_.push_back(&dialog);
      static_cast<frmCopyToSIM&>(dialog).List1.Select(0);
      ScriptedHost::Press(dialog, "Command1");
    });
    host.whileBoxStands = [this] {
      ScriptedHost::Press(page.editor(), "Command2");
      for (Window* dialog : std::exchange(dialogs_, {})) ScriptedHost::Press(*dialog, "Command2");
    };
  }

  // Both memories are read and all contacts linked; one of them is selected.
  void Prepare() {
    AtThePhone([](Books& books) {
      books.sim.Fill({{1, {"one", "1"}}, {12, {"twelve", "12"}}});
      books.contacts.Fill({{{"given", "Ann"}, {"home", "1"}}, {{"given", "Ben"}}});
    });
    for (const char16_t* node : {u"ME", u"SM", GetParam().node}) {
      Click(node);
      Do("Refresh");
      Tick();
    }
    for (const auto& contact : *lists.phoneContacts) {
      contact->LetData(u"entry " + contact->GetData(Contact::kMobileId), Contact::kGuid);
    }
    Select({0});
  }

  void Begin() {
    const std::string action = GetParam().action;
    if (action == "copy_Phone_to_SIM") {
      host.RunEvent([&] { session.MainMenu.clicked(action); });
    } else {
      Do(action);
    }
    if (session.commandState != job::kIdlePoll) Tick();
  }

  void CheckWhatWasSaid(bool lost) {
    const Names said = Boxes();
    const bool isTold = !said.empty() && said.front() == Error(GetParam().error);
    // When only the closing of the session was lost, what was to be done is done.
    if (lost && isTold) return;
    const int success = GetParam().success;
    EXPECT_EQ(said, success < 0 ? Names() : Names{Prompt(success)});
  }

  void FindThePhoneAgain() {
    Tick();
    ASSERT_EQ(session.statusPhase, kNoPhone);
    SessionBench::Tick(session.Timer2);
  }

  void CheckLinks() {
    for (const auto& contact : *lists.phoneContacts) {
      const bool isOnNewPlace = contact->GetData(Contact::kMobileId) == u"s2";
      if (isOnNewPlace || contact->GetData(Contact::kName) == u"written") continue;
      EXPECT_EQ(contact->GetData(Contact::kGuid), u"entry " + contact->GetData(Contact::kMobileId));
    }
  }

  // The line is lost at each step in turn, until one is behind the last. `lose` says when.
  void Sweep(const std::function<void(std::size_t step)>& lose) {
    bool lost = true;
    for (std::size_t step = 0; lost; ++step) {
      SCOPED_TRACE(step);
      ASSERT_LT(step, 15u);
      Prepare();
      lose(step);
      Begin();
      lost = port.IsLost();
      CheckWhatWasSaid(lost);
      settings.With([](phonesim::Behaviour& b) { b.dropAfterRequests.reset(); });
      if (lost) FindThePhoneAgain();
      port.writesLeft = SIZE_MAX;
      ASSERT_EQ(session.statusPhase, kPhonePresent);
      EXPECT_FALSE(phone.InObexMode());
      Tick();
      EXPECT_EQ(PanelText(panel::kBattery), u"85%");
      session.ShowPage(kPhonebookPanel);
      CheckLinks();
    }
  }

 private:
  std::vector<Window*> dialogs_;
};

TEST_P(LostLineTest, IsToldAndCostsNoLink) {
  Connect({}, {});
  Sweep([this](std::size_t step) { port.writesLeft = step; });
  // An answer that never comes; that of an OBEX packet would be waited for until the end.
  if (GetParam().node == Text(u"ME")) return;
  Sweep([this](std::size_t step) {
    settings.With([&](phonesim::Behaviour& b) { b.dropAfterRequests = step + 1; });
  });
}

INSTANTIATE_TEST_SUITE_P(
    Phonebook, LostLineTest,
    testing::Values(
        Act{"ReadsSim", u"SM", "Refresh", text::error::kReadPhonebook},
        Act{"ReadsPhone", u"ME", "Refresh", text::error::kReadPhonebook},
        Act{"AddsToSim", u"SM", "New", text::error::kWriteContact, text::prompt::kContactAdded},
        Act{"AddsToPhone", u"ME", "New", text::error::kWriteContact, text::prompt::kContactAdded},
        Act{"EditsOnSim", u"SM", "Edit", text::error::kWriteContact, text::prompt::kContactChanged},
        Act{"EditsInPhone", u"ME", "Edit", text::error::kWriteContact,
            text::prompt::kContactChanged},
        Act{"DeletesOnSim", u"SM", "Delete", text::error::kDeleteContact,
            text::prompt::kContactsDeleted},
        Act{"DeletesInPhone", u"ME", "Delete", text::error::kDeleteContact,
            text::prompt::kContactsDeleted},
        Act{"CopiesToSim", u"ME", "copy_Phone_to_SIM", text::error::kCopyToSim,
            text::prompt::kCopiedToSim}),
    [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace tessarin
