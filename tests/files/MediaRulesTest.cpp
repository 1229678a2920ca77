#include "files/MediaRules.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tessarin {
namespace {

// Every kind of file that any page takes from any model.
const std::vector<Text> kAll = {u"3gp", u"amr", u"bmp", u"emy", u"gif", u"imy", u"jpg",
                                u"m4a", u"mid", u"mp3", u"mp4", u"png", u"svg", u"thm",
                                u"tpl", u"wav", u"txt", u"jar", u"",    u"wbmp"};

Text Offered(MediaKind page, TextView model) {
  Text offered;
  std::vector<Text> extensions = kAll;
  std::sort(extensions.begin(), extensions.end());
  for (const Text& extension : extensions) {
    if (IsUploadOffered(page, model, u"a.b." + extension)) offered += extension + u" ";
  }
  return offered;
}

TEST(MediaRules, OfferTheFilesThatEachModelTakes) {
  constexpr char16_t kPictures[] = u"bmp gif jpg png wbmp ";
  constexpr char16_t kMovies[] = u"3gp amr mid mp3 mp4 wav ";
  const struct {
    MediaKind page;
    TextView model;
    TextView offered;
  } cases[] = {
      {MediaKind::Photo, u"T610", u"thm "},
      {MediaKind::MMS, u"T610", u"tpl "},
      {MediaKind::Ringtone, u"T610", u"mid mp3 "},
      {MediaKind::Ringtone, u"F500i", u"mid mp3 "},
      {MediaKind::Ringtone, u"F500 K700", u"mid mp3 "},
      {MediaKind::Ringtone, u"the z1010", u"amr mid mp3 wav "},
      {MediaKind::Ringtone, u"K500i", u"amr mid mp3 wav "},
      {MediaKind::Ringtone, u"K700i", u"amr mid mp3 wav "},
      {MediaKind::Ringtone, u"S700i", u"amr emy imy mid mp3 "},
      {MediaKind::Logo, u"Z600", u""},
      {MediaKind::Logo, u"xz600y S700", u""},
      {MediaKind::Logo, u"S700", u"bmp gif jpg png svg wbmp "},
      {MediaKind::Logo, u"T610", kPictures},
      {MediaKind::Logo, u"", kPictures},
      {MediaKind::Movie, u"W500", kMovies},
      {MediaKind::Movie, u"S700 K500", kMovies},
      {MediaKind::Movie, u"Z1010 K700", kMovies},
      {MediaKind::Movie, u"Z1010 S700", u"3gp amr m4a mp3 mp4 wav "},
      {MediaKind::Movie, u"Z1010", u"3gp mp4 "},
      {MediaKind::Movie, u"T630", kMovies},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Offered(c.page, c.model), c.offered)
        << static_cast<int>(c.page) << " " << ToUtf8(c.model);
  }
}

TEST(MediaRules, LookAtWhatStandsBehindTheLastPoint) {
  EXPECT_TRUE(IsUploadOffered(MediaKind::Ringtone, u"T610", u"SONG.MID"));
  EXPECT_TRUE(IsUploadOffered(MediaKind::Ringtone, u"T610", u".mid"));
  EXPECT_FALSE(IsUploadOffered(MediaKind::Ringtone, u"T610", u"a.mid.txt"));
  EXPECT_FALSE(IsUploadOffered(MediaKind::Ringtone, u"T610", u"mid"));
  EXPECT_FALSE(IsUploadOffered(MediaKind::Ringtone, u"T610", u"mid."));
  EXPECT_TRUE(IsUploadOffered(MediaKind::File, u"T610", u"no point at all"));
  EXPECT_FALSE(IsUploadOffered(MediaKind::None, u"T610", u"a.mid"));
}

}  // namespace
}  // namespace tessarin
