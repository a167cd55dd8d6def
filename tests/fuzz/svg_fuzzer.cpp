// SVG drawings of any content as tracks: the page is opened and measured as for a whole map, and a
// few bands of the map are rendered.
#include "tests/tools/temporary_folder.h"
#include "tools/data/page.h"
#include "tools/files/failure.h"
#include "tools/track/track.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

namespace {

using namespace tarvik;

constexpr int BAND_ROWS = 4;

/// What keeps librsvg and cairo themselves busy for minutes on a page of this size.
bool takes_long(std::string_view drawing) {
    constexpr std::string_view WORDS[] = {"filter", "dash", "pattern", "mask", "fe"};
    return std::ranges::any_of(
        WORDS, [&](std::string_view word) { return drawing.find(word) != drawing.npos; });
}

void render(const std::filesystem::path& drawing) {
    const std::unique_ptr<Page> page = open_svg(drawing, BAND_ROWS);
    std::vector<std::uint8_t> cells(static_cast<std::size_t>(BAND_ROWS * MAP_SIDE));
    for (const int row : {0, BOX_TOP, MAP_SIDE - BAND_ROWS}) {
        page->draw(row, cells);
        if (std::ranges::any_of(cells, [](std::uint8_t cell) { return cell > CELL_GRASS; })) {
            std::abort(); // no cells of a map
        }
    }
}

} // namespace

/// What the libraries keep for themselves: fonts, and the values of XML entities.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\nleak:libpango\nleak:libxml2";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TemporaryFolder folder;
    const std::string text(data, data + size);
    if (takes_long(text)) {
        return -1;
    }
    write_file(folder / "drawing.svg", text);
    try {
        render(folder / "drawing.svg");
    } catch (const Failure&) { // what the user is told in a line
    }
    return 0;
}
