// Taking turns, and the table.
#include "bench/row.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace tarvik::bench {

namespace {

class Table : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context&) override {
        std::printf("%-44s %12s %12s %8s %8s\n", "", "floor", "game", "goal", "ratio");
        return true;
    }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            const auto value = [&run](const char* name) {
                const auto found = run.counters.find(name);
                return found == run.counters.end() ? 0.0 : found->second.value;
            };
            const char* unit = run.report_label.c_str();
            std::printf("%-44s %9.4g %2s %9.4g %2s %8.3g %8.3g\n",
                        run.run_name.function_name.c_str(), value("floor"), unit, value("game"),
                        unit, value("goal"), value("ratio"));
            std::fflush(stdout);
        }
    }
};

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

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void compare(benchmark::State& state, const std::function<double()>& game,
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
    fill_row(state, median(games), median(floors));
}

void fill_row(benchmark::State& state, double game, double floor) {
    state.counters["floor"] = floor;
    state.counters["game"] = game;
    state.counters["ratio"] = game / floor;
}

void add_row(const char* name, Unit unit, double goal, int rounds, void (*row)(benchmark::State&)) {
    const auto measure = [unit, goal, row](benchmark::State& state) {
        row(state);
        state.counters["floor"] = state.counters["floor"] * unit.scale;
        state.counters["game"] = state.counters["game"] * unit.scale;
        state.counters["goal"] = goal;
        state.SetLabel(unit.name);
    };
    benchmark::RegisterBenchmark(name, measure)->Iterations(rounds)->UseManualTime();
}

void print_table() {
    Table table;
    benchmark::RunSpecifiedBenchmarks(&table);
}

} // namespace tarvik::bench
