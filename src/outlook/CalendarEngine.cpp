#include "outlook/CalendarEngine.h"

#include "core/TextIndex.h"
#include "outlook/CalendarSyncRows.h"

namespace tessarin {

namespace {

using A = clsT610Appoint;

constexpr char16_t kParagraphBreak[] = u"\r\n\r\n";

}  // namespace

SyncCount CalendarEngine::SyncPhoneToOutlook(clsT610AppointList& list,
                                             clsOutAppointList& outlookAppoints,
                                             const ListView& pane) {
  count_ = {};
  ForEachRow(RowsToSync(pane, twoWay, needs_.host, needs_.language), needs_.progress,
             [&](const std::string& key) {
               const int position = list.FindExistingMobileID(MobileIdInAppointKey(key));
               if (IsPosition(position)) ToOutlook(list.item(position), outlookAppoints);
             });
  return count_;
}

SyncCount CalendarEngine::SyncOutlookToPhone(clsOutAppointList& outlookAppoints,
                                             clsT610AppointList& list, const ListView& pane) {
  count_ = {};
  ForEachRow(RowsToSync(pane, twoWay, needs_.host, needs_.language), needs_.progress,
             [&](const std::string& key) {
               const int position = outlookAppoints.FindExistingGUID(FromUtf8(key));
               if (IsPosition(position)) ToPhone(outlookAppoints.item(position), list);
             });
  return count_;
}

bool CalendarEngine::Replaces(const Side& source, const Side& destination) {
  const bool replaces =
      twoWay ? modDate::IsDateBefore(destination.time, source.time) : Ask(destination, source);
  if (!replaces) ++count_.leftAlone;
  return replaces;
}

// The placeholder of the first time takes the bracket behind it along, and puts it back.
bool CalendarEngine::Ask(const Side& replaced, const Side& replacing) {
  Text question = needs_.language.getTSPromptStr(text::prompt::kReplaceEvent);
  question = Replace(question, u"###1", kParagraphBreak + replaced.subject);
  question = Replace(question, u"###2)", replaced.time + u")" + kParagraphBreak);
  question = Replace(question, u"###3", kParagraphBreak + replacing.subject);
  question = Replace(question, u"###4", replacing.time);
  return needs_.host.MessageBox(question, MessageKind::Question, MessageButtons::OkCancel) ==
         Answer::Ok;
}

void CalendarEngine::ToOutlook(clsT610Appoint& entry, clsOutAppointList& outlookAppoints) {
  const int found = outlookAppoints.FindExistingGUID(entry.GetData(A::kGuid));
  if (!IsPosition(found)) {
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
  outlookAppoints.UpdateOutlookAppoint(entry, found);
  ++count_.updated;
}

// The list's own copy first, the phone second. A new entry that the phone refused leaves the list
// again; a changed one stays, and the next reading of the phone sees that the two differ.
void CalendarEngine::ToPhone(clsOutAppoint& appoint, clsT610AppointList& list) {
  const OutlookFacts facts = FactsOf(appoint);
  const int found = list.FindExistingGUID(facts.EntryID);
  if (!IsPosition(found)) {
    list.AddOutlookAppoint(facts, u"-1");
    const Text result = needs_.writeToPhone(list.item(list.Count()));
    if (result == u"-1") {
      list.Remove(list.Count());
    } else {
      list.item(list.Count()).LetData(result, A::kMobileId);
    }
    ++(result == u"-1" || result.empty() ? count_.failed : count_.added);
    return;
  }
  clsT610Appoint& old = list.item(found);
  if (!Replaces({facts.Subject, modDate::FormatDateText(facts.LastModificationTime)},
                {old.GetData(A::kSubject), old.GetData(A::kModified)})) {
    return;
  }
  list.UpdateOutlookAppoint(facts, found, Text(old.GetData(A::kMobileId)));
  ++(needs_.writeToPhone(old) == u"-1" ? count_.failed : count_.updated);
}

}  // namespace tessarin
