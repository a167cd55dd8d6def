// Laps of real driving to be driven again: the demo's driver takes the wheel once, its key messages
// are kept, and from then on they come back frame by frame, at no cost worth measuring.
#pragma once

namespace tarvik::bench {

/// Starts the game and records the drive, if that has not been done, and puts the game where the
/// recording has the car with all five ghosts on the road and a whole lap ahead.
void start_recorded_lap();

/// Posts the messages of the next frame. After the recorded lap's last frame the lap starts again.
void next_frame();

/// Frames of the recorded lap.
int lap_frames();

} // namespace tarvik::bench
