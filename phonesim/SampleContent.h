#pragma once

#include <filesystem>

namespace phonesim {

/// Fills `folder` with a phone to look at: two storages with tunes, pictures, themes, films and
/// texts, unless it holds files already, and the phone's books, unless it has them. Names are of
/// every kind. True when something was filled. Throws
/// `std::filesystem::filesystem_error` when the folder cannot be made.
bool FillWithSamples(const std::filesystem::path& folder);

}  // namespace phonesim
