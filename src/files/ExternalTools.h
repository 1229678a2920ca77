#pragma once

// The tools that make and change media: programs of their own, which this one only starts. What
// they make comes back as files that the user sends to the phone.

#include <memory>

#include "core/TessarinMenu.h"
#include "files/ToolStarter.h"

namespace tessarin {

class ExternalTools;

// The picture editor.
class clsPictureDesk {
 public:
  explicit clsPictureDesk(const ExternalTools& tools) : tools_(tools) {}

  void ShowEditor() const;
  // The editor is given the picture as a file of that name in the folder "\Temp", where the user
  // can save it. What was changed there is not overwritten.
  void ShowImage(const Text& name, const Bytes& picture) const;

 private:
  const ExternalTools& tools_;
};

class ExternalTools {
 public:
  // Both must outlive this object.
  ExternalTools(TessarinMenu& session, ToolStarter& starter)
      : session_(session), starter_(starter) {}

  // Tells the user when the tool is missing, and where it was looked for, or does not start.
  void Start(const std::string& tool, const std::vector<std::string>& arguments = {}) const;
  // A new editor in place of the one before, which is left to close by itself.
  clsPictureDesk& OpenPictureDesk();

  TessarinMenu& session() const { return session_; }

 private:
  TessarinMenu& session_;
  ToolStarter& starter_;
  std::unique_ptr<clsPictureDesk> pictureTool_;
};

}  // namespace tessarin
