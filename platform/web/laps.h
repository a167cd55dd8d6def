// Telling the page of completed laps.
#pragma once

namespace tarvik {

/// To be called after every frame.
void report_lap();

} // namespace tarvik
