#pragma once

// The texts that the user keeps for messages, in the file "\UserData\SMS\Template\ttemplate.dat":
// UTF-8, one template a line, each line ended by CR LF. Files that come from older systems may hold
// lines of some other code page.

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "codecs/Text.h"
#include "codecs/modFile.h"

namespace tessarin {

struct TemplateFile {
  std::vector<Text> templates;
  // Those whose lines are no UTF-8: here each byte is one character, and they are written back byte
  // for byte.
  std::set<Text> foreign = {};

  bool operator==(const TemplateFile&) const = default;
};

// The lines of a file's content, ended by CR LF, LF or CR; a last line may lack its end. A byte
// order mark at the front is no part of the first line.
TemplateFile ParseTemplates(std::string_view content);

// A template that holds a line break comes back as two.
std::string FormatTemplates(const TemplateFile& file);

// Makes the folder and an empty file where they are missing. Throws FileError.
TemplateFile LoadTemplates(const modFile& files);

// Throws FileError, which leaves the old file whole.
void SaveTemplates(const modFile& files, const TemplateFile& file);

}  // namespace tessarin
