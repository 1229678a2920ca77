#include "files/MediaRules.h"

#include <algorithm>
#include <vector>

namespace tessarin {

namespace {

struct Rule {
  MediaKind page;
  std::vector<TextView> models;  // words of which the model holds one; none: every model
  std::vector<TextView> extensions;
};

// The first rule of a page that fits the model is the one that counts. Movie pages take sounds as
// well: the phone keeps both in the folders that the page shows.
const std::vector<Rule>& Rules() {
  static const std::vector<Rule> rules = {
      {MediaKind::Photo, {}, {u"thm"}},
      {MediaKind::MMS, {}, {u"tpl"}},
      {MediaKind::Ringtone, {u"F500"}, {u"mid", u"mp3"}},
      {MediaKind::Ringtone, {u"Z1010", u"K500", u"K700"}, {u"mid", u"mp3", u"amr", u"wav"}},
      {MediaKind::Ringtone, {u"S700"}, {u"mid", u"mp3", u"amr", u"imy", u"emy"}},
      {MediaKind::Ringtone, {}, {u"mid", u"mp3"}},
      {MediaKind::Logo, {u"Z600"}, {}},
      {MediaKind::Logo, {u"S700"}, {u"jpg", u"bmp", u"gif", u"png", u"wbmp", u"svg"}},
      {MediaKind::Logo, {}, {u"jpg", u"bmp", u"gif", u"png", u"wbmp"}},
      {MediaKind::Movie,
       {u"W500", u"K500", u"K700"},
       {u"mp4", u"3gp", u"amr", u"mp3", u"wav", u"mid"}},
      {MediaKind::Movie, {u"S700"}, {u"mp4", u"3gp", u"amr", u"mp3", u"wav", u"m4a"}},
      {MediaKind::Movie, {u"Z1010"}, {u"mp4", u"3gp"}},
      {MediaKind::Movie, {}, {u"mp4", u"3gp", u"amr", u"mp3", u"wav", u"mid"}},
  };
  return rules;
}

bool Fits(const Rule& rule, MediaKind page, TextView model) {
  return rule.page == page &&
         (rule.models.empty() ||
          std::any_of(rule.models.begin(), rule.models.end(),
                      [model](TextView word) { return ContainsIgnoringCase(model, word); }));
}

}  // namespace

bool IsUploadOffered(MediaKind page, TextView phoneModel, TextView fileName) {
  if (page == MediaKind::File) return true;
  const std::size_t point = fileName.rfind(u'.');
  if (point == TextView::npos) return false;
  const Text extension = ToLower(fileName.substr(point + 1));
  for (const Rule& rule : Rules()) {
    if (!Fits(rule, page, phoneModel)) continue;
    return std::find(rule.extensions.begin(), rule.extensions.end(), extension) !=
           rule.extensions.end();
  }
  return false;
}

}  // namespace tessarin
