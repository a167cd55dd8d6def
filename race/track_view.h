// The background of every frame: the track and the status texts.
#pragma once

namespace tarvik {

/// Paints the whole view, one cell a logical pixel, and on it gear, difficulty, best, last and
/// current lap and the penalty in white. Does not change the race.
void draw_track_and_hud();

} // namespace tarvik
