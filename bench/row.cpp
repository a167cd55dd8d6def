// Taking turns, and the columns.
#include "bench/row.h"

#include <algorithm>
#include <ctime>
#include <vector>

namespace tarvik::bench {

namespace {

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

} // namespace

double now() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double seconds_of(const std::function<void()>& work) {
    const double start = now();
    work();
    return now() - start;
}

void fill_row(benchmark::State& state, double goal, double game, double floor) {
    state.counters["floor"] = floor;
    state.counters["game"] = game;
    state.counters["goal"] = goal;
    state.counters["ratio"] = game / floor;
}

void compare(benchmark::State& state, double goal, const std::function<double()>& game,
             const std::function<double()>& floor) {
    game(); // the first go of each warms up
    floor();
    std::vector<double> games;
    std::vector<double> floors;
    while (state.KeepRunning()) {
        floors.push_back(floor());
        games.push_back(game());
        state.SetIterationTime(games.back());
    }
    fill_row(state, goal, median(games), median(floors));
}

} // namespace tarvik::bench
