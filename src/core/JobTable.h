#pragma once

// Work by its code: the jobs of the supervisor's tick and the workers of the busy window. Pages
// fill the tables at start.

#include <functional>
#include <map>
#include <utility>

namespace tessarin {

class JobTable {
 public:
  using Job = std::function<void()>;

  // A second job of the same code takes the place of the first.
  void Set(int code, Job job) { jobs_[code] = std::move(job); }

  // Runs the job of that code; a code without a job does nothing at all.
  void Run(int code) const {
    const auto job = jobs_.find(code);
    if (job != jobs_.end()) job->second();
  }

 private:
  std::map<int, Job> jobs_;
};

}  // namespace tessarin
