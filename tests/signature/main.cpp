// tarvik-signature: drives without a display, asking after every frame whether all is as it must
// be, and prints one number for all that the game did.
//
//   tarvik-signature                 prints the signature
//   tarvik-signature --check FOLDER  compares each drive with FOLDER/NAME.txt as well
//   tarvik-signature --write FOLDER  writes those files; say in the commit why they changed
//
//   tarvik-signature --long DRIVE COUNT [SEED]
//
// The last is for hours of play, driven twice over: both times must be the same, and the memory
// must not have grown. DRIVE is "random", any keys at any time for COUNT frames; "endless", the
// last COUNT frames of a lap until it is given up; or "laps", COUNT laps, each as short as a lap
// can be.
#include "game/start_up.h"
#include "tests/signature/drives.h"
#include "tests/support/ring.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace {

using namespace tarvik::test;

// What a kernel that hands out pages in bundles makes of nothing at all.
constexpr double STILL_NO_GROWTH = 256.0 * 1024.0;

std::vector<std::string> words_of(std::istream&& in) {
    return {std::istream_iterator<std::string>(in), {}};
}

/// Says where a trace first differs from the file that is kept, naming line and column.
bool check(const std::string& file, const std::string& trace) {
    const auto columns = words_of(std::istringstream(trace.substr(0, trace.find('\n'))));
    const auto expected = words_of(std::ifstream(file));
    const auto actual = words_of(std::istringstream(trace));
    const auto [wanted, got] =
        std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
    if (wanted == expected.end() && got == actual.end()) {
        return true;
    }
    const auto word = static_cast<std::size_t>(got - actual.begin());
    std::cout << file << ':' << word / columns.size() + 1 << ": " << columns[word % columns.size()]
              << " is " << (got == actual.end() ? "nothing" : *got) << ", expected "
              << (wanted == expected.end() ? "nothing" : *wanted) << '\n';
    return false;
}

bool write(const std::string& file, const std::string& trace) {
    std::ofstream out(file);
    out << trace << std::flush;
    if (!out) {
        std::cout << "cannot write " << file << '\n';
    }
    return out.good();
}

std::uint64_t number_of(const Drive& drive, long count, std::uint32_t seed,
                        std::ostream* trace = nullptr) {
    Run run(seed, trace);
    drive.drive(run, count);
    return run.number();
}

bool print_signature(const std::string& mode, const std::string& folder) {
    bool good = true;
    std::vector<std::uint64_t> numbers;
    std::uint64_t signature = 0;
    for (const Drive& drive : signature_drives()) {
        std::ostringstream trace;
        numbers.push_back(number_of(drive, drive.count, drive.seed, &trace));
        signature = signature * 31 + numbers.back();
        const std::string file = folder + "/" + drive.name + ".txt";
        good = (mode != "--check" || check(file, trace.str())) &&
               (mode != "--write" || write(file, trace.str())) && good;
    }
    // Once more after all the others: a reset that forgets something shows here.
    const Drive& first = signature_drives().front();
    std::ostringstream again;
    if (number_of(first, first.count, first.seed, &again) != numbers.front()) {
        std::cout << first.name << ": not the same when driven again\n";
        good = false;
    }
    std::cout << "signature " << hex(signature) << '\n';
    return good;
}

/// Bytes of this process that are in memory, as the kernel counts them.
double memory_now() {
    std::ifstream status("/proc/self/status");
    std::string entry;
    while (status >> entry && entry != "VmRSS:") {
    }
    double kibibytes = 0.0;
    if (!(status >> kibibytes)) {
        throw std::runtime_error("/proc/self/status has no VmRSS");
    }
    return kibibytes * 1024.0;
}

bool drive_twice(const Drive& drive, long count, std::uint32_t seed) {
    number_of(drive, 1, seed); // the allocator learns the sizes that are asked for again and again
    const std::uint64_t first = number_of(drive, count, seed);
    const double memory = memory_now();
    const std::uint64_t second = number_of(drive, count, seed);
    const double growth = memory_now() - memory;
#ifdef __SANITIZE_ADDRESS__ // which keeps what was freed
    const bool has_grown = false;
#else
    const bool has_grown = growth > STILL_NO_GROWTH;
#endif
    std::cout << drive.name << ' ' << count << ", twice: " << hex(first)
              << (first == second ? ", the same again" : ", ANOTHER THE SECOND TIME") << "; memory "
              << memory * 1e-6 << " MB, " << growth << " bytes more than after the first"
              << (has_grown ? ": IT HAS GROWN\n" : "\n");
    return first == second && !has_grown;
}

} // namespace

int main(int argc, char** argv) {
    const std::string mode = argc > 1 ? argv[1] : "";
    const bool is_short = argc == 1 || (argc == 3 && (mode == "--check" || mode == "--write"));
    const bool is_long = mode == "--long" && (argc == 4 || argc == 5);
    const Drive* drive = is_long ? find_long_drive(argv[2]) : nullptr;
    const long count = is_long ? std::atol(argv[3]) : 0;
    const auto seed = static_cast<std::uint32_t>(argc == 5 ? std::atol(argv[4]) : 1);
    if (!is_short && (drive == nullptr || count <= 0)) {
        std::cerr << "usage: tarvik-signature [--check FOLDER | --write FOLDER |\n"
                     "                         --long random|endless|laps COUNT [SEED]]\n";
        return 2;
    }
    install_ring_data();
    tarvik::start_up();
    bool good = false;
    try {
        good = is_short ? print_signature(mode, argc == 3 ? argv[2] : "")
                        : drive_twice(*drive, count, seed);
    } catch (const std::exception& fault) {
        std::cout << fault.what() << '\n';
    }
    tarvik::shut_down();
    return good ? EXIT_SUCCESS : EXIT_FAILURE;
}
