// Where the demo's programs and the game's data are.
#pragma once

#include <filesystem>
#include <string>

namespace tarvik::demo {

/// Folder of the running program.
std::filesystem::path program_folder();

/// Makes the folder that data/ is in the working directory, where the game looks for it; the
/// folder of the program if `from` is empty. Returns an empty string, or in one line what is
/// missing for driving on track `race`.
std::string enter_data_folder(const std::filesystem::path& from, int race);

} // namespace tarvik::demo
