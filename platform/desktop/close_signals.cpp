// Signal handlers that only set a flag.
#include "platform/desktop/close_signals.h"

#include <csignal>
#include <initializer_list>

namespace tarvik {

namespace {

volatile std::sig_atomic_t close_signal_came = 0;

extern "C" void note_close_signal(int) {
    close_signal_came = 1;
}

// A signal that was already ignored when the program started (nohup does that to SIGHUP, a shell to
// the SIGINT of a background job) stays ignored.
void watch(int signal) {
    struct sigaction action {};
    sigaction(signal, nullptr, &action);
    if (action.sa_handler == SIG_IGN) {
        return;
    }
    action = {};
    action.sa_handler = note_close_signal;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

} // namespace

void watch_close_signals() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        watch(signal);
    }
}

bool take_close_signal() {
    if (close_signal_came == 0) {
        return false;
    }
    close_signal_came = 0;
    return true;
}

} // namespace tarvik
