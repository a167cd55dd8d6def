// What the two programs do differently: tarvik-demo drives without a display, its sibling in a
// window. Each has a platform layer of its own, which is chosen when a program is linked.
#pragma once

#include "tools/demo/options.h"

namespace tarvik::demo {

/// Drives and returns the program's exit code; throws if the drive cannot begin. `argv` is the
/// command line, for a program that hands over to the other.
int play(const Options& options, char** argv);

} // namespace tarvik::demo
