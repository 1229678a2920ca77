#pragma once

// The calendar synchronisation: the phone's entries on the left, Outlook's on the right.

#include <functional>
#include <memory>

#include "calendar/CalendarLists.h"
#include "outlook/CalendarEngine.h"
#include "outlook/SyncDialog.h"

namespace tessarin {

class frmCalendarSync : public SyncDialog, public SessionPart {
 public:
  // All must outlive the window. Puts its job and its worker into the tables.
  struct Needs {
    TessarinMenu& session;
    frmSplashTransmission& busyWindow;
    CalendarLists& lists;
    outlook::Automation& automation;
    std::function<Text(clsT610Appoint& entry, bool& written)> writeToPhone;
  };
  explicit frmCalendarSync(Needs needs);

  Label lblMobile{*this, "lblMobile"};
  Label lblOutlook{*this, "lblOutlook"};

  // The rows are of that connection: nothing is left to do with them but to go back.
  void PhoneLost() override;

 protected:
  void FormLoad() override;
  void FormUnload() override;
  bool MayRun() const override;
  void Run() override { CalendarSync(); }
  bool AskTwoWay() override;
  void SetTwoWay(bool twoWay) override { engine_.twoWay = twoWay; }
  void ColumnClicked(int pane, int column) override;

 private:
  void CalendarSync();
  void EnableControls(bool enabled);
  // False when a fault ended it.
  bool PhoneToOutlook();
  void OutlookToPhone();
  void FillAppointRows();
  void FillOutlookAppointRows();

  Needs needs_;
  CalendarEngine engine_;
  std::unique_ptr<clsOutAppointList> outlookAppoints_;
  bool phoneWasLost_ = false;
};

}  // namespace tessarin
