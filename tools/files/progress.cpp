// How far a long step has come, on standard error.
#include "tools/files/progress.h"

#include <cstdio>
#include <unistd.h>
#include <utility>

namespace tarvik {

Progress::Progress(std::string what)
    : what_(std::move(what)), terminal_(isatty(STDERR_FILENO) != 0) {}

Progress::~Progress() {
    // An error message must not land on a half-written line.
    if (terminal_ && percent_ >= 0 && percent_ < 100) {
        std::fputc('\n', stderr);
    }
}

void Progress::show(int done, int total) {
    const int percent = done * 100 / total;
    if (percent == percent_) {
        return;
    }
    percent_ = percent;
    if (terminal_) {
        std::fprintf(stderr, "\r%s: %3d %%%s", what_.c_str(), percent, percent == 100 ? "\n" : "");
        std::fflush(stderr);
    } else if (percent == 100) {
        std::fprintf(stderr, "%s: done\n", what_.c_str());
    }
}

} // namespace tarvik
