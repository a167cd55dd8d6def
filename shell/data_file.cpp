// The only file access of the game.
#include "shell/data_file.h"

namespace tarvik {

DataFile::DataFile(const char* name)
    : handle(CreateFileA(name, FILE_READ_DATA | FILE_WRITE_DATA, FILE_SHARE_READ, nullptr,
                         OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)) {}

DataFile::~DataFile() {
    if (is_open()) {
        CloseHandle(handle);
    }
}

bool DataFile::is_open() const {
    return handle != INVALID_HANDLE_VALUE;
}

DWORD DataFile::read(void* target, DWORD wanted) {
    DWORD transferred = 0;
    ReadFile(handle, target, wanted, &transferred, nullptr);
    return transferred;
}

} // namespace tarvik
