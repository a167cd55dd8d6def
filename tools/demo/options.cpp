// Options as CLI11 sees them.
#include "tools/demo/options.h"

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <map>
#include <string>

namespace tarvik::demo {

namespace {

constexpr const char* DESCRIPTION =
    "tarvik-demo: the game with a driver at the wheel.\n"
    "\n"
    "The driver looks at the car and at the road and presses the same keys as you: arrows to\n"
    "steer, accelerate and brake, A and Z to change gear. Without options it drives track 1 in a\n"
    "window until you press Escape.";

constexpr const char* EXAMPLES =
    "Examples, from the top of the repository:\n"
    "  ./play --demo --race 2                          # watch track 2 being driven\n"
    "  ./play --demo --headless                        # six laps without a display\n"
    "  ./play --demo --headless --race 2 --difficulty 1 --laps 3 --seed 7\n"
    "  ./play --demo --headless --report               # what the fastest lap was like\n"
    "  ./play --demo --headless --pictures build/drive # PNG pictures of the drive\n"
    "\n"
    "Exit code: 0 when the laps are completed or the window is closed, 1 when not.";

} // namespace

ParsedOptions parse_options(int argc, char** argv) {
    Options options;
    CLI::App app(DESCRIPTION, "tarvik-demo");
    app.footer(EXAMPLES);
    CLI::Option* headless =
        app.add_flag("--headless", options.headless,
                     "Drive without a display, as fast as the computer can, and print each lap");
    app.add_option("--race", options.race, "Track to drive, 1 or 2")
        ->check(CLI::Range(1, 2))
        ->capture_default_str();
    app.add_option("--difficulty", options.difficulty,
                   "1 Easy, 2 Though, 3 Advanced: how soon an off-road car is put back")
        ->check(CLI::Range(1, 3))
        ->capture_default_str();
    app.add_option("--laps", options.laps,
                   "Laps to complete (6 with --headless, otherwise until you close the window)")
        ->check(CLI::Range(1, 1000));
    app.add_option("--seed", options.seed,
                   "Number that decides the drive; the same one gives the same drive again")
        ->check(CLI::Range(std::uint32_t{0}, std::numeric_limits<std::uint32_t>::max()));
    app.add_option("--from", options.from,
                   "Folder that holds the data to drive on, data/race1.map and so on; by "
                   "default the program's own")
        ->check(CLI::ExistingDirectory);
    app.add_option("--style", options.style,
                   "best: as fast as the driver can; middle: likewise, but in the middle of the "
                   "road; cautious: there too, at three quarters of the pace")
        ->transform(CLI::CheckedTransformer(
            std::map<std::string, Style>{
                {"best", Style::BEST}, {"middle", Style::MIDDLE}, {"cautious", Style::CAUTIOUS}},
            CLI::ignore_case));
    app.add_flag("--report", options.report,
                 "Describe the fastest lap: time in each gear, braking and steering, braking "
                 "zones, and the speed in each bend")
        ->needs(headless);
    CLI::Option* pictures =
        app.add_option("--pictures", options.pictures,
                       "Folder for PNG pictures of bends, the gate and the ghosts; made if missing")
            ->needs(headless);
    app.add_option("--every", options.every,
                   "Instead of these, a picture every so many frames of the last lap")
        ->check(CLI::Range(1, 1000000))
        ->needs(pictures);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& help) {
        return {std::nullopt, app.exit(help)};
    } catch (const CLI::ParseError& error) {
        std::cerr << "tarvik-demo: " << error.what() << " (--help explains)\n";
        return {std::nullopt, EXIT_FAILURE};
    }
    if (options.headless && !options.laps) {
        options.laps = 6;
    }
    return {options, EXIT_SUCCESS};
}

} // namespace tarvik::demo
