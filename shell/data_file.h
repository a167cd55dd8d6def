// Opening and reading the game's data files.
#pragma once

#include "platform/win32.h"

#include <cstddef>

namespace tarvik {

/// A data file, open for reading from its start, closed when it goes out of scope.
///
/// Opening asks for the right to write as well and creates what is not there: an empty file is left
/// behind if there is a folder for it, and a file that may not be written does not open.
class DataFile {
  public:
    /// `name` is relative to the folder that the game runs in, with backslashes between folders.
    explicit DataFile(const char* name);
    ~DataFile();
    DataFile(const DataFile&) = delete;
    DataFile& operator=(const DataFile&) = delete;

    bool is_open() const;

    /// Reads up to `wanted` bytes into `target` with one system call and returns how many there
    /// were. At the end of the file the bytes of `target` that were not read stay as they are.
    DWORD read(void* target, DWORD wanted);

  private:
    HANDLE handle;
};

} // namespace tarvik
