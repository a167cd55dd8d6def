// Whole files in memory.
#include "tools/files/whole_file.h"

#include "tools/files/failure.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

namespace tarvik {

std::vector<std::uint8_t> read_whole_file(const std::filesystem::path& path, std::size_t largest) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"),
                                                               std::fclose);
    const auto failure = [&] {
        return Failure("cannot read " + path.string() + ": " + std::strerror(errno));
    };
    if (file == nullptr) {
        throw failure();
    }
    std::error_code unknown_size; // of a pipe, say: then it grows as it comes
    const std::uintmax_t size = std::filesystem::file_size(path, unknown_size);
    const auto too_large = [&] {
        return Failure(path.string() + " has more than " + std::to_string(largest) + " bytes");
    };
    if (!unknown_size && size > largest) {
        throw too_large();
    }
    std::vector<std::uint8_t> bytes;
    std::size_t used = 0;
    do {
        // One byte more than expected, so that the end of the file is seen without growing.
        bytes.resize(used == 0 && !unknown_size ? static_cast<std::size_t>(size) + 1
                                                : used + used / 2 + 65536);
        used += std::fread(bytes.data() + used, 1, bytes.size() - used, file.get());
        if (std::ferror(file.get()) != 0) {
            throw failure();
        }
        if (used > largest) { // something that has no end, like a device
            throw too_large();
        }
    } while (std::feof(file.get()) == 0);
    bytes.resize(used);
    return bytes;
}

} // namespace tarvik
