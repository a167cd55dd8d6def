// Dots over frames on a logarithmic scale, events as vertical lines.
#include "bench/chart.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>
#include <stdexcept>

namespace tarvik::bench {

namespace {

constexpr double WIDTH = 1200.0;
constexpr double HEIGHT = 560.0;
constexpr double LEFT = 70.0;
constexpr double RIGHT = WIDTH - 20.0;
constexpr double TOP = 70.0;
constexpr double BOTTOM = HEIGHT - 50.0;

// Milliseconds at the bottom and at the top.
constexpr double LEAST = 0.1;
constexpr double MOST = 100.0;

constexpr double PICTURE_MS = 1000.0 / 60.0;

struct Rgb {
    double red;
    double green;
    double blue;
};
constexpr Rgb GREY{0.55, 0.55, 0.55};
constexpr Rgb PALE{0.88, 0.88, 0.88};
constexpr Rgb BLACK{0.1, 0.1, 0.1};
constexpr Rgb RED{0.8, 0.1, 0.1};
constexpr Rgb BLUE{0.1, 0.3, 0.8};

double height_of(double milliseconds) {
    const double part = std::log(milliseconds / LEAST) / std::log(MOST / LEAST);
    return BOTTOM - std::clamp(part, 0.0, 1.0) * (BOTTOM - TOP);
}

class Drawing {
  public:
    Drawing(cairo_t* drawing_context, std::size_t frame_count)
        : context(drawing_context), frames(static_cast<double>(frame_count)) {}

    void colour(const Rgb& rgb) const {
        cairo_set_source_rgb(context, rgb.red, rgb.green, rgb.blue);
    }

    void line(double x1, double y1, double x2, double y2) const {
        cairo_move_to(context, x1, y1);
        cairo_line_to(context, x2, y2);
        cairo_stroke(context);
    }

    void text(double x, double y, const std::string& words) const {
        cairo_move_to(context, x, y);
        cairo_show_text(context, words.c_str());
    }

    double across(double frame) const {
        return LEFT + frame / frames * (RIGHT - LEFT);
    }

    void dot(std::size_t frame, double seconds) const {
        const double x = across(static_cast<double>(frame));
        cairo_rectangle(context, x - 0.7, height_of(seconds * 1e3) - 0.7, 1.4, 1.4);
        cairo_fill(context);
    }

    void axes() const {
        for (const double milliseconds : {0.1, 0.2, 0.5, 1.0, 2.0, 5.0, 10.0, 20.0, 50.0, 100.0}) {
            const double y = height_of(milliseconds);
            colour(PALE);
            line(LEFT, y, RIGHT, y);
            colour(BLACK);
            char label[32];
            std::snprintf(label, sizeof label, "%g ms", milliseconds);
            text(12.0, y + 4.0, label);
        }
        for (int frame = 0; frame < static_cast<int>(frames); frame += 500) {
            char label[32];
            std::snprintf(label, sizeof label, "%d", frame);
            text(across(frame) - 8.0, BOTTOM + 18.0, label);
        }
        text((LEFT + RIGHT) / 2.0, BOTTOM + 38.0, "frame");
        colour(GREY);
        line(LEFT, height_of(PICTURE_MS), RIGHT, height_of(PICTURE_MS));
    }

    void event(std::size_t frame, const char* name) const {
        const double x = across(static_cast<double>(frame));
        colour(RED);
        line(x, TOP - 4.0, x, BOTTOM);
        cairo_text_extents_t extents;
        cairo_text_extents(context, name, &extents);
        text(std::min(x - extents.width / 2.0, RIGHT - extents.width), TOP - 8.0, name);
    }

  private:
    cairo_t* context;
    double frames;
};

/// Of the frames that no gear key held up.
template <typename Time>
std::vector<double> times(const std::vector<FrameTime>& frames, Time FrameTime::*time) {
    std::vector<double> found;
    for (const FrameTime& frame : frames) {
        if (!frame.waited) {
            found.push_back(frame.*time);
        }
    }
    return found;
}

void draw(const Drawing& drawing, const std::vector<FrameTime>& frames) {
    drawing.axes();
    for (std::size_t i = 0; i < frames.size(); ++i) {
        if (frames[i].event != nullptr) {
            drawing.event(i, frames[i].event);
        }
    }
    drawing.colour(GREY);
    drawing.text(LEFT, 20.0,
                 "from picture to picture: " + summary(times(frames, &FrameTime::interval)));
    for (std::size_t i = 0; i < frames.size(); ++i) {
        if (!frames[i].waited) {
            drawing.dot(i, frames[i].interval);
        }
    }
    drawing.colour(BLUE);
    drawing.text(LEFT, 38.0, "work in a frame: " + summary(times(frames, &FrameTime::work)));
    for (std::size_t i = 0; i < frames.size(); ++i) {
        drawing.dot(i, frames[i].work);
    }
}

} // namespace

std::string summary(std::vector<double> seconds) {
    if (seconds.empty()) {
        return "none";
    }
    std::sort(seconds.begin(), seconds.end());
    const auto at = [&seconds](double share) {
        const auto last = static_cast<double>(seconds.size() - 1);
        return seconds[static_cast<std::size_t>(std::lround(share * last))] * 1e3;
    };
    char text[128];
    std::snprintf(text, sizeof text, "least %.3g, median %.3g, 99 %% within %.3g, worst %.3g ms",
                  at(0.0), at(0.5), at(0.99), at(1.0));
    return text;
}

void draw_chart(const std::vector<FrameTime>& frames, const std::string& file_name) {
    const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(WIDTH),
                                   static_cast<int>(HEIGHT)),
        cairo_surface_destroy);
    const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context(cairo_create(surface.get()),
                                                                     cairo_destroy);
    cairo_set_source_rgb(context.get(), 1.0, 1.0, 1.0);
    cairo_paint(context.get());
    cairo_set_line_width(context.get(), 1.0);
    cairo_select_font_face(context.get(), "sans", CAIRO_FONT_SLANT_NORMAL,
                           CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(context.get(), 13.0);
    draw(Drawing(context.get(), frames.size()), frames);
    if (cairo_surface_write_to_png(surface.get(), file_name.c_str()) != CAIRO_STATUS_SUCCESS) {
        throw std::runtime_error("cannot write " + file_name);
    }
}

} // namespace tarvik::bench
