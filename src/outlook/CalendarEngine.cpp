#include "outlook/CalendarEngine.h"

#include "core/TextIndex.h"
#include "outlook/CalendarSyncRows.h"
#include "outlook/ContactMapping.h"
#include "phonebook/ContactRecord.h"

namespace tessarin {

namespace {

using A = clsT610Appoint;

constexpr char16_t kParagraphBreak[] = u"\r\n\r\n";

}  // namespace

void CalendarEngine::SyncPhoneToOutlook(clsT610AppointList& list,
                                        clsOutAppointList& outlookAppoints, const ListView& pane) {
  Walk(pane, [&](const std::string& key) {
    const int position = list.FindExistingMobileID(MobileIdInAppointKey(key));
    if (IsPosition(position)) ToOutlook(list.item(position), outlookAppoints);
  });
}

void CalendarEngine::SyncOutlookToPhone(clsOutAppointList& outlookAppoints,
                                        clsT610AppointList& list, const ListView& pane) {
  Walk(pane, [&](const std::string& key) {
    const int position = outlookAppoints.FindExistingGUID(FromUtf8(key));
    if (IsPosition(position)) ToPhone(outlookAppoints.item(position), list);
  });
}

bool CalendarEngine::Replaces(const Side& source, const Side& destination) {
  const bool replaces =
      twoWay ? modDate::IsDateBefore(destination.time, source.time) : Ask(destination, source);
  if (!replaces) ++count_.leftAlone;
  return replaces;
}

// The placeholder of the first time takes the bracket behind it along, and puts it back.
bool CalendarEngine::Ask(const Side& replaced, const Side& replacing) {
  Text question = language_.getTSPromptStr(text::prompt::kReplaceEvent);
  question = Replace(question, u"###1", kParagraphBreak + OneLine(replaced.subject));
  question = Replace(question, u"###2)", replaced.time + u")" + kParagraphBreak);
  question = Replace(question, u"###3", kParagraphBreak + OneLine(replacing.subject));
  question = Replace(question, u"###4", replacing.time);
  return host_.MessageBox(question, MessageKind::Question, MessageButtons::OkCancel) == Answer::Ok;
}

// An entry whose item cannot be read is not gone from there. What another program changed while the
// question stood was seen by nobody, and stays.
void CalendarEngine::ToOutlook(clsT610Appoint& entry, clsOutAppointList& outlookAppoints) {
  const Text& guid = entry.GetData(A::kGuid);
  const int found = outlookAppoints.FindExistingGUID(guid);
  if (!IsPosition(found)) {
    if (outlookAppoints.IsSkipped(guid)) {
      ++count_.failed;
      return;
    }
    outlookAppoints.AddOutlookAppoint(entry);
    ++count_.added;
    return;
  }
  const OutlookFacts old = FactsOf(outlookAppoints.item(found));
  const Text oldTime = modDate::FormatDateText(old.LastModificationTime);
  if (!Replaces({entry.GetData(A::kSubject), entry.GetData(A::kModified)},
                {old.Subject, oldTime})) {
    return;
  }
  if (ModifiedText(*outlookAppoints.item(found).AItem) != oldTime) {
    ++count_.leftAlone;
    return;
  }
  outlookAppoints.UpdateOutlookAppoint(entry, found);
  ++count_.updated;
}

// The list's own copy first, the phone second. A new entry that the phone refused leaves the list
// again; a changed one stays, and the next reading of the phone sees that the two differ.
void CalendarEngine::ToPhone(clsOutAppoint& appoint, clsT610AppointList& list) {
  const OutlookFacts facts = FactsOf(appoint);
  const int found = list.FindExistingGUID(facts.EntryID);
  if (!IsPosition(found)) {
    AddToPhone(facts, list);
    return;
  }
  clsT610Appoint& old = list.item(found);
  if (!Replaces({facts.Subject, modDate::FormatDateText(facts.LastModificationTime)},
                {old.GetData(A::kSubject), old.GetData(A::kModified)})) {
    return;
  }
  list.UpdateOutlookAppoint(facts, found, Text(old.GetData(A::kMobileId)));
  bool written = false;
  needs_.writeToPhone(old, written);
  if (written) CutToPhone(old);
  ++(written ? count_.updated : count_.failed);
}

void CalendarEngine::AddToPhone(const OutlookFacts& facts, clsT610AppointList& list) {
  list.AddOutlookAppoint(facts, u"-1");
  const int last = list.Count();
  Text result;
  bool written = false;
  try {
    result = needs_.writeToPhone(list.item(last), written);
  } catch (...) {
    list.Remove(last);  // the program ends while the phone is silent: nobody knows what it took
    throw;
  }
  ++(written ? count_.added : count_.failed);
  if (result == u"-1") {
    list.Remove(last);
    return;
  }
  list.item(last).LetData(result, A::kMobileId);
  if (written) CutToPhone(list.item(last));
}

}  // namespace tessarin
