// The one kind of error these tools report: a line for the user, already complete.
#pragma once

#include <stdexcept>

namespace tarvik {

/// Something the user can put right. what() is one line that names the file and the reason.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace tarvik
