// Track maps from SVG drawings, in bands: the whole picture at four bytes a pixel would take 400
// MB.
#include "tools/data/track_drawing.h"

#include "tools/data/svg_page.h"
#include "tools/files/new_file.h"
#include "tools/files/progress.h"
#include "tools/track/track.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace tarvik {
namespace {

constexpr int BAND_ROWS = 250; // 10 MB of pixels
static_assert(MAP_SIDE % BAND_ROWS == 0);

} // namespace

bool build_track(const std::filesystem::path& drawing, const std::filesystem::path& map) {
    SvgPage page(drawing, BAND_ROWS);
    NewFile file(map);
    Progress progress(drawing.string());
    bool has_road = false;
    progress.show(0, MAP_SIDE);
    for (int row = 0; row < MAP_SIDE; row += BAND_ROWS) {
        const std::vector<std::uint8_t>& cells = page.band(row);
        has_road = has_road || std::ranges::find(cells, CELL_ROAD) != cells.end();
        file.write(cells.data(), cells.size());
        progress.show(row + BAND_ROWS, MAP_SIDE);
    }
    file.commit();
    return has_road;
}

} // namespace tarvik
