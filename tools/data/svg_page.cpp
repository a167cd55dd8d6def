// A drawing rendered by librsvg and cairo.
#include "tools/data/cell_rule.h"
#include "tools/data/page.h"
#include "tools/files/failure.h"
#include "tools/files/whole_file.h"
#include "tools/track/track.h"

#include <cairo.h>
#include <cmath>
#include <librsvg/rsvg.h>
#include <sstream>
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
    open_file(path); // librsvg's own message about an unreadable file does not name it
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

class SvgPage : public Page {
  public:
    SvgPage(const std::filesystem::path& drawing, int band_rows)
        : drawing_(drawing), handle_(open_drawing(drawing)),
          surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, MAP_SIDE, band_rows)) {
        measure();
        const cairo_status_t status = cairo_surface_status(surface_.get());
        if (status != CAIRO_STATUS_SUCCESS) {
            throw Failure(std::string("cannot draw: ") + cairo_status_to_string(status));
        }
    }

    void draw(int first_row, std::span<std::uint8_t> cells) override {
        render(first_row);
        const unsigned char* pixels = cairo_image_surface_get_data(surface_.get());
        const auto stride =
            static_cast<std::size_t>(cairo_image_surface_get_stride(surface_.get()));
        const auto row_at = [&](std::size_t row) { // 0xXXRRGGBB in the machine's byte order
            return reinterpret_cast<const std::uint32_t*>(pixels + row * stride);
        };
        std::uint32_t last = ~*row_at(0);
        std::uint8_t last_cell = CELL_GRASS;
        for (std::size_t row = 0; row < cells.size() / MAP_SIDE; ++row) {
            const std::uint32_t* pixel = row_at(row);
            for (std::size_t column = 0; column < MAP_SIDE; ++column) {
                if (pixel[column] != last) { // most are alike
                    last = pixel[column];
                    last_cell = grass_measure(last) >= 0 ? CELL_GRASS : CELL_ROAD;
                }
                cells[row * MAP_SIDE + column] = last_cell;
            }
            if (row % COLOUR_STEP == 1) {
                colours.look_at(pixel, row_at(row - 1), MAP_SIDE, COLOUR_STEP);
            }
        }
    }

  private:
    /// Finds the square that becomes the map.
    void measure() {
        gboolean has_width = FALSE;
        gboolean has_height = FALSE;
        gboolean has_view_box = FALSE;
        RsvgLength width{};
        RsvgLength height{};
        RsvgRectangle page{};
        rsvg_handle_get_intrinsic_dimensions(handle_.get(), &has_width, &width, &has_height,
                                             &height, &has_view_box, &page);
        if (has_view_box == FALSE) {
            page = {};
            if (rsvg_handle_get_intrinsic_size_in_pixels(handle_.get(), &page.width,
                                                         &page.height) == FALSE) {
                throw Failure(drawing_.string() +
                              " has no size: give it a viewBox, as in viewBox=\"0 0 10000 10000\"");
            }
        }
        if (!(page.width > 0 && std::abs(page.width - page.height) <= 0.001 * page.width)) {
            std::ostringstream text;
            text << drawing_.string() << " is not square: its page is " << page.width << " by "
                 << page.height
                 << "; begin with a copy of docs/empty-track.svg, or make the page square";
            throw Failure(text.str());
        }
        units = {MAP_SIDE / page.width, page.x, page.y, "units"};
        size_ = has_view_box != FALSE ? MAP_SIDE : page.width;
    }

    void render(int first_row) {
        const Owned<cairo_t> context(cairo_create(surface_.get()));
        cairo_set_source_rgb(context.get(), 1, 1, 1);
        cairo_paint(context.get());
        cairo_translate(context.get(), 0, -first_row);
        cairo_scale(context.get(), MAP_SIDE / size_, MAP_SIDE / size_);
        const RsvgRectangle page{0, 0, size_, size_};
        GError* error = nullptr;
        if (rsvg_handle_render_document(handle_.get(), context.get(), &page, &error) == FALSE) {
            const Owned<GError> owned(error);
            throw Failure("cannot draw " + drawing_.string() + ": " + first_line(error));
        }
        cairo_surface_flush(surface_.get());
    }

    std::filesystem::path drawing_; ///< for messages
    Owned<RsvgHandle> handle_;
    Owned<cairo_surface_t> surface_;
    double size_ = 0; ///< to render it at: librsvg itself scales a drawing that has a viewBox
};

} // namespace

std::unique_ptr<Page> open_svg(const std::filesystem::path& drawing, int band_rows) {
    return std::make_unique<SvgPage>(drawing, band_rows);
}

} // namespace tarvik
