#pragma once

// Starting a program of the user's.

#include <filesystem>
#include <string>
#include <vector>

#include "codecs/Text.h"

namespace tessarin {

struct ToolStart {
  enum class Result { Started, Missing, Failed };
  Result result = Result::Missing;
  std::vector<std::filesystem::path> places;  // where a missing tool was looked for
  Text reason;                                // why one that is there did not start
};

class ToolStarter {
 public:
  ToolStarter() = default;
  virtual ~ToolStarter() = default;
  ToolStarter(const ToolStarter&) = delete;
  ToolStarter& operator=(const ToolStarter&) = delete;

  // `tool` is a bare name, with or without ".exe"; either is taken for the other. Does not wait for
  // the tool's end.
  virtual ToolStart Start(const std::string& tool, const std::vector<std::string>& arguments) = 0;
};

// Looks in these folders, then in those of $PATH.
class ProcessStarter : public ToolStarter {
 public:
  explicit ProcessStarter(std::vector<std::filesystem::path> folders)
      : folders_(std::move(folders)) {}

  ToolStart Start(const std::string& tool, const std::vector<std::string>& arguments) override;

 private:
  std::vector<std::filesystem::path> folders_;
};

}  // namespace tessarin
