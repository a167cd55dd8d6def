// One row of the table: something that the game does, what the machine needs for the bytes alone,
// and how many times as much the game takes.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>

namespace tarvik::bench {

/// Processor time of this thread, seconds. Unlike the time on the wall it does not count what other
/// programs do on the same processor.
double now();

/// Seconds that `work` takes.
double seconds_of(const std::function<void()>& work);

/// Fills the row's columns; `goal` is the ratio game / floor that is not to be exceeded.
void fill_row(benchmark::State& state, double goal, double game, double floor);

/// Runs game and floor in turns, each returning the seconds of one go, and fills the row with the
/// medians. What disturbs the machine for a while disturbs both.
void compare(benchmark::State& state, double goal, const std::function<double()>& game,
             const std::function<double()>& floor);

} // namespace tarvik::bench
