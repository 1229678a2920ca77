#pragma once

// The texts that the user keeps for messages, in the file "\UserData\SMS\Template\ttemplate.dat":
// UTF-8, one template a line, each line ended by CR LF.

#include <string>
#include <string_view>
#include <vector>

#include "codecs/Text.h"
#include "codecs/modFile.h"

namespace tessarin {

// The lines of a file's content, ended by CR LF, LF or CR; a last line may lack its end. A byte
// order mark at the front is no part of the first line.
std::vector<Text> ParseTemplates(std::string_view content);

// A template that holds a line break comes back as two.
std::string FormatTemplates(const std::vector<Text>& templates);

// Makes the folder and an empty file where they are missing. Throws FileError.
std::vector<Text> LoadTemplates(const modFile& files);

// Throws FileError, which leaves the old file whole.
void SaveTemplates(const modFile& files, const std::vector<Text>& templates);

}  // namespace tessarin
