#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "phonesim/Behaviour.h"

namespace phonesim {

/// What the command line asks for.
struct Options {
  std::filesystem::path link;
  std::filesystem::path content;
  std::optional<std::filesystem::path> reports;
  Behaviour behaviour;
  bool verbose = false;
  bool help = false;
};

/// A command line that cannot be followed, with the reason.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

Options ParseOptions(const std::vector<std::string>& arguments);

std::string HelpText();

}  // namespace phonesim
