// tarvik-bench: the table of what the game takes beside what the machine needs for the bytes alone.
//
// Takes the options of the benchmark library: --benchmark_filter=REGEX chooses rows,
// --benchmark_out=FILE writes them as JSON.
#include "bench/start_rows.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <exception>
#include <iostream>

int main(int argc, char** argv) {
    try {
        if (argc == 3 && std::string(argv[1]) == "--sample") {
            return tarvik::bench::print_sample(argv[2]);
        }
        benchmark::Initialize(&argc, argv);
        if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
            return EXIT_FAILURE;
        }
        benchmark::ConsoleReporter table(benchmark::ConsoleReporter::OO_Tabular);
        benchmark::RunSpecifiedBenchmarks(&table);
        benchmark::Shutdown();
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << "tarvik-bench: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
