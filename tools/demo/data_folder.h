// Where the demo's programs and the game's data lie.
#pragma once

#include <filesystem>
#include <string>

namespace tarvik::demo {

/// Folder of the running program.
std::filesystem::path program_folder();

/// Makes the folder of the program the working directory, where the game looks for its data.
/// Returns an empty string, or in one line what is missing for driving on track `race`.
std::string enter_data_folder(int race);

} // namespace tarvik::demo
