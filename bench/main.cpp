// tarvik-bench: the table of what the game takes beside what the machine needs for the bytes alone.
//
// Takes the options of the benchmark library: --benchmark_filter=REGEX chooses rows,
// --benchmark_out=FILE writes them as JSON.
#include "bench/frame_rows.h"
#include "bench/row.h"
#include "bench/start_rows.h"
#include "tools/demo/data_folder.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

namespace {

/// The working directory is about to change, so the name of the output file is made absolute.
std::vector<std::string> with_whole_paths(int argc, char** argv) {
    const std::string out = "--benchmark_out=";
    std::vector<std::string> arguments(argv, argv + argc);
    for (std::string& argument : arguments) {
        if (argument.starts_with(out)) {
            const std::filesystem::path name = argument.substr(out.size());
            argument.replace(out.size(), std::string::npos,
                             std::filesystem::absolute(name).string());
        }
    }
    return arguments;
}

int run(int argc, char** argv) {
    using namespace tarvik::bench;
    std::vector<std::string> arguments = with_whole_paths(argc, argv);
    const std::string fault = tarvik::demo::enter_data_folder({}, 1);
    if (!fault.empty()) {
        std::fprintf(stderr, "tarvik-bench: %s\n", fault.c_str());
        return EXIT_FAILURE;
    }
    if (argc == 3 && std::string(argv[1]) == "--sample") {
        return print_sample(argv[2]);
    }
    std::vector<char*> pointers;
    pointers.reserve(arguments.size());
    for (std::string& argument : arguments) {
        pointers.push_back(argument.data());
    }
    benchmark::Initialize(&argc, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(argc, pointers.data())) {
        return EXIT_FAILURE;
    }
    add_frame_rows();
    add_start_rows();
    print_table();
    benchmark::Shutdown();
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tarvik-bench: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
