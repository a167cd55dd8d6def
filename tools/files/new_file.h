// A file that appears whole or not at all.
#pragma once

#include <cstddef>
#include <cstdio>
#include <filesystem>

namespace tarvik {

/// Writes beside the target and takes its place in commit(), so that an earlier file of that name
/// stays whole until the new one is complete. Without a commit, and on SIGINT, SIGTERM or SIGHUP,
/// the unfinished file is removed. A target that is no regular file (a device, a pipe) is written
/// directly. One NewFile at a time; everything it cannot do is thrown as a Failure.
class NewFile {
  public:
    explicit NewFile(const std::filesystem::path& target);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    void write(const void* bytes, std::size_t count);
    void commit();

    /// For libraries that write to a stream by themselves; report what they could not with fail().
    std::FILE* stream() {
        return stream_;
    }
    /// Throws the Failure for a write that went wrong, by the system's last error.
    [[noreturn]] void fail() const;

  private:
    std::filesystem::path shown_;     ///< as the user named it, for messages
    std::filesystem::path target_;    ///< where the finished file goes
    std::filesystem::path temporary_; ///< empty when the target is written directly
    std::FILE* stream_ = nullptr;
};

} // namespace tarvik
