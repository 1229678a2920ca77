#pragma once

// The calendar synchronisation: the phone's entries on the left, Outlook's on the right.

#include <functional>
#include <memory>

#include "calendar/CalendarLists.h"
#include "outlook/CalendarEngine.h"
#include "outlook/SyncDialog.h"

namespace tessarin {

class frmCalendarSync : public SyncDialog {
 public:
  // All must outlive the window. Puts its job and its worker into the tables.
  struct Needs {
    TessarinMenu& session;
    frmSplashTransmission& busyWindow;
    CalendarLists& lists;
    outlook::Automation& automation;
    std::function<Text(clsT610Appoint& entry)> writeToPhone;
  };
  explicit frmCalendarSync(Needs needs);

  Label lblMobile{*this, "lblMobile"};
  Label lblOutlook{*this, "lblOutlook"};

 protected:
  void FormLoad() override;
  void FormUnload() override;
  void Run() override { CalendarSync(); }
  bool AskTwoWay() override;
  void SetTwoWay(bool twoWay) override { engine_.twoWay = twoWay; }
  void ColumnClicked(int pane, int column) override;

 private:
  void CalendarSync();
  void EnableControls(bool enabled);
  void PhoneToOutlook();
  void OutlookToPhone();
  void FillAppointRows();
  void FillOutlookAppointRows();

  Needs needs_;
  CalendarEngine engine_;
  std::unique_ptr<clsOutAppointList> outlookAppoints_;
};

}  // namespace tessarin
