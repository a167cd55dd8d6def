// The choice is made after each frame, with the race state as the frame left it.
#include "tools/demo/snapshots.h"

#include "platform/scripted/scripted.h"
#include "race/laps.h"
#include "race/race_state.h"
#include "tools/demo/drive.h"
#include "tools/files/png_file.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <system_error>

namespace tarvik::demo {

namespace {

constexpr int MOST_BENDS = 4;
/// Radius below which a bend is worth a picture, cells.
constexpr double TIGHT_RADIUS = 110.0;
/// A bend's picture is taken when the car is this far from it: its signs are all round the car.
constexpr std::size_t PLACES_BEFORE_BEND = static_cast<std::size_t>(90.0 / PLACE_SPACING);
constexpr std::size_t PLACES_BETWEEN_BENDS = static_cast<std::size_t>(400.0 / PLACE_SPACING);

/// The gate's picture is taken this far below the box, cells.
constexpr float BEFORE_GATE = 40.0F;

/// Ghosts whose centres are further apart than this are told apart at a glance, cells.
constexpr float APART = 16.0F;

Options wanted;
int frames_taken = 0;
int bends_taken = 0;
std::size_t last_bend = 0;
bool gate_taken = false;
Picture ghosts;
float ghosts_apart = 0.0F;

/// The game shows rows from the bottom up.
Picture copy_of(const std::uint8_t* pixels, int width, int height) {
    Picture picture;
    picture.width = width;
    picture.height = height;
    picture.rgba.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
    for (int row = height - 1; row >= 0; --row) {
        for (int column = 0; column < width; ++column) {
            const std::uint8_t* pixel =
                pixels + (static_cast<std::ptrdiff_t>(row) * width + column) * 3;
            picture.rgba.insert(picture.rgba.end(), {pixel[0], pixel[1], pixel[2], 255});
        }
    }
    return picture;
}

bool bend_is_near() {
    const Standing& now = standing();
    const std::size_t bend = now.place + PLACES_BEFORE_BEND;
    return bends_taken < MOST_BENDS && now.laps == 1 &&
           (bends_taken == 0 || now.place > last_bend + PLACES_BETWEEN_BENDS) &&
           std::abs(now.course->at(bend).bend) > 1.0 / TIGHT_RADIUS;
}

bool gate_is_near() {
    const float below = car_y[PLAYER_SLOT] - static_cast<float>(BOX_TOP + BOX_SIZE);
    return !gate_taken && standing().laps >= 1 && cycle[PLAYER_SLOT] > MIN_LAP_FRAMES &&
           std::abs(car_x[PLAYER_SLOT] - START_X) < 20.0F && below > 0.0F && below < BEFORE_GATE;
}

/// Smallest distance between two of the ghosts as drawn in this frame, at most APART; 0 if there
/// are not five of them in view.
float ghosts_in_view_apart() {
    const int frame = cycle[PLAYER_SLOT];
    if (standing().laps < LAST_GHOST_SLOT - FIRST_GHOST_SLOT + 1 || frame == 0) {
        return 0.0F;
    }
    float apart = APART;
    for (int a = FIRST_GHOST_SLOT; a <= LAST_GHOST_SLOT; ++a) {
        const float dx = std::abs(ghost_x[a][frame] - car_x[PLAYER_SLOT]);
        const float dy = ghost_y[a][frame] - car_y[PLAYER_SLOT];
        if (dx > 150.0F || dy < -62.0F || dy > 88.0F) { // outside the view, or among the texts
            return 0.0F;
        }
        for (int b = FIRST_GHOST_SLOT; b < a; ++b) {
            apart = std::min(apart, std::hypot(ghost_x[a][frame] - ghost_x[b][frame],
                                               ghost_y[a][frame] - ghost_y[b][frame]));
        }
    }
    return apart;
}

void on_picture(const std::uint8_t* pixels, int width, int height) {
    if (standing().course == nullptr || standing().done) {
        return;
    }
    if (wanted.every > 0) {
        const int frame = cycle[PLAYER_SLOT];
        if (standing().laps + 1 == wanted.laps && frame > 0 && frame % wanted.every == 0) {
            char name[32];
            std::snprintf(name, sizeof name, "frame-%05d.png", frame);
            write_png(wanted.pictures / name, copy_of(pixels, width, height));
            ++frames_taken;
        }
        return;
    }
    if (bend_is_near()) {
        ++bends_taken;
        last_bend = standing().place;
        write_png(wanted.pictures / ("bend-" + std::to_string(bends_taken) + ".png"),
                  copy_of(pixels, width, height));
    }
    if (gate_is_near()) {
        gate_taken = true;
        write_png(wanted.pictures / "gate.png", copy_of(pixels, width, height));
    }
    const float apart = ghosts_in_view_apart();
    if (apart > ghosts_apart) {
        ghosts_apart = apart;
        ghosts = copy_of(pixels, width, height);
    }
}

} // namespace

void take_snapshots(const Options& options) {
    wanted = options;
    wanted.pictures = std::filesystem::absolute(options.pictures);
    std::error_code error;
    std::filesystem::create_directories(wanted.pictures, error);
    if (error) {
        throw std::runtime_error("cannot make the folder " + wanted.pictures.string() + ": " +
                                 error.message());
    }
    scripted::set_frame_hook(on_picture);
}

void finish_snapshots() {
    scripted::set_frame_hook(nullptr);
    const std::string& folder = wanted.pictures.native();
    if (wanted.every > 0) {
        std::printf("pictures in %s: %d of the last lap\n", folder.c_str(), frames_taken);
        return;
    }
    if (!ghosts.rgba.empty()) {
        write_png(wanted.pictures / "ghosts.png", ghosts);
    }
    std::printf("pictures in %s: tight bends %d, gate %s, five ghosts together %s\n",
                folder.c_str(), bends_taken, gate_taken ? "yes" : "no",
                ghosts.rgba.empty() ? "no" : "yes");
}

} // namespace tarvik::demo
