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
constexpr std::size_t COLOUR_STEP = 4; // no line of a road is thinner

template <typename T>
using Owned = std::unique_ptr<T, Release>;

std::string first_line(const GError* error) {
    const std::string text = error != nullptr ? error->message : "unknown reason";
    return text.substr(0, text.find('\n'));
}

Owned<RsvgHandle> open_drawing(const std::filesystem::path& path) {
    // librsvg's own message about an unreadable file does not name it.
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
        throw Failure(path.string() +
                      " is not an SVG drawing, or only half of one; save it as SVG again: " +
                      first_line(error));
    }
    return handle;
}

bool is_square(double width, double height) {
    return width > 0 && std::abs(width - height) <= 0.001 * width;
}

std::string size_text(double width, double height) {
    char text[64];
    std::snprintf(text, sizeof text, "%g by %g", width, height);
    return text;
}

struct Page {
    double size = 0; ///< to render it at: librsvg itself scales a drawing that has a viewBox
    Units units;
};

// The square that becomes the map.
Page page_of(RsvgHandle* handle, const std::filesystem::path& path) {
    gboolean has_width = FALSE;
    gboolean has_height = FALSE;
    gboolean has_view_box = FALSE;
    RsvgLength width{};
    RsvgLength height{};
    RsvgRectangle page{};
    rsvg_handle_get_intrinsic_dimensions(handle, &has_width, &width, &has_height, &height,
                                         &has_view_box, &page);
    if (has_view_box == FALSE) {
        page = {};
        if (rsvg_handle_get_intrinsic_size_in_pixels(handle, &page.width, &page.height) == FALSE) {
            throw Failure(path.string() + " has no size: give it a viewBox, as in viewBox=\"0 0 " +
                          std::to_string(MAP_SIDE) + " " + std::to_string(MAP_SIDE) + "\"");
        }
    }
    if (!is_square(page.width, page.height)) {
        throw Failure(path.string() + " is not square: its page is " +
                      size_text(page.width, page.height) +
                      "; begin with a copy of docs/empty-track.svg, or make the page square");
    }
    return {has_view_box != FALSE ? MAP_SIDE : page.width,
            {MAP_SIDE / page.width, page.x, page.y, "units"}};
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

void to_cells(cairo_surface_t* surface, std::vector<std::uint8_t>& cells, GrassColours& colours) {
    const unsigned char* pixels = cairo_image_surface_get_data(surface);
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface));
    const auto row_at = [&](std::size_t row) { // 0xXXRRGGBB in the machine's byte order
        return reinterpret_cast<const std::uint32_t*>(pixels + row * stride);
    };
    std::uint8_t* cell = cells.data();
    std::uint32_t last = *row_at(0);
    std::uint8_t last_cell = grass_measure(last) >= 0 ? CELL_GRASS : CELL_ROAD;
    for (std::size_t row = 0; row < cells.size() / MAP_SIDE; ++row) {
        const std::uint32_t* pixel = row_at(row);
        for (std::size_t column = 0; column < MAP_SIDE; ++column) {
            if (pixel[column] != last) { // most are alike
                last = pixel[column];
                last_cell = grass_measure(last) >= 0 ? CELL_GRASS : CELL_ROAD;
            }
            *cell++ = last_cell;
        }
        if (row % COLOUR_STEP == 1) {
            colours.look_at(pixel, row_at(row - 1), MAP_SIDE, COLOUR_STEP);
        }
    }
}

} // namespace

struct SvgPage::Rendering {
    Owned<RsvgHandle> handle;
    double size = 0;
    Owned<cairo_surface_t> surface;
};

SvgPage::SvgPage(const std::filesystem::path& drawing, int band_rows)
    : drawing_(drawing),
      cells_(static_cast<std::size_t>(MAP_SIDE) * static_cast<std::size_t>(band_rows)) {
    Owned<RsvgHandle> handle = open_drawing(drawing);
    const Page page = page_of(handle.get(), drawing);
    units_ = page.units;
    Owned<cairo_surface_t> surface(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, MAP_SIDE, band_rows));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) {
        throw Failure(std::string("cannot draw: ") +
                      cairo_status_to_string(cairo_surface_status(surface.get())));
    }
    rendering_ =
        std::make_unique<Rendering>(Rendering{std::move(handle), page.size, std::move(surface)});
}

SvgPage::~SvgPage() = default;

const std::vector<std::uint8_t>& SvgPage::band(int first_row) {
    render_band(rendering_->handle.get(), rendering_->surface.get(), rendering_->size, first_row,
                drawing_);
    to_cells(rendering_->surface.get(), cells_, colours_);
    return cells_;
}

} // namespace tarvik
