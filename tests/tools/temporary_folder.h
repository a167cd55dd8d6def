// A folder of a test's own that goes away with it.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tarvik {

class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] std::filesystem::path operator/(const std::string& name) const {
        return path_ / name;
    }
    [[nodiscard]] const std::filesystem::path& path() const {
        return path_;
    }
    /// The names of all that is in it, sorted.
    [[nodiscard]] std::vector<std::string> names() const;

  private:
    std::filesystem::path path_;
};

void write_file(const std::filesystem::path& path, const std::string& bytes);
std::string read_file(const std::filesystem::path& path);

} // namespace tarvik
