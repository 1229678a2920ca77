// The files that keep a list between sessions: one line a record, ended by CR LF, its fields as
// groups separated by commas, each the field's UTF-16 units as four upper-case hexadecimal digits
// each. An empty field is an empty group. There is no header and no count.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "codecs/Text.h"

namespace tessarin::ListFile {

// The fields of a line: n commas give n + 1 of them.
std::vector<Text> DecodeLine(std::string_view line);

// The line of these fields, without its end.
std::string EncodeLine(const std::vector<Text>& fields);

// The lines that are not empty, without their ends, LF alone being one too; none when there is no
// file. Raises FileError for one that cannot be read: who lacks its lines must not write over them.
std::vector<std::string> ReadLines(const std::filesystem::path& file);

// Writes whole lines in place of what the file held. An error ends it silently and leaves the old
// file whole; a file that cannot be read is left alone too, since the lines know nothing of what it
// holds. Gives whether it was written.
bool WriteLines(const std::filesystem::path& file, const std::vector<std::string>& lines);

// Whether a field that was just read from the phone is as it was saved. The phone's quoting leaves
// U+0000 behind a text: what went to the phone without one comes back with it, and is the same.
bool IsSameField(TextView read, TextView saved);

}  // namespace tessarin::ListFile
