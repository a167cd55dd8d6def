// tarvik-data: makes, shows and checks the data that the game reads.
#include "tools/data/build_track.h"
#include "tools/data/cell_rule.h"
#include "tools/data/picture_archive.h"
#include "tools/data/track_picture.h"
#include "tools/data/watch_drawing.h"
#include "tools/files/failure.h"
#include "tools/track/track.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <iostream>
#include <new>
#include <string>

namespace {

using namespace tarvik;

struct Arguments {
    std::string input;
    std::string output;
    int size = 1000;
    bool driven = false;
    bool passed = true; ///< false when a check found faults
};

std::string with_rule(const char* text) {
    return std::string(text) + "\n\n" + CELL_RULE_TEXT;
}

void add_track_commands(CLI::App& app, Arguments& arguments) {
    CLI::App* track =
        app.add_subcommand("track", "Track maps: build, look at, check")->require_subcommand(1);
    CLI::App* build =
        track
            ->add_subcommand(
                "build",
                with_rule(
                    "Makes a map from an SVG drawing or a PNG picture of up to 16384 pixels to a "
                    "side. The square page becomes the map's 10000 by 10000 cells, whatever its "
                    "own "
                    "size; a page of 10000 by 10000 units (viewBox=\"0 0 10000 10000\") has one "
                    "unit a cell. The start is at (2400, 2480), heading up; the start/finish box "
                    "is "
                    "the square from (2392, 2392) to (2408, 2408). Pictures that a drawing links "
                    "to "
                    "are left out; embed them instead.\n\nExample: build/release/bin/tarvik-data "
                    "track build mine.svg "
                    "mine.map"))
            ->alias("import");
    build->add_option("DRAWING", arguments.input, "the SVG drawing or PNG picture")->required();
    build->add_option("MAP", arguments.output, "the map to write")->required();
    build->callback([&] { build_track(arguments.input, arguments.output); });

    CLI::App* watch = track->add_subcommand(
        "watch", "Builds the map again and prints a line each time the drawing is saved, until "
                 "standard input ends (Ctrl-D).\n\nExample: build/release/bin/tarvik-data track "
                 "watch mine.svg "
                 "mine.map");
    watch->add_option("DRAWING", arguments.input, "the SVG drawing or PNG picture")->required();
    watch->add_option("MAP", arguments.output, "the map to write")->required();
    watch->callback([&] { watch_drawing(arguments.input, arguments.output, std::cout); });

    CLI::App* preview =
        track->add_subcommand("preview", "Draws a map as a PNG picture in the game's "
                                         "colours.\n\nExample: build/release/bin/tarvik-data "
                                         "track preview mine.map mine.png --size 1000");
    preview->add_option("MAP", arguments.input, "the map")->required();
    preview->add_option("PICTURE", arguments.output, "the PNG picture to write")->required();
    preview
        ->add_option("--size", arguments.size,
                     "pixels to a side; at 10000, one per cell, build gives the same track back")
        ->check(CLI::Range(1, MAP_SIDE))
        ->capture_default_str();
    preview->callback([&] { preview_track(arguments.input, arguments.output, arguments.size); });

    CLI::App* check = track->add_subcommand(
        "check",
        "Says whether a map or a drawing can be raced, and names the place of each fault: start "
        "and start/finish "
        "box on the road, one closed road from the box upwards and around back to the start, wide "
        "enough for the car everywhere (16 cells at the gate, 24 elsewhere), a gate that cannot be "
        "missed, no other way and no decoration that makes a lap shorter. The exit code is 0 if "
        "it can be raced, otherwise 1.\n\nExample: build/release/bin/tarvik-data track check "
        "mine.svg");
    check->add_option("TRACK", arguments.input, "the map, SVG drawing or PNG picture")->required();
    check->add_flag("--driven", arguments.driven,
                    "exit with 0 if it can be driven round at all, whatever the faults");
    check->callback([&] {
        const TrackReport report = check_track_file(arguments.input, std::cout);
        arguments.passed = arguments.driven ? report.has_loop : report.can_be_raced();
    });
}

void add_picture_commands(CLI::App& app, Arguments& arguments) {
    CLI::App* pictures = app.add_subcommand("pictures", "The game's pictures: pack, list, unpack")
                             ->require_subcommand(1);
    CLI::App* pack = pictures->add_subcommand(
        "pack",
        "Packs the PNG pictures of a folder into a graphics archive. A picture's name begins with "
        "its sprite number, 0 to 1399, and may go on after a hyphen: 030.png, 30.png, "
        "250-pointer.png. Files with other endings are left out. The game draws 30 (the start "
        "marker over the start/finish box, 16 by 16) and 250 (the mouse pointer).\n\n"
        "Pictures are square, at most 1024 pixels to a side. Black is transparent, and so are "
        "pixels less than half opaque; for black that is to be seen, draw the next darker grey, "
        "(1, 1, 1).\n\nExample: build/release/bin/tarvik-data pictures pack content pictures.dat");
    pack->add_option("FOLDER", arguments.input, "the folder with the PNG pictures")->required();
    pack->add_option("ARCHIVE", arguments.output, "the archive to write")->required();
    pack->callback([&] { pack_pictures(arguments.input, arguments.output); });

    CLI::App* list =
        pictures->add_subcommand("list", "Lists the pictures of a graphics archive.\n\nExample: "
                                         "build/release/bin/tarvik-data pictures list "
                                         "pictures.dat");
    list->add_option("ARCHIVE", arguments.input, "the archive")->required();
    list->callback([&] { list_pictures(arguments.input, std::cout); });

    CLI::App* unpack = pictures->add_subcommand(
        "unpack", "Writes the pictures of a graphics archive to a folder as 030.png, 250.png and "
                  "so on; packing them again gives the same archive.\n\nExample: "
                  "build/release/bin/tarvik-data "
                  "pictures unpack pictures.dat pictures");
    unpack->add_option("ARCHIVE", arguments.input, "the archive")->required();
    unpack->add_option("FOLDER", arguments.output, "the folder, made if missing")->required();
    unpack->callback([&] { unpack_pictures(arguments.input, arguments.output); });
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app("Makes, shows and checks the data that Tarvik reads: track maps and pictures.");
    app.require_subcommand(1);
    app.footer("Each command explains itself: tarvik-data track build --help\n"
               "To race on a drawing of your own: ./play mine.svg");
    Arguments arguments;
    add_track_commands(app, arguments);
    add_picture_commands(app, arguments);
    try {
        app.parse(argc, argv);
        std::cout.flush();
        if (!std::cout) {
            throw Failure("cannot write to standard output");
        }
        return arguments.passed ? 0 : 1;
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) { // --help
            return app.exit(error);
        }
        std::cerr << "tarvik-data: " << error.what() << " (tarvik-data --help explains)\n";
    } catch (const Failure& failure) {
        std::cerr << "tarvik-data: " << failure.what() << '\n';
    } catch (const std::bad_alloc&) {
        std::cerr << "tarvik-data: not enough memory\n";
    } catch (const std::exception& error) { // of the file system, say
        std::cerr << "tarvik-data: " << error.what() << '\n';
    }
    return 1;
}
