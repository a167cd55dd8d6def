// Writing a graphics archive as the game reads it.
#include "tests/support/archive.h"

#include "render/sprite.h"

#include <algorithm>

namespace tarvik::test {

std::vector<std::uint8_t> archive_of(const std::vector<Image>& images) {
    std::vector<std::uint8_t> archive;
    for (int number = 0; number < SPRITE_COUNT; ++number) {
        const auto image = std::find_if(images.begin(), images.end(), [number](const Image& each) {
            return each.number == number;
        });
        if (image == images.end()) {
            archive.insert(archive.end(), 12, 0);
            continue;
        }
        const std::int32_t header[] = {image->width, image->height, image->bytes_per_pixel};
        const auto* header_bytes = reinterpret_cast<const std::uint8_t*>(header);
        archive.insert(archive.end(), header_bytes, header_bytes + sizeof header);
        archive.insert(archive.end(), image->bytes.begin(), image->bytes.end());
    }
    return archive;
}

Image plain_image(int number, int side, std::uint32_t colour) {
    Image image{number, side, side, 3, {}};
    for (int i = 0; i < side * side; ++i) {
        for (const unsigned shift : {16U, 8U, 0U}) {
            image.bytes.push_back(static_cast<std::uint8_t>(colour >> shift));
        }
    }
    return image;
}

} // namespace tarvik::test
