#include "files/ExternalTools.h"

#include "codecs/Faults.h"
#include "controls/WindowHost.h"
#include "core/TextIndex.h"
#include "link/FileService.h"

namespace tessarin {

namespace fs = std::filesystem;

namespace {

constexpr char kPictureDesk[] = "PictureDesk";

Text Lines(const std::vector<fs::path>& places) {
  Text lines;
  for (const auto& place : places) {
    if (!lines.empty()) lines += u"\n";
    lines += FromUtf8(place.string());
  }
  return lines;
}

// Where that picture can be written: at `wanted`, or, where another one stands that the user may
// have changed there, beside it under a name such as "Dusk (2).gif".
fs::path PlaceFor(const fs::path& wanted, std::string_view picture) {
  fs::path place = wanted;
  for (int number = 2; modFile::FileExists(place) && modFile::ReadWholeFile(place) != picture;
       ++number) {
    place.replace_filename(wanted.stem().string() + " (" + std::to_string(number) + ")" +
                           wanted.extension().string());
  }
  return place;
}

}  // namespace

void ExternalTools::Start(const std::string& tool,
                          const std::vector<std::string>& arguments) const {
  const ToolStart start = starter_.Start(tool, arguments);
  if (start.result == ToolStart::Result::Started) return;
  const bool missing = start.result == ToolStart::Result::Missing;
  const Text& told = session_.language().getTSErrStr(missing ? text::error::kToolMissing
                                                             : text::error::kToolStart);
  // The tool's name is ours and holds no mark of a place, so the two can follow each other.
  const Text named = Replace(told, u"###1", FromUtf8(tool));
  session_.host().MessageBox(Replace(named, u"###2", missing ? Lines(start.places) : start.reason),
                             MessageKind::Error);
}

clsPictureDesk& ExternalTools::OpenPictureDesk() {
  pictureTool_ = std::make_unique<clsPictureDesk>(*this);
  return *pictureTool_;
}

void clsPictureDesk::ShowEditor() const { tools_.Start(kPictureDesk); }

void clsPictureDesk::ShowImage(const Text& name, const Bytes& picture) const {
  TessarinMenu& session = tools_.session();
  const auto folder = session.files().Path(u"\\Temp");
  const std::string_view bytes(reinterpret_cast<const char*>(picture.data()), picture.size());
  fs::path file = folder / (IsSafeFileName(name) ? ToUtf8(name) : "picture");
  try {
    modFile::MakeFolder(folder);
    file = PlaceFor(file, bytes);
    modFile::WriteWholeFile(file, bytes);
  } catch (const FileError& fault) {
    session.host().MessageBox(fault.Message(), MessageKind::Error);
    return;
  }
  tools_.Start(kPictureDesk, {file.string()});
}

}  // namespace tessarin
