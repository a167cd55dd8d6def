// How far a long step has come, on standard error.
#pragma once

#include <string>

namespace tarvik {

/// On a terminal one line that counts up in place; elsewhere one line at the end, so that logs
/// stay short.
class Progress {
  public:
    /// `what` names the step, as in "content/race1.svg".
    explicit Progress(std::string what);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// `done` parts of `total` are complete.
    void show(int done, int total);

  private:
    std::string what_;
    bool terminal_;
    int percent_ = -1;
};

} // namespace tarvik
