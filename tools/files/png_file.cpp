// PNG pictures as plain bytes, through libpng's simplified interface.
#include "tools/files/png_file.h"

#include "tools/files/failure.h"
#include "tools/files/whole_file.h"

#include <cstring>
#include <png.h>
#include <string>

namespace tarvik {
namespace {

struct PngImage : png_image {
    PngImage() : png_image{} {
        version = PNG_IMAGE_VERSION;
    }
    ~PngImage() {
        png_image_free(this);
    }
    PngImage(const PngImage&) = delete;
    PngImage& operator=(const PngImage&) = delete;
};

void write(const std::filesystem::path& path, int width, int height, png_uint_32 format,
           const std::vector<std::uint8_t>& pixels, const void* colours) {
    PngImage image;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = format;
    image.colormap_entries = colours == nullptr ? 0 : 256;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::vector<std::uint8_t> bytes(size);
    if (png_image_write_to_memory(&image, bytes.data(), &size, 0, pixels.data(), 0, colours) == 0) {
        throw Failure("cannot write " + path.string() + ": " + image.message);
    }
    write_whole_file(path, {bytes.data(), size});
}

} // namespace

Picture read_png(const std::filesystem::path& path, int largest_side) {
    const OpenFile file = open_file(path);
    PngImage image;
    const auto damaged = [&] {
        return Failure(path.string() +
                       " is damaged or not a PNG picture: export it as PNG: " + image.message);
    };
    if (png_image_begin_read_from_stdio(&image, file.get()) == 0) {
        throw damaged();
    }
    const auto largest = static_cast<png_uint_32>(largest_side);
    if (image.width > largest || image.height > largest) {
        throw Failure(path.string() + " is " + std::to_string(image.width) + " by " +
                      std::to_string(image.height) + " pixels, more than the " +
                      std::to_string(largest) + " by " + std::to_string(largest) + " allowed");
    }
    image.format = PNG_FORMAT_RGBA;
    Picture picture;
    picture.width = static_cast<int>(image.width);
    picture.height = static_cast<int>(image.height);
    picture.rgba.resize(PNG_IMAGE_SIZE(image));
    // Missing picture data is only a warning to libpng, which then makes the pixels up.
    if (png_image_finish_read(&image, nullptr, picture.rgba.data(), 0, nullptr) == 0 ||
        std::strncmp(image.message, "IDAT", 4) == 0) {
        throw damaged();
    }
    return picture;
}

Picture read_square_png(const std::filesystem::path& path, int largest_side) {
    Picture picture = read_png(path, largest_side);
    if (picture.width != picture.height) {
        throw Failure(path.string() + " is not square: " + std::to_string(picture.width) + " by " +
                      std::to_string(picture.height) + " pixels");
    }
    return picture;
}

void write_png(const std::filesystem::path& path, const Picture& picture) {
    write(path, picture.width, picture.height, PNG_FORMAT_RGBA, picture.rgba, nullptr);
}

void write_png(const std::filesystem::path& path, const IndexedPicture& picture) {
    write(path, picture.width, picture.height, PNG_FORMAT_RGB_COLORMAP, picture.pixels,
          picture.colours.data());
}

} // namespace tarvik
