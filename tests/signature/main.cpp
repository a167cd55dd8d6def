// tarvik-signature: drives without a display, asking after every frame whether all is as it must
// be, and prints one number for all that the game did.
#include "game/start_up.h"
#include "tests/signature/run.h"
#include "tests/support/ring.h"

#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>

namespace {

using namespace tarvik::test;

constexpr const char* USAGE =
    R"(tarvik-signature                  prints the signature
tarvik-signature --write FOLDER   writes a trace of each drive to FOLDER/NAME.txt as well

tarvik-signature --long random FRAMES [SEED]
  For hours of play, driven twice over: both times must be the same, and the memory must not have
  grown.
)";

// Pages that do not count as growth: the kernel hands them out in batches.
constexpr long STILL_NO_GROWTH = 64;

/// Without a folder, the traces go nowhere.
bool print_signature(const std::string& folder) {
    bool good = true;
    std::uint64_t signature = 0;
    for (const Drive& drive : SIGNATURE_DRIVES) {
        std::ofstream trace;
        if (!folder.empty()) {
            trace.open(folder + "/" + drive.name + ".txt", std::ios::binary);
        }
        signature = signature * 31 + run(drive, &trace);
        good = (folder.empty() || trace.flush()) && good;
    }
    std::cout << "signature " << hex(signature) << '\n';
    return good;
}

/// Pages of this process that are in memory, as Linux counts them.
long pages_now() {
    long all = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return resident;
}

bool drive_twice(const Drive& drive) {
    // One frame first, so that the allocator's caches are filled before memory is measured.
    run({drive.name, drive.steer, 1, drive.seed, drive.luck});
    const std::uint64_t first = run(drive);
    const long pages = pages_now();
    const std::uint64_t second = run(drive);
    const long growth = pages_now() - pages;
    const bool has_grown = pages == 0 || growth > STILL_NO_GROWTH;
    std::cout << drive.name << ' ' << drive.frames << ", twice: " << hex(first)
              << (first == second ? ", the same again" : ", ANOTHER THE SECOND TIME") << "; memory "
              << pages << " pages, " << growth << " more than after the first"
              << (has_grown ? ": IT HAS GROWN\n" : "\n");
    return first == second && !has_grown;
}

} // namespace

int main(int argc, char** argv) {
    const std::string mode = argc > 1 ? argv[1] : "";
    const std::string name = argc > 2 ? argv[2] : "";
    const bool is_short = argc == 1 || (argc == 3 && mode == "--write");
    const bool is_long = mode == "--long" && name == "random" && (argc == 4 || argc == 5);
    const long frames = is_long ? std::atol(argv[3]) : 0;
    const auto seed = static_cast<std::uint32_t>(argc == 5 ? std::atol(argv[4]) : 1);
    if (!is_short && frames <= 0) {
        std::cerr << USAGE;
        return 2;
    }
    install_ring_data();
    tarvik::start_up();
    bool good = false;
    try {
        good = is_short ? print_signature(name)
                        : drive_twice({"random", steer_at_random, frames, seed, seed});
    } catch (const std::exception& fault) {
        std::cout << fault.what() << '\n';
    }
    tarvik::shut_down();
    return good ? EXIT_SUCCESS : EXIT_FAILURE;
}
