#include "files/FileImages.h"

#include <map>

namespace tessarin {

std::string ImageOfType(std::string_view type) {
  for (const char* kind : {"audio", "image", "video", "text"}) {
    if (type.starts_with(std::string(kind) + "/")) return "file-" + std::string(kind);
  }
  return "file";
}

std::string ImageOfExtension(TextView extension) {
  static const std::map<Text, const char*> images = {
      {u"mid", "file-audio"},  {u"mp3", "file-audio"}, {u"amr", "file-audio"},
      {u"wav", "file-audio"},  {u"imy", "file-audio"}, {u"emy", "file-audio"},
      {u"m4a", "file-audio"},  {u"jpg", "file-image"}, {u"gif", "file-image"},
      {u"bmp", "file-image"},  {u"png", "file-image"}, {u"svg", "file-image"},
      {u"wbmp", "file-image"}, {u"3gp", "file-video"}, {u"mp4", "file-video"},
      {u"txt", "file-text"},   {u"vcf", "file-text"},  {u"vcs", "file-text"},
  };
  const auto image = images.find(ToLower(extension));
  return image == images.end() ? "file" : image->second;
}

}  // namespace tessarin
