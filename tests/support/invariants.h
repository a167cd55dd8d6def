// What holds after every frame, whatever was pressed and whatever the files held.
#pragma once

#include <string>

namespace tarvik::test {

/// After a race_frame: the first invariant that does not hold, with its value; empty if all hold.
/// Costs a few microseconds. Writes beside a buffer are left to AddressSanitizer.
[[nodiscard]] std::string find_fault();

} // namespace tarvik::test
