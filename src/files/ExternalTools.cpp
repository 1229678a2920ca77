#include "files/ExternalTools.h"

#include "codecs/Faults.h"
#include "controls/WindowHost.h"
#include "core/TextIndex.h"
#include "link/FileService.h"

namespace tessarin {

namespace {

constexpr char kPictureDesk[] = "PictureDesk";

Text Lines(const std::vector<std::filesystem::path>& places) {
  Text lines;
  for (const auto& place : places) {
    if (!lines.empty()) lines += u"\n";
    lines += FromUtf8(place.string());
  }
  return lines;
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
  const auto file = folder / (IsSafeFileName(name) ? ToUtf8(name) : "picture");
  try {
    modFile::MakeFolder(folder);
    modFile::WriteWholeFile(file, {reinterpret_cast<const char*>(picture.data()), picture.size()});
  } catch (const FileError& fault) {
    session.host().MessageBox(fault.Message(), MessageKind::Error);
    return;
  }
  tools_.Start(kPictureDesk, {file.string()});
}

}  // namespace tessarin
