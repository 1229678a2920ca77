#pragma once

// The icons of folders and of files.

#include <string>
#include <string_view>

#include "codecs/Text.h"

namespace tessarin {

inline constexpr char kClosedFolder[] = "folder-closed";
inline constexpr char kOpenFolder[] = "folder-open";

// By a MIME type such as "audio/midi".
std::string ImageOfType(std::string_view type);

// By the extension of a file on the phone, without its point.
std::string ImageOfExtension(TextView extension);

}  // namespace tessarin
