// Where the demo's programs and the game's data are.
#pragma once

#include <filesystem>

namespace tarvik::demo {

/// The running program.
std::filesystem::path program();

/// Makes the folder that data/ is in the working directory, where the game looks for it; the
/// folder of the program if `from` is empty. Throws, and says what is missing for driving on track
/// `race`: the game itself reports nothing and leaves empty files behind.
void enter_data_folder(const std::filesystem::path& from, int race);

} // namespace tarvik::demo
