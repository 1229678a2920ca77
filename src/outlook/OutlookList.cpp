#include "outlook/OutlookList.h"

#include "core/TextIndex.h"

namespace tessarin {

OutlookFolder::OutlookFolder(const OutlookNeeds& needs, int folder) : needs_(needs) {
  try {
    application_ = needs.automation.CreateObject(u"Outlook.Application");
    nameSpace_ = application_->GetNamespace(u"MAPI");
    folder_ = nameSpace_->GetDefaultFolder(folder);
  } catch (const Fault&) {
    needs.host.MessageBox(u"Error 625: " +
                          needs.language.getTSErrStr(text::error::kOutlookMissing));
  }
}

void OutlookFolder::ReportLoad() {
  needs_.host.MessageBox(u"Error: 624 " + needs_.language.getTSErrStr(text::error::kLoadOutlook),
                         MessageKind::Error, MessageButtons::OkCancel, u"Application Error");
}

}  // namespace tessarin
