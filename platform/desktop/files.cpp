// Files under their Windows names, with the rights that Windows would ask for.
#include "platform/win32.h"

#include <algorithm>
#include <cerrno>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Descriptor 0 is valid but a null handle is not, hence the 1.
HANDLE handle_of(int descriptor) {
    return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(descriptor) + 1);
}

int descriptor_of(HANDLE handle) {
    const auto value = reinterpret_cast<LONG_PTR>(handle);
    return value > 0 ? static_cast<int>(value - 1) : -1;
}

int open_flags(DWORD access) {
    const bool writes = (access & FILE_WRITE_DATA) != 0;
    const bool reads = (access & FILE_READ_DATA) != 0;
    // Whatever is there instead of a file must not make the game wait or become its terminal.
    return (writes ? (reads ? O_RDWR : O_WRONLY) : O_RDONLY) | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
}

// Folders, pipes and devices do not count as files. What nobody may read or write stays closed to
// root too, although the kernel would open it.
bool may_be_used(const struct stat& status, DWORD access) {
    const bool readable = (status.st_mode & (S_IRUSR | S_IRGRP | S_IROTH)) != 0;
    const bool writable = (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0;
    return S_ISREG(status.st_mode) && (readable || (access & FILE_READ_DATA) == 0) &&
           (writable || (access & FILE_WRITE_DATA) == 0);
}

} // namespace

extern "C" {

HANDLE WINAPI CreateFileA(LPCSTR name, DWORD access, DWORD, LPSECURITY_ATTRIBUTES,
                          DWORD disposition, DWORD, HANDLE) {
    std::string path(name);
    std::ranges::replace(path, '\\', '/');

    // Checked before it is opened: merely opening a device can set it going.
    struct stat status {};
    int descriptor = -1;
    if (stat(path.c_str(), &status) == 0) {
        if (may_be_used(status, access)) {
            descriptor = open(path.c_str(), open_flags(access));
        }
    } else if (errno == ENOENT && disposition == OPEN_ALWAYS) {
        constexpr mode_t EVERYBODY = 0666; // less what the user's umask takes away
        descriptor = open(path.c_str(), open_flags(access) | O_CREAT, EVERYBODY);
    }
    return descriptor >= 0 ? handle_of(descriptor) : INVALID_HANDLE_VALUE;
}

BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD wanted, LPDWORD transferred, LPOVERLAPPED) {
    auto* const bytes = static_cast<char*>(buffer);
    std::size_t count = 0;
    bool failed = false;
    while (count < wanted) {
        const ssize_t got = read(descriptor_of(file), bytes + count, wanted - count);
        if (got > 0) {
            count += static_cast<std::size_t>(got);
        } else if (got == 0 || errno != EINTR) {
            failed = got < 0;
            break;
        }
    }
    if (transferred != nullptr) {
        *transferred = static_cast<DWORD>(count);
    }
    return failed ? FALSE : TRUE;
}

BOOL WINAPI CloseHandle(HANDLE handle) {
    return close(descriptor_of(handle)) == 0 ? TRUE : FALSE;
}

} // extern "C"
