// One frame of the game.
#pragma once

namespace tarvik {

/// Clears, reads the input, moves the car one step, draws everything and shows the picture; the
/// only thing the main loop runs. The frame in which the game is found to be ending runs to its
/// end too, but is not shown.
void race_frame();

} // namespace tarvik
