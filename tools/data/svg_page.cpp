// A drawing rendered by librsvg and cairo.
#include "tools/data/svg_page.h"

#include "tools/data/cell_rule.h"
#include "tools/files/failure.h"
#include "tools/track/track.h"

#include <cairo.h>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <librsvg/rsvg.h>
#include <string>

namespace tarvik {
namespace {

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

void to_cells(cairo_surface_t* surface, std::vector<std::uint8_t>& cells) {
    const unsigned char* pixels = cairo_image_surface_get_data(surface);
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface));
    std::uint8_t* cell = cells.data();
    for (std::size_t row = 0; row < cells.size() / MAP_SIDE; ++row) {
        for (std::size_t column = 0; column < MAP_SIDE; ++column) {
            std::uint32_t pixel = 0; // 0xXXRRGGBB in the machine's byte order
            std::memcpy(&pixel, pixels + row * stride + column * sizeof pixel, sizeof pixel);
            const int measure =
                grass_measure(static_cast<int>(pixel >> 16 & 255),
                              static_cast<int>(pixel >> 8 & 255), static_cast<int>(pixel & 255));
            *cell++ = measure >= 0 ? CELL_GRASS : CELL_ROAD;
        }
    }
}

} // namespace

struct SvgPage::Rendering {
    Owned<RsvgHandle> handle;
    double size;
    Owned<cairo_surface_t> surface;
};

SvgPage::SvgPage(const std::filesystem::path& drawing, int band_rows)
    : drawing_(drawing),
      cells_(static_cast<std::size_t>(MAP_SIDE) * static_cast<std::size_t>(band_rows)) {
    Owned<RsvgHandle> handle = open_drawing(drawing);
    const double size = own_size(handle.get(), drawing);
    Owned<cairo_surface_t> surface(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, MAP_SIDE, band_rows));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) {
        throw Failure(std::string("cannot draw: ") +
                      cairo_status_to_string(cairo_surface_status(surface.get())));
    }
    rendering_ =
        std::make_unique<Rendering>(Rendering{std::move(handle), size, std::move(surface)});
}

SvgPage::~SvgPage() = default;

const std::vector<std::uint8_t>& SvgPage::band(int first_row) {
    render_band(rendering_->handle.get(), rendering_->surface.get(), rendering_->size, first_row,
                drawing_);
    to_cells(rendering_->surface.get(), cells_);
    return cells_;
}

} // namespace tarvik
