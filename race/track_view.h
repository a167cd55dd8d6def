// The background of every picture: the track and the status texts.
#pragma once

namespace tarvik {

/// Paints the whole view, one cell a logical pixel, and on it gear, difficulty, best, last and
/// current lap and the penalty in white. Reads the race state and changes nothing in it.
void draw_track_and_hud();

} // namespace tarvik
