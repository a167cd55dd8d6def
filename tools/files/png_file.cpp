// PNG pictures as plain bytes, through libpng's simplified interface.
#include "tools/files/png_file.h"

#include "tools/files/failure.h"
#include "tools/files/new_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <png.h>
#include <string>

namespace tarvik {
namespace {

struct CloseFile {
    void operator()(std::FILE* file) const {
        std::fclose(file);
    }
};

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
    NewFile file(path);
    errno = 0;
    if (png_image_write_to_stdio(&image, file.stream(), 0, pixels.data(), 0, colours) == 0) {
        file.fail();
    }
    file.commit();
}

} // namespace

Picture read_png(const std::filesystem::path& path, int largest_side) {
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
    std::uint8_t signature[8] = {};
    if (file == nullptr ||
        (std::fread(signature, 1, sizeof signature, file.get()) == 0 && std::ferror(file.get()))) {
        throw Failure("cannot read " + path.string() + ": " + std::strerror(errno));
    }
    if (png_sig_cmp(signature, 0, sizeof signature) != 0) {
        throw Failure(path.string() + " is not a PNG picture: export it as PNG");
    }
    std::rewind(file.get());

    PngImage image;
    const auto damaged = [&] { return Failure(path.string() + " is damaged: " + image.message); };
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

void write_png(const std::filesystem::path& path, const Picture& picture) {
    write(path, picture.width, picture.height, PNG_FORMAT_RGBA, picture.rgba, nullptr);
}

void write_png(const std::filesystem::path& path, const IndexedPicture& picture) {
    write(path, picture.width, picture.height, PNG_FORMAT_RGB_COLORMAP, picture.pixels,
          picture.colours.data());
}

} // namespace tarvik
