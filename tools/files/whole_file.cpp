// A new file is written beside its target and then takes its place. It is not synced to the disk,
// which would take a second for a map that the next save of the drawing replaces.
#include "tools/files/whole_file.h"

#include "tools/files/failure.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <unistd.h>

namespace tarvik {
namespace {

namespace fs = std::filesystem;

/// While one of these exists, Ctrl-C and the like wait.
class Uninterrupted {
  public:
    Uninterrupted() {
        sigset_t waiting;
        sigemptyset(&waiting);
        for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
            sigaddset(&waiting, number);
        }
        sigprocmask(SIG_BLOCK, &waiting, &before_);
        // A limit on the size of files is then an error of the write, not the end of the program.
        std::signal(SIGXFSZ, SIG_IGN);
    }
    ~Uninterrupted() {
        sigprocmask(SIG_SETMASK, &before_, nullptr);
    }
    Uninterrupted(const Uninterrupted&) = delete;
    Uninterrupted& operator=(const Uninterrupted&) = delete;

  private:
    sigset_t before_{};
};

bool write(const fs::path& path, std::span<const std::uint8_t> bytes) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) {
        return false;
    }
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    return std::fclose(file) == 0 && written;
}

} // namespace

OpenFile open_file(const fs::path& path) {
    OpenFile file(std::fopen(path.c_str(), "rb"), std::fclose);
    // A folder can be opened, but not read.
    if (file == nullptr ||
        (std::ungetc(std::fgetc(file.get()), file.get()) == EOF && std::ferror(file.get()) != 0)) {
        throw Failure("cannot read " + path.string() + ": " + std::strerror(errno));
    }
    return file;
}

void write_whole_file(const fs::path& path, std::span<const std::uint8_t> bytes) {
    std::error_code error;
    const fs::file_status earlier = fs::status(path, error);
    const bool replaces = fs::is_regular_file(earlier);
    const bool is_direct = fs::exists(earlier) && !replaces;
    const fs::path target = replaces ? fs::canonical(path) : path; // a link stays a link
    fs::path beside = target;
    beside.concat(".").concat(std::to_string(getpid()));

    const Uninterrupted uninterrupted;
    bool done = false;
    if (is_direct) {
        done = write(target, bytes);
    } else if (!replaces || access(target.c_str(), W_OK) == 0) {
        done = write(beside, bytes);
        if (done && replaces) {
            fs::permissions(beside, earlier.permissions(), error);
        }
        done = done && std::rename(beside.c_str(), target.c_str()) == 0;
    }
    if (!done) {
        const int reason = errno;
        fs::remove(beside, error);
        throw Failure("cannot write " + path.string() + ": " + std::strerror(reason));
    }
}

std::string ending(const fs::path& path) {
    std::string text = path.extension().string();
    std::ranges::transform(text, text.begin(), [](unsigned char letter) {
        return static_cast<char>(std::tolower(letter));
    });
    return text;
}

} // namespace tarvik
