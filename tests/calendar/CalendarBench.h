#pragma once

// The Calendar page on the session's bench, with a phone whose calendar a test fills.

#include "calendar/CalendarPage.h"
#include "tests/support/SessionBench.h"

namespace tessarin {

class CalendarBench : public SessionBench {
 protected:
  CalendarBench() {
    session.AddPart(lists);
    session.AddPage(page);
    page.SetSync([this] { ++syncs; });
    clock.now = modDate::PackDate(2004, 5, 15) + modDate::PackTime(12, 0, 0);
    StartAndConnect();
  }

  using Fields = phonesim::Fields;

  void Fill(const std::vector<Fields>& events) {
    phone.GetMemory().With([&](phonesim::Books& books) { books.events.Fill(events); });
  }
  std::vector<phonesim::Book::Entry> Events() {
    return phone.GetMemory().With([](phonesim::Books& books) { return books.events.Entries(); });
  }
  // What the phone holds of an entry, in the order of its calendar.
  std::string OnPhone(std::size_t entry, const char* field) {
    return phonesim::Field(Events().at(entry).fields, field);
  }
  void Refuse(phonesim::ObexOperation operation, const phonesim::ObexRefusal& refusal) {
    settings.With([&](auto& behaviour) { behaviour.refusedOperations[operation] = refusal; });
  }

  // Three events, a task between them: luid 000200000001 to 4, in the zone one hour east.
  void FillSample() {
    Fill({{{"kind", "EVENT"},
           {"start", "20040515T080000Z"},
           {"end", "20040515T093000Z"},
           {"alarm", "20040515T074500Z"},
           {"summary", "Zahnärztin"},
           {"location", "Köln"},
           {"category", "TRAVEL"}},
          {{"kind", "TASK"}, {"due", "20040515T120000"}, {"summary", "Milk"}},
          {{"kind", "EVENT"},
           {"start", "20040531T223000Z"},
           {"end", "20040601T003000Z"},
           {"summary", "Über\nMitternacht"},
           {"category", "DATE"}},
          {{"kind", "EVENT"},
           {"start", "20040515T060000Z"},
           {"end", "20040515T070000Z"},
           {"summary", "Lauf"},
           {"category", "MISCELLANEOUS"}}});
  }

  // A click, and the tick that does what it asked for.
  void Open() {
    host.RunEvent([this] { session.Toolbar2.clicked("Calendar"); });
    Tick(session.Timer1);
  }
  void ChooseView(CalendarView view) {
    session.ViewMode.Select(static_cast<int>(view));
    host.RunEvent([this] { session.ViewMode.clicked(); });
  }
  void Press(const char* action) {
    host.RunEvent([&] { session.Toolbar1.clicked(action); });
  }
  void TickRow(Grid& grid, int row, ListColumns columns) {
    host.RunEvent([&] { grid.SelectByUser(row, columns.tick); });
  }
  bool CanPress(const char* action) const {
    const auto* button = session.Toolbar1.Find(action);
    return button != nullptr && button->enabled;
  }
  // The row's texts, those of the columns that can be seen.
  static std::string Row(const Grid& grid, int row) {
    std::string texts;
    for (int column = 0; column < grid.Columns(); ++column) {
      if (grid.ColumnWidth(column) == Grid::kHidden) continue;
      texts += ToUtf8(grid.Cell(row, column).text) + "|";
    }
    return texts;
  }
  Text LastBox() const { return host.boxes.empty() ? Text() : host.boxes.back().text; }
  Text Error(int index) const { return language.getTSErrStr(index); }
  Text Prompt(int index) const { return language.getTSPromptStr(index); }

  frmSplashTransmission busyWindow{session};
  CalendarLists lists{files, language, clock};
  CalendarPage page{session, link, busyWindow, lists};
  int syncs = 0;
};

}  // namespace tessarin
