// A race on track 1, with the demo's driver at the wheel.
#pragma once

#include "tools/demo/driver.h"

namespace tarvik::bench {

/// Starts the race afresh and, if that has not been done, the game. The working directory becomes
/// the program's own folder, where the data is.
demo::Driver start_race();

} // namespace tarvik::bench
