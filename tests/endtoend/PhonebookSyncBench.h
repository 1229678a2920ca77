#pragma once

// The contacts' synchronisation window through the whole program, with four contacts on the phone.

#include "codecs/ListFile.h"
#include "files/frmOverwrite.h"
#include "tests/endtoend/SyncEndToEnd.h"

namespace tessarin {
inline constexpr char kPhone[] = "Phone", kOwnBook[] = "Tessarin", kOutlook[] = "Outlook";
inline constexpr char kCarol[] =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:carol\r\nFN:Carol Diaz\r\nN:Diaz;Carol;;;\r\n"
    "TEL;TYPE=CELL:+34600\r\nTEL;TYPE=PAGER:5\r\nX-PET;KIND=dog:Rex\r\nEND:VCARD\r\n";

class PhonebookSyncBench : public SyncEndToEnd {
 protected:
  template <class Use>
  auto AtThePhone(Use use) {
    return phone.GetMemory().With(use);
  }
  PhonebookSyncBench() : SyncEndToEnd("Contacts") {
    folder.Write(kBook, "");
    AtThePhone([](phonesim::Books& books) {
      books.sim.Fill({{1, {"Anna", "+49176"}}, {4, {"Žofie", "2"}}});
      books.contacts.Fill(
          {{{"given", "芳"}, {"family", "王"}, {"cell", "+86138"}, {"email1", "f@x.example"}},
           {{"given", "Ben"}, {"family", "Dale"}, {"home", "1"}, {"work", "2"}}});
    });
    Behave([](phonesim::Behaviour& b) { b.sim.last = 20; });
    AnswerAsking("Command1");
  }

  // The cards, one a line: names, mobile and work numbers.
  std::string Cards() {
    return AtThePhone([](const phonesim::Books& books) {
      std::string cards;
      for (const auto& entry : books.contacts.Entries()) {
        cards += phonesim::Field(entry.fields, "given");
        // What we write is all in the place of the given name.
        if (!phonesim::Field(entry.fields, "family").empty())
          cards += " " + phonesim::Field(entry.fields, "family");
        cards += "|" + phonesim::Field(entry.fields, "cell") + "|" +
                 phonesim::Field(entry.fields, "work") + "\n";
      }
      return cards;
    });
  }
  std::uint32_t Counter() {
    return AtThePhone([](const phonesim::Books& books) { return books.contacts.ChangeCounter(); });
  }
  // Somebody with the phone in hand changes a number.
  void SetWorkNumber(const std::string& family, const std::string& number) {
    AtThePhone([&](phonesim::Books& books) {
      for (const auto& entry : books.contacts.Entries()) {
        if (phonesim::Field(entry.fields, "family") != family) continue;
        auto fields = entry.fields;
        fields["work"] = number;
        return books.contacts.Replace(entry.luid, fields);
      }
      return false;
    });
  }

  bool OpensPhonebook() {
    return StartsAndConnects() && Does([this] { session.Toolbar2.clicked("Phonebook"); });
  }
  // Both memories, as the user would on the page.
  void ReadAgain() {
    for (const char16_t* node : {u"SM", u"ME"}) {
      Does([&] { session.tvwPhonePhonebook.SelectByUser(node); });
      Does([&] { session.Toolbar1.clicked("Refresh"); });
    }
  }
  void Between(const char* left, const char* right,
               const std::function<void(frmPhonebookSync&)>& act) {
    InWindow<frmPhonebookSync>(program.phonebookSync(), [&](frmPhonebookSync& sync) {
      Choose(sync.cboLocation[0], left);
      Choose(sync.cboLocation[1], right);
      act(sync);
    });
  }
  void Choose(ComboBox& box, const std::string& place) {
    host.RunEvent([&] {
      for (int i = 0; i < box.Count(); ++i) {
        if (ToUtf8(box.Item(i)) == place) box.Select(i);
      }
      box.clicked();
    });
  }
  void AnswerOverwrite(const char* button) {
    host.WhenShown("frmOverwrite", [this, button](Window& window) {
      asked = ToUtf8(static_cast<frmOverwrite&>(window).lblOverwrite[1].text());
      ScriptedHost::Press(window, button);
    });
  }
  // The lines of a list's file, by name.
  std::map<Text, std::vector<Text>> Saved(const char* file) const {
    std::map<Text, std::vector<Text>> saved;
    for (const auto& line : ListFile::ReadLines(folder.Path() / "app/Pb" / file)) {
      auto fields = ListFile::DecodeLine(line);
      saved[fields.at(clsT610Contact::kName)] = fields;
    }
    return saved;
  }

  std::string asked;  // the contact that would be replaced
};

}  // namespace tessarin
