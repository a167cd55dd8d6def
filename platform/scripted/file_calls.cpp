// Files in memory or, with the C library, on disk.
#include "platform/scripted/recording.h"
#include "platform/scripted/scripted.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

namespace tarvik::scripted {

bool use_memory_files = false;
std::map<std::string, File> memory_files;
bool memory_folder_exists = true;

namespace {

/// One of the two is set.
struct DataStream {
    const File* memory = nullptr;
    std::uint64_t position = 0;
    std::FILE* disk = nullptr;
};

std::string with_slashes(std::string name) {
    std::replace(name.begin(), name.end(), '\\', '/');
    return name.starts_with("./") ? name.substr(2) : name;
}

bool open_in_memory(const std::string& name, DataStream& file) {
    if (!memory_folder_exists) {
        return false;
    }
    File& found = memory_files[name]; // created empty where missing
    file.memory = &found;
    return !found.read_only;
}

bool open_on_disk(const std::string& name, DataStream& file) {
    std::error_code unknown;
    const auto status = std::filesystem::status(name, unknown);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        return false; // reading a pipe would wait for ever
    }
    file.disk = std::fopen(name.c_str(), "r+b");
    if (file.disk == nullptr) {
        file.disk = std::fopen(name.c_str(), "w+xb"); // only a missing file is created
    }
    if (file.disk == nullptr) {
        return false;
    }
    std::setvbuf(file.disk, nullptr, _IONBF, 0); // straight into the game's buffers
    return true;
}

DWORD read_memory(DataStream& file, void* buffer, DWORD wanted) {
    const std::vector<std::uint8_t>& bytes = file.memory->bytes;
    const std::uint64_t left = bytes.size() * file.memory->times - file.position;
    const auto count = static_cast<DWORD>(std::min<std::uint64_t>(left, wanted));
    auto* target = static_cast<std::uint8_t*>(buffer);
    for (std::size_t missing = count; missing > 0;) {
        const auto at = static_cast<std::size_t>(file.position % bytes.size());
        const std::size_t piece = std::min(missing, bytes.size() - at);
        target = std::copy_n(bytes.data() + at, piece, target);
        file.position += piece;
        missing -= piece;
    }
    return count;
}

} // namespace

} // namespace tarvik::scripted

using namespace tarvik::scripted;

extern "C" {

HANDLE WINAPI CreateFileA(LPCSTR name, DWORD access, DWORD share_mode,
                          LPSECURITY_ATTRIBUTES security, DWORD disposition, DWORD flags,
                          HANDLE template_file) {
    record("CreateFileA \"%s\" access=%u share=%u %s disposition=%u flags=0x%X %s", name,
           static_cast<UINT>(access), static_cast<UINT>(share_mode), name_of(security),
           static_cast<UINT>(disposition), static_cast<UINT>(flags), name_of(template_file));
    auto file = std::make_unique<DataStream>();
    const std::string path = with_slashes(name);
    if (!(use_memory_files ? open_in_memory(path, *file) : open_on_disk(path, *file))) {
        return INVALID_HANDLE_VALUE;
    }
    return file.release();
}

BOOL WINAPI ReadFile(HANDLE handle, LPVOID buffer, DWORD wanted, LPDWORD transferred,
                     LPOVERLAPPED overlapped) {
    record("ReadFile %u %s", static_cast<UINT>(wanted), name_of(overlapped));
    DataStream& file = *static_cast<DataStream*>(handle);
    *transferred = file.memory != nullptr
                       ? read_memory(file, buffer, wanted)
                       : static_cast<DWORD>(std::fread(buffer, 1, wanted, file.disk));
    return TRUE;
}

BOOL WINAPI CloseHandle(HANDLE handle) {
    record("CloseHandle");
    const std::unique_ptr<DataStream> file(static_cast<DataStream*>(handle));
    if (file->disk != nullptr) {
        std::fclose(file->disk);
    }
    return TRUE;
}
}
