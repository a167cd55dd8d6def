// Files under their Windows names, with the rights that Windows would ask for.
#include "platform/win32.h"

#include <algorithm>
#include <cerrno>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Descriptor 0 is a good one, a null handle is not: hence the 1.
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
    return (writes ? (reads ? O_RDWR : O_WRONLY) : O_RDONLY) | O_CLOEXEC;
}

// Folders and devices are no files. And a file that nobody may write is read-only to root too, to
// whom the kernel would give it all the same.
bool may_be_used(int descriptor, DWORD access) {
    struct stat status {};
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        return false;
    }
    const bool writable = (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0;
    return writable || (access & FILE_WRITE_DATA) == 0;
}

} // namespace

extern "C" {

HANDLE WINAPI CreateFileA(LPCSTR name, DWORD access, DWORD, LPSECURITY_ATTRIBUTES,
                          DWORD disposition, DWORD, HANDLE) {
    if (name == nullptr) {
        return INVALID_HANDLE_VALUE;
    }
    std::string path(name);
    std::ranges::replace(path, '\\', '/');

    int descriptor = open(path.c_str(), open_flags(access));
    if (descriptor >= 0 && !may_be_used(descriptor, access)) {
        close(descriptor);
        return INVALID_HANDLE_VALUE;
    }
    if (descriptor < 0 && errno == ENOENT && disposition == OPEN_ALWAYS) {
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
