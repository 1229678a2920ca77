#include <gtest/gtest.h>

#include <optional>

#include "core/TextIndex.h"
#include "phonebook/NumberLookup.h"
#include "phonebook/frmAddGroup.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/TempFolder.h"

namespace tessarin {
namespace {

namespace words = text::interface_;

std::shared_ptr<clsT610Contact> Contact(const Text& id, const Text& name,
                                        const std::vector<Text>& numbers) {
  auto contact = std::make_shared<clsT610Contact>();
  contact->LetData(id, 1);
  contact->LetData(name, 3);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    contact->LetData(numbers[i], 4 + static_cast<int>(i));
  }
  return contact;
}

class GroupTest : public testing::Test {
 protected:
  GroupTest() { language.readLangFile(0); }
  ~GroupTest() override { window.Unload(); }

  static clsT610ContactList Contacts() {
    clsT610ContactList contacts;
    contacts.Add(Contact(u"s1", u"Ann", {u"111"}));
    contacts.Add(Contact(u"p00", u"Bob", {u"221", u"", u"223", u"", u"225"}));
    contacts.Add(Contact(u"", u"Cy (at sea)", {}));
    contacts.Add(Contact(u"p01", u"Bob", {u"991"}));
    return contacts;
  }
  // The rows of a list, one a word.
  static std::string Rows(const ListView& list) {
    std::string rows;
    for (const ListRow& row : list.rows()) {
      rows += ToUtf8(row.cells[0] + u"=" + row.cells[1]) + " ";
    }
    return rows;
  }
  void Select(ListView& list, int row) { list.SelectByUser({row}, row); }
  void Press(const char* button) { ScriptedHost::Press(window, button); }
  void Open(int row) {
    Select(window.ListView1, row);
    window.ListView1.activated();
  }
  Text Word(int index) const { return language.getTSInterfaceStr(index); }

  TempFolder folder;
  ScriptedHost host;
  modFile files{folder.Path(), TESSARIN_SHARE};
  Language language{files};
  std::optional<clsT610ContactList> contacts = Contacts();
  struct Owner : Window {
    using Window::Window;
    TextBox Text1{*this, "Text1"};
  } owner{host, "owner"};
  frmAddGroup window{host, language, *contacts, owner.Text1};
};

TEST_F(GroupTest, AddsNumbersOfBothMemoriesToTheRecipients) {
  window.Show(Modality::Modeless);
  const std::string hint = ToUtf8(Word(words::kGroupDetailsHint));
  EXPECT_EQ(Rows(window.ListView1),
            "Ann=111 Bob=" + hint + " Cy (at sea)=" + hint + " Bob=" + hint + " ");
  EXPECT_FALSE(window.Command3.enabled);
  Select(window.ListView1, 1);
  EXPECT_FALSE(window.Command3.enabled) << "it has to be opened first";
  Select(window.ListView1, 0);
  Press("Command3");
  Open(0);
  EXPECT_FALSE(window.ListView1.visible);
  EXPECT_EQ(Rows(window.ListView3), "Home=221 Mobile=223 Other=225 ");
  EXPECT_EQ(window.ListView3.columns()[0].heading, Word(words::kType));
  Select(window.ListView3, 1);
  Press("Command3");
  Press("Command3");  // the row behind it is current now
  EXPECT_EQ(Rows(window.ListView3), "Home=221 ");
  EXPECT_EQ(Rows(window.ListView2), "Ann=111 Bob(Mobile)=223 Bob(Other)=225 ");
  Press("Command5");
  EXPECT_TRUE(window.ListView1.visible);
  Open(0);
  EXPECT_EQ(Rows(window.ListView3), "Home=221 ") << "no number twice";
  Press("Command1");
  EXPECT_FALSE(window.IsLoaded());
  EXPECT_EQ(owner.Text1.text(), u"Ann<111>;Bob(Mobile)<223>;Bob(Other)<225>");
}

TEST_F(GroupTest, GivesRowsBackToWhereTheyCameFrom) {
  window.Show(Modality::Modeless);
  Select(window.ListView1, 0);
  Press("Command3");
  Open(0);
  Select(window.ListView3, 0);
  Press("Command3");
  Select(window.ListView2, 1);
  Press("Command4");
  EXPECT_EQ(Rows(window.ListView3), "Mobile=223 Other=225 Home=221 ");
  Press("Command4");  // Ann, of whom no number is showing
  EXPECT_EQ(Rows(window.ListView2), "");
  EXPECT_FALSE(window.Command4.enabled);
  Press("Command5");
  EXPECT_TRUE(Rows(window.ListView1).ends_with("Ann=111 "));
  // A number whose contact is not showing any more comes again when that is opened.
  Open(0);
  Select(window.ListView3, 0);
  Press("Command3");
  Press("Command5");
  Select(window.ListView2, 0);
  Press("Command4");
  EXPECT_EQ(window.ListView1.Count(), 4);
  Open(0);
  EXPECT_EQ(window.ListView3.Count(), 3);
  Press("Command5");
  Open(1);
  EXPECT_EQ(window.ListView3.Count(), 0) << "a contact without numbers";
}

TEST_F(GroupTest, ANumberGoesBackOnlyToItsOwnContact) {
  window.Show(Modality::Modeless);
  Open(1);
  Select(window.ListView3, 0);
  Press("Command3");
  Press("Command5");
  Open(3);  // another Bob
  Select(window.ListView2, 0);
  Press("Command4");
  EXPECT_EQ(Rows(window.ListView3), "Home=991 ");
  Press("Command5");
  Open(1);
  EXPECT_EQ(window.ListView3.Count(), 3);
}

// The list goes when a phone that was lost comes back.
TEST_F(GroupTest, OutlivesTheListThatItWasMadeOf) {
  window.Show(Modality::Modeless);
  contacts.reset();
  Open(1);
  EXPECT_EQ(Rows(window.ListView3), "Home=221 Mobile=223 Other=225 ");
}

TEST_F(GroupTest, TheRecipientsThatStandStay) {
  owner.Text1.text = u"+49";
  window.Show(Modality::Modeless);
  Press("Command1");
  EXPECT_EQ(owner.Text1.text(), u"+49") << "nothing chosen";
  for (const char* button : {"Command2", "Command1"}) {
    window.Show(Modality::Modeless);
    Select(window.ListView1, 0);
    Press("Command3");
    Press(button);
    EXPECT_EQ(owner.Text1.text(), button == std::string("Command2") ? u"+49" : u"+49;Ann<111>");
  }
}

TEST(NumberLookup, KnowsANumberHoweverItIsWritten) {
  clsT610ContactList contacts;
  contacts.Add(Contact(u"s1", u"Ann", {u"0170 1234567"}));
  contacts.Add(Contact(u"p1", u"Bob", {u"112", u"", u"", u"", u"+49 (30) 7654321"}));
  contacts.Add(Contact(u"p2", u"Cy", {u"+44 7654321"}));
  contacts.Add(Contact(u"p3", u"Dee", {u"", u"call 7654321", u"447654321"}));
  const struct {
    const char16_t* number;
    const char16_t* name;
  } cases[] = {
      {u"491701234567", u"Ann"},
      {u"+491701234567", u"Ann"},
      {u"01701234567", u"Ann"},
      {u"112", u"Bob"},
      {u"49112", u""},
      {u"0307654321", u"Bob"},
      {u"447654321", u"Cy"},
      {u"7654321", u""},  // two whose numbers end so
      {u"0049307654321", u"Bob"},
      {u"Info", u""},
      {u"", u""},
      {u"000", u""},
      {u"1234567", u"Ann"},
  };
  for (const auto& c : cases) EXPECT_EQ(NameOf(contacts, c.number), c.name) << ToUtf8(c.number);
}

}  // namespace
}  // namespace tessarin
