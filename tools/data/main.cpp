// tarvik-data: makes, shows and checks the data that the game reads.
#include "tools/data/build_track.h"
#include "tools/data/cell_rule.h"
#include "tools/data/picture_archive.h"
#include "tools/data/track_picture.h"
#include "tools/data/watch_drawing.h"
#include "tools/files/failure.h"
#include "tools/track/track.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <new>
#include <string>

namespace {

using namespace tarvik;

// What a command is given; each fills in what it needs.
struct Arguments {
    std::string input;
    std::string output;
    int size = 1000;
    bool driven = false;
    bool passed = true; ///< false when a check found faults
};

CLI::App* add_command(CLI::App* group, const std::string& name, const std::string& text,
                      const std::string& example) {
    return group->add_subcommand(name, text + "\n\nExample: build/release/bin/tarvik-data " +
                                           group->get_name() + " " + name + " " + example);
}

void add_files(CLI::App* command, Arguments& arguments, const char* input, const char* input_text,
               const char* output, const char* output_text) {
    command->add_option(input, arguments.input, input_text)->required();
    command->add_option(output, arguments.output, output_text)->required();
}

void add_track_commands(CLI::App& app, Arguments& arguments) {
    CLI::App* track = app.add_subcommand("track", "Track maps: build, look at, check");
    track->require_subcommand(1);
    CLI::App* build = add_command(
        track, "build",
        "Makes a map from an SVG drawing or a PNG picture of up to 16384 pixels to a side. The "
        "square page becomes the map's 10000 by 10000 cells, whatever its own size; a page of "
        "10000 by 10000 units (viewBox=\"0 0 10000 10000\") has one unit a cell. The start is at "
        "(2400, 2480), heading up; the start/finish box is the square from (2392, 2392) to (2408, "
        "2408). Pictures that a drawing links to are left out; embed them instead.\n\n" +
            std::string(CELL_RULE_TEXT),
        "mine.svg mine.map");
    build->alias("import");
    add_files(build, arguments, "DRAWING", "the SVG drawing or PNG picture", "MAP",
              "the map to write");
    build->callback([&] { build_track(arguments.input, arguments.output); });

    CLI::App* watch = add_command(track, "watch",
                                  "Builds the map again and prints a line each time the drawing "
                                  "is saved, until standard input ends (Ctrl-D).",
                                  "mine.svg mine.map");
    add_files(watch, arguments, "DRAWING", "the SVG drawing or PNG picture", "MAP",
              "the map to write");
    watch->callback([&] { watch_drawing(arguments.input, arguments.output, std::cout); });

    CLI::App* preview =
        add_command(track, "preview", "Draws a map as a PNG picture in the game's colours.",
                    "mine.map mine.png --size 1000");
    add_files(preview, arguments, "MAP", "the map", "PICTURE", "the PNG picture to write");
    preview
        ->add_option("--size", arguments.size,
                     "pixels to a side; at 10000, one per cell, build gives the same track back")
        ->check(CLI::Range(1, MAP_SIDE))
        ->capture_default_str();
    preview->callback([&] { preview_track(arguments.input, arguments.output, arguments.size); });

    CLI::App* check = add_command(
        track, "check",
        "Says whether a map or a drawing can be raced, and names the place of each fault: start "
        "and start/finish box on the road, one closed road from the box upwards and around back "
        "to the start, wide enough for the car everywhere (16 cells at the gate, 24 elsewhere), a "
        "gate that cannot be missed, no other way and no decoration that makes a lap shorter. The "
        "exit code is 0 if it can be raced, otherwise 1.",
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
    CLI::App* pictures = app.add_subcommand("pictures", "The game's pictures: pack");
    pictures->require_subcommand(1);
    CLI::App* pack = add_command(
        pictures, "pack",
        "Packs the PNG pictures of a folder into a graphics archive. A picture's name begins with "
        "its sprite number, 0 to 1399, and may go on after a hyphen: 030.png, 30.png, "
        "250-pointer.png. Files with other endings are left out. The game draws 30 (the start "
        "marker over the start/finish box, 16 by 16) and 250 (the mouse pointer).\n\n"
        "Pictures are square, at most 1024 pixels to a side. Black is transparent, and so are "
        "pixels less than half opaque; for black that is to be seen, draw the next darker grey, "
        "(1, 1, 1).",
        "content pictures.dat");
    add_files(pack, arguments, "FOLDER", "the folder with the PNG pictures", "ARCHIVE",
              "the archive to write");
    pack->callback([&] { pack_pictures(arguments.input, arguments.output); });
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
    } catch (const std::bad_alloc&) {
        std::cerr << "tarvik-data: not enough memory\n";
    } catch (const std::exception& error) { // a Failure, or one of the file system
        std::cerr << "tarvik-data: " << error.what() << '\n';
    }
    return 1;
}
