// One frame of the game.
#pragma once

namespace tarvik {

/// All that happens between one frame on the screen and the next: input, car, lap, drawing. Once
/// the game is to end, the frame is still computed to its last step, but not shown.
void race_frame();

} // namespace tarvik
