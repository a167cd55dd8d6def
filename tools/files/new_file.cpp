// A file that appears whole or not at all.
#include "tools/files/new_file.h"

#include "tools/files/failure.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvik {
namespace {

namespace fs = std::filesystem;

// What the signal handler removes; the first byte is 0 while there is nothing to remove.
char unfinished[4096];

void remove_unfinished_and_end(int signal_number) {
    if (unfinished[0] != 0) {
        unlink(unfinished);
    }
    std::signal(signal_number, SIG_DFL);
    std::raise(signal_number);
}

void handle_interruptions() {
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        // A signal that our parent had ignored (nohup) stays ignored.
        if (std::signal(number, remove_unfinished_and_end) == SIG_IGN) {
            std::signal(number, SIG_IGN);
        }
    }
    // A file size limit is then an error of the write instead of the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);
}

[[noreturn]] void cannot_write(const fs::path& path, const char* reason) {
    throw Failure("cannot write " + path.string() + ": " + reason);
}

// Permissions of a file that any program creates: everything that the umask leaves.
mode_t usual_mode() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

} // namespace

NewFile::NewFile(const fs::path& target) : shown_(target), target_(target) {
    std::error_code error;
    const fs::file_status status = fs::status(target, error);
    if (fs::is_directory(status)) {
        cannot_write(shown_, "it is a folder");
    }
    mode_t mode = usual_mode();
    if (fs::exists(status)) {
        if (!fs::is_regular_file(status)) {
            stream_ = std::fopen(target.c_str(), "wb");
            if (stream_ == nullptr) {
                fail();
            }
            return;
        }
        if (access(target.c_str(), W_OK) != 0) {
            fail();
        }
        target_ = fs::canonical(target); // a link stays a link, the file behind it is replaced
        mode = static_cast<mode_t>(status.permissions());
    }

    handle_interruptions();
    const fs::path folder = target_.has_parent_path() ? target_.parent_path() : fs::path(".");
    std::string name = (folder / ".").string();
    name += target_.filename().string();
    name += ".XXXXXX";
    const int descriptor = mkstemp(name.data());
    if (descriptor < 0) {
        fail();
    }
    temporary_ = name;
    if (name.size() < sizeof unfinished) {
        std::memcpy(unfinished, name.c_str(), name.size() + 1);
    }
    stream_ = fdopen(descriptor, "wb");
    if (stream_ == nullptr || fchmod(descriptor, mode) != 0) {
        fail();
    }
}

NewFile::~NewFile() {
    if (stream_ != nullptr) {
        std::fclose(stream_);
    }
    if (!temporary_.empty()) {
        unlink(temporary_.c_str());
        unfinished[0] = 0;
    }
}

void NewFile::write(const void* bytes, std::size_t count) {
    if (std::fwrite(bytes, 1, count, stream_) != count) {
        fail();
    }
}

void NewFile::commit() {
    if (std::fflush(stream_) != 0 || std::ferror(stream_) != 0) {
        fail();
    }
    const int closed = std::fclose(stream_);
    stream_ = nullptr;
    if (closed != 0) {
        fail();
    }
    if (!temporary_.empty()) {
        if (std::rename(temporary_.c_str(), target_.c_str()) != 0) {
            fail();
        }
        temporary_.clear();
        unfinished[0] = 0;
    }
}

void NewFile::fail() const {
    cannot_write(shown_, errno != 0 ? std::strerror(errno) : "the write failed");
}

} // namespace tarvik
