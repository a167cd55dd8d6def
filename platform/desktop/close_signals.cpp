// Signal handlers that only set a flag.
#include "platform/desktop/close_signals.h"

#include <csignal>

namespace tarvik {

namespace {

volatile std::sig_atomic_t close_signal_came = 0;

extern "C" void note_close_signal(int) {
    close_signal_came = 1;
}

} // namespace

void watch_close_signals() {
    struct sigaction action {};
    action.sa_handler = note_close_signal;
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

bool take_close_signal() {
    if (close_signal_came == 0) {
        return false;
    }
    close_signal_came = 0;
    return true;
}

} // namespace tarvik
