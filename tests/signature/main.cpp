// tarvik-signature: runs the scripted drives and prints one number for all that the game did.
//
//   tarvik-signature                 prints the signature
//   tarvik-signature --check FOLDER  compares each drive with FOLDER/NAME.txt as well
//   tarvik-signature --write FOLDER  writes those files; say in the commit why they changed
#include "game/start_up.h"
#include "tests/signature/trace.h"

#include <cstdio>
#include <fstream>

namespace {

using namespace tarvik::test;

std::string file_of(const std::string& folder, const Drive& drive) {
    return folder + "/" + drive.name + ".txt";
}

bool check(const std::string& folder, const Drive& drive, const Trace& trace) {
    std::ifstream file(file_of(folder, drive));
    std::vector<std::string> expected;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        expected.push_back(line);
    }
    const std::string difference = first_difference(expected, trace.lines);
    if (!difference.empty()) {
        std::printf("%s: %s\n", drive.name, difference.c_str());
    }
    return difference.empty();
}

bool write(const std::string& folder, const Drive& drive, const Trace& trace) {
    std::ofstream file(file_of(folder, drive));
    for (const std::string& line : trace.lines) {
        file << line << '\n';
    }
    file.flush();
    if (!file) {
        std::printf("cannot write %s\n", file_of(folder, drive).c_str());
    }
    return file.good();
}

} // namespace

int main(int argc, char** argv) {
    const std::string mode = argc > 1 ? argv[1] : "";
    if ((argc != 1 && argc != 3) || (argc == 3 && mode != "--check" && mode != "--write")) {
        std::fprintf(stderr, "usage: tarvik-signature [--check FOLDER | --write FOLDER]\n");
        return 2;
    }
    install_drive_data();
    tarvik::start_up();

    bool good = true;
    std::uint64_t signature = 0;
    std::uint64_t first_signature = 0;
    for (const Drive& drive : all_drives()) {
        const Trace trace = run_drive(drive);
        signature = signature * 31 + trace.signature;
        if (&drive == &all_drives().front()) {
            first_signature = trace.signature;
        }
        if (mode == "--check") {
            good = check(argv[2], drive, trace) && good;
        } else if (mode == "--write") {
            good = write(argv[2], drive, trace) && good;
        }
    }

    // Once more after all the others: a reset that forgets something shows here.
    const Drive& first = all_drives().front();
    if (run_drive(first).signature != first_signature) {
        std::printf("%s: not the same when driven again\n", first.name);
        good = false;
    }
    tarvik::shut_down();
    std::printf("signature %08x%08x\n", static_cast<unsigned>(signature >> 32U),
                static_cast<unsigned>(signature));
    return good ? 0 : 1;
}
