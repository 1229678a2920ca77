#include "files/PhoneFolder.h"

#include "files/FileImages.h"

namespace tessarin {

namespace {

bool WalkTo(OBEX& obex, const std::string& connectionId, TextView key) {
  for (const Text& part : Split(key, u"\\")) {
    if (!part.empty() && !obex.SetPathDown(connectionId, part)) return false;
  }
  return true;
}

}  // namespace

bool InPhoneFolder(const PhoneLink& link, TextView key,
                   const std::function<bool(const std::string& connectionId)>& work) {
  std::string connectionId;
  link.obex.EndOBEXSession();
  const bool done = link.obex.ConnectFolderBrowsing(connectionId) &&
                    link.obex.SetPathRoot(connectionId) && WalkTo(link.obex, connectionId, key) &&
                    work(connectionId);
  link.obex.EndOBEXSession();
  return done;
}

ListRow PhoneFileRow(const Text& name, const Text& size) {
  const auto point = name.rfind(u'.');
  const bool hasExtension = point != Text::npos;
  const Text extension = hasExtension ? name.substr(point + 1) : Text();
  ListRow row;
  row.cells = {hasExtension ? name.substr(0, point) : name, size, extension};
  row.image = ImageOfExtension(extension);
  return row;
}

Text WholeName(const ListRow& row) {
  const Text& extension = row.cells[2];
  return extension.empty() ? row.cells[0] : row.cells[0] + u"." + extension;
}

}  // namespace tessarin
