// A whole drive: the game from its entry to its end, with the pilot at its keys.
#pragma once

#include "tools/demo/course.h"
#include "tools/demo/options.h"

#include <cstddef>

namespace tarvik::demo {

/// Runs the game, prints each lap's result and returns the exit code: EXIT_SUCCESS when the laps
/// that were asked for are completed or somebody has ended the game, EXIT_FAILURE when the track
/// cannot be driven. To be called once in a process, with the data folder in the working directory.
int drive(const Options& options);

/// How far the drive has got, for its onlookers.
struct Standing {
    const Course* course = nullptr; ///< null before the track is loaded
    std::size_t place = 0;          ///< where on the course the car is
    int laps = 0;                   ///< completed
    bool done = false;              ///< nothing more will be driven
};
const Standing& standing();

} // namespace tarvik::demo
