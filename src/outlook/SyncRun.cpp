#include "outlook/SyncRun.h"

#include <algorithm>

#include "codecs/Faults.h"
#include "core/TextIndex.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

constexpr auto kBetweenPaintings = std::chrono::milliseconds(20);

}  // namespace

Text SummaryOf(const Language& language, const Text& side, const SyncCount& count) {
  return language.Filled(words::kSyncSummary, {side, ToText(count.added), ToText(count.updated),
                                               ToText(count.leftAlone), ToText(count.failed)});
}

std::vector<std::string> RowsToSync(const ListView& pane, bool twoWay, WindowHost& host,
                                    const Language& language) {
  std::vector<std::string> keys;
  for (const ListRow& row : pane.rows()) {
    if (twoWay || row.selected) keys.push_back(row.key);
  }
  if (keys.empty() && !twoWay) {
    host.MessageBox(language.getTSErrStr(text::error::kNothingSelected), MessageKind::Error);
  }
  return keys;
}

void SyncProgress::Begin() {
  bar_.value = 0;
  label_.text = u"";
  bar_.visible = true;
  label_.visible = true;
}

// Painting costs more than comparing a row, so not every row is painted.
void SyncProgress::Row(int row, int rows) {
  bar_.maximum = rows;
  bar_.value = row;
  label_.text = language_.Filled(words::kSyncRow, {ToText(row), ToText(rows)});
  label_.accessibleName = label_.text();
  const auto now = std::chrono::steady_clock::now();
  if (row < rows && now - painted_ < kBetweenPaintings) return;
  painted_ = now;
  dialog_.Refresh();
}

void SyncProgress::End() {
  bar_.visible = false;
  label_.visible = false;
}

void SyncEngine::Walk(const ListView& pane,
                      const std::function<void(const std::string& key)>& each) {
  count_ = {};
  const auto keys = RowsToSync(pane, twoWay, host_, language_);
  for (std::size_t i = 0; i < keys.size(); ++i) {
    progress_.Row(static_cast<int>(i) + 1, static_cast<int>(keys.size()));
    host_.YieldToScreen();  // the other windows are painted between two rows
    try {
      each(keys[i]);
    } catch (const ConversionError&) {
      ++count_.failed;
    }
  }
}

}  // namespace tessarin
