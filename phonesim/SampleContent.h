#pragma once

#include <filesystem>

namespace phonesim {

/// Fills `folder` with a phone to look at, unless it holds something already: two storages, tunes,
/// pictures, themes, films and texts, with names of every kind. True when it was filled. Throws
/// `std::filesystem::filesystem_error` when the folder cannot be made.
bool FillWithSamples(const std::filesystem::path& folder);

}  // namespace phonesim
