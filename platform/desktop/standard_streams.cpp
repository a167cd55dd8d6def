// Keeps the standard streams' numbers from anything else.
#include "platform/desktop/standard_streams.h"

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace tarvik {

void secure_standard_streams() {
    std::signal(SIGPIPE, SIG_IGN);
    // A closed stream's number would go to the next thing that is opened: the connection to the
    // display or a track map, and a driver's message on standard error would be written into it.
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        if (fcntl(stream, F_GETFD) < 0) {
            static_cast<void>(open("/dev/null", O_RDWR)); // takes the lowest free number
        }
    }
}

} // namespace tarvik
