// One row of the table: something that the game does, what the machine needs for the bytes alone,
// and how many times as much the game takes.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <vector>

namespace tarvik::bench {

/// Processor time of this thread, seconds. Unlike the time on the wall it does not count what other
/// programs do on the same processor.
double now();

/// Seconds that `work` takes.
double seconds_of(const std::function<void()>& work);

double median(std::vector<double> values);

/// Runs game and floor in turns, each returning the seconds of one go, and puts the medians into
/// the row's columns. What disturbs the machine for a while disturbs both.
void compare(benchmark::State& state, const std::function<double()>& game,
             const std::function<double()>& floor);

/// Fills the row's columns; the ratio is game / floor.
void fill_row(benchmark::State& state, double game, double floor);

/// The unit of a row's columns, and how many of it make a second, a byte or a piece.
struct Unit {
    const char* name;
    double scale;
};
inline constexpr Unit MICROSECONDS{"us", 1e6};
inline constexpr Unit MILLISECONDS{"ms", 1e3};
inline constexpr Unit MEGABYTES{"MB", 1e-6};
inline constexpr Unit PIECES{"", 1.0};

/// Adds a row. `goal` is the ratio that is not to be exceeded.
void add_row(const char* name, Unit unit, double goal, int rounds, void (*row)(benchmark::State&));

/// Runs the rows that the benchmark library's command line chooses and prints the table.
void print_table();

} // namespace tarvik::bench
