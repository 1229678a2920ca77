#include "outlook/clsOutAppointList.h"

#include "outlook/ContactMapping.h"

namespace tessarin {

void clsOutAppointList::LoadOutlookAppoint() {
  Load([this](const std::shared_ptr<outlook::Item>& item) {
    if (item->TypeName() != u"AppointmentItem") return;
    auto appoint = std::make_shared<clsOutAppoint>(automation());
    appoint->AItem = std::dynamic_pointer_cast<outlook::AppointmentItem>(item);
    Add(std::move(appoint));
  });
}

void clsOutAppointList::UpdateOutlookAppoint(clsT610Appoint& appoint, int index) {
  item(index).UpdateByT610Appoint(appoint);
  appoint.LetData(ModifiedText(*item(index).AItem), clsT610Appoint::kModified);
}

void clsOutAppointList::AddOutlookAppoint(clsT610Appoint& appoint) {
  auto added = std::make_shared<clsOutAppoint>(automation());
  added->UpdateByT610Appoint(appoint);
  Add(added);
  appoint.LetData(added->AItem->EntryID(), clsT610Appoint::kGuid);
  appoint.LetData(ModifiedText(*added->AItem), clsT610Appoint::kModified);
}

}  // namespace tessarin
