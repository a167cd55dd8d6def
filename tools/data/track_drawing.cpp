// Track maps from SVG drawings, rendered by librsvg and cairo in bands: the whole picture at four
// bytes a pixel would take 400 MB.
#include "tools/data/track_drawing.h"

#include "tools/data/cell_rule.h"
#include "tools/files/failure.h"
#include "tools/files/new_file.h"
#include "tools/files/progress.h"
#include "tools/track/track.h"

#include <algorithm>
#include <cairo.h>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <librsvg/rsvg.h>
#include <memory>
#include <string>
#include <vector>

namespace tarvik {
namespace {

constexpr int BAND_ROWS = 250; // 10 MB of pixels
static_assert(MAP_SIDE % BAND_ROWS == 0);

struct Release {
    void operator()(RsvgHandle* handle) const {
        g_object_unref(handle);
    }
    void operator()(GError* error) const {
        g_error_free(error);
    }
    void operator()(cairo_surface_t* surface) const {
        cairo_surface_destroy(surface);
    }
    void operator()(cairo_t* context) const {
        cairo_destroy(context);
    }
};
template <typename T>
using Owned = std::unique_ptr<T, Release>;

std::string first_line(const GError* error) {
    const std::string text = error != nullptr ? error->message : "unknown reason";
    return text.substr(0, text.find('\n'));
}

Owned<RsvgHandle> open_drawing(const std::filesystem::path& path) {
    // librsvg's own words for a file that cannot be read do not name it.
    std::FILE* file = std::fopen(path.c_str(), "rb");
    const bool readable = file != nullptr && (std::fgetc(file) != EOF || std::ferror(file) == 0);
    const int reason = errno;
    if (file != nullptr) {
        std::fclose(file);
    }
    if (!readable) {
        throw Failure("cannot read " + path.string() + ": " + std::strerror(reason));
    }
    GError* error = nullptr;
    Owned<RsvgHandle> handle(rsvg_handle_new_from_file(path.c_str(), &error));
    if (handle == nullptr) {
        const Owned<GError> owned(error);
        throw Failure(path.string() + " is not an SVG drawing: " + first_line(error));
    }
    return handle;
}

bool is_square(double width, double height) {
    return width > 0 && std::abs(width - height) <= 0.001 * width;
}

// The side, in user units, of the square that becomes the map. librsvg scales a drawing with a
// viewBox to whatever size it is asked for; one with only a width and a height we scale ourselves.
double own_size(RsvgHandle* handle, const std::filesystem::path& path) {
    gboolean has_width = FALSE;
    gboolean has_height = FALSE;
    gboolean has_view_box = FALSE;
    RsvgLength width{};
    RsvgLength height{};
    RsvgRectangle view_box{};
    rsvg_handle_get_intrinsic_dimensions(handle, &has_width, &width, &has_height, &height,
                                         &has_view_box, &view_box);
    double pixel_width = 0;
    double pixel_height = 0;
    const bool sized =
        rsvg_handle_get_intrinsic_size_in_pixels(handle, &pixel_width, &pixel_height) != FALSE;
    if (!sized && !has_view_box) {
        throw Failure(path.string() + " has no size: give it a viewBox, as in viewBox=\"0 0 " +
                      std::to_string(MAP_SIDE) + " " + std::to_string(MAP_SIDE) + "\"");
    }
    if (has_view_box) {
        pixel_width = view_box.width;
        pixel_height = view_box.height;
    }
    if (!is_square(pixel_width, pixel_height)) {
        char size[64];
        std::snprintf(size, sizeof size, "%g by %g", pixel_width, pixel_height);
        throw Failure(path.string() + " is not square: its page is " + size);
    }
    return has_view_box ? MAP_SIDE : pixel_width;
}

void render_band(RsvgHandle* handle, cairo_surface_t* surface, double size, int first_row,
                 const std::filesystem::path& path) {
    const Owned<cairo_t> context(cairo_create(surface));
    cairo_set_source_rgb(context.get(), 1, 1, 1);
    cairo_paint(context.get());
    cairo_translate(context.get(), 0, -first_row);
    cairo_scale(context.get(), MAP_SIDE / size, MAP_SIDE / size);
    const RsvgRectangle page{0, 0, size, size};
    GError* error = nullptr;
    if (rsvg_handle_render_document(handle, context.get(), &page, &error) == FALSE) {
        const Owned<GError> owned(error);
        throw Failure("cannot draw " + path.string() + ": " + first_line(error));
    }
    cairo_surface_flush(surface);
}

// Whether there is any road in the band.
bool band_to_cells(cairo_surface_t* surface, std::vector<std::uint8_t>& cells) {
    const unsigned char* pixels = cairo_image_surface_get_data(surface);
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface));
    std::uint8_t* cell = cells.data();
    for (std::size_t row = 0; row < BAND_ROWS; ++row) {
        for (std::size_t column = 0; column < MAP_SIDE; ++column) {
            std::uint32_t pixel = 0; // 0xXXRRGGBB in the machine's byte order
            std::memcpy(&pixel, pixels + row * stride + column * sizeof pixel, sizeof pixel);
            const int measure =
                grass_measure(static_cast<int>(pixel >> 16 & 255),
                              static_cast<int>(pixel >> 8 & 255), static_cast<int>(pixel & 255));
            *cell++ = measure >= 0 ? CELL_GRASS : CELL_ROAD;
        }
    }
    return std::ranges::find(cells, CELL_ROAD) != cells.end();
}

} // namespace

bool build_track(const std::filesystem::path& drawing, const std::filesystem::path& map) {
    const Owned<RsvgHandle> handle = open_drawing(drawing);
    const double size = own_size(handle.get(), drawing);
    const Owned<cairo_surface_t> surface(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, MAP_SIDE, BAND_ROWS));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) {
        throw Failure(std::string("cannot draw: ") +
                      cairo_status_to_string(cairo_surface_status(surface.get())));
    }
    NewFile file(map);
    Progress progress(drawing.string());
    std::vector<std::uint8_t> cells(static_cast<std::size_t>(MAP_SIDE) * BAND_ROWS);
    bool has_road = false;
    progress.show(0, MAP_SIDE);
    for (int row = 0; row < MAP_SIDE; row += BAND_ROWS) {
        render_band(handle.get(), surface.get(), size, row, drawing);
        has_road = band_to_cells(surface.get(), cells) || has_road;
        file.write(cells.data(), cells.size());
        progress.show(row + BAND_ROWS, MAP_SIDE);
    }
    file.commit();
    return has_road;
}

} // namespace tarvik
