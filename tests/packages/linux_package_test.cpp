// The archive for Linux, from unpacking to driving.
#include "tests/packages/package_fixture.h"

#include <fstream>

namespace tarvik {

namespace {

namespace fs = std::filesystem;

class LinuxPackage : public PackageTest {
  protected:
    static fs::path unpack_into(const fs::path& folder) {
        return unpack(TARVIK_LINUX_PACKAGE, folder);
    }

    /// Starts the script from a working folder; the player's home is empty and writable.
    void start_game(const fs::path& script, const fs::path& folder, Environment environment = {}) {
        home_ = new_folder();
        environment.emplace("HOME", home_);
        environment.emplace("XDG_CACHE_HOME", "");
        start({script}, folder, environment);
    }

    /// Drives a little and leaves.
    void play() {
        wait_for_game_with(0xE02020); // the red of the gate
        ASSERT_FALSE(HasFatalFailure());
        EXPECT_TRUE(waits_for_text("Gear : 0", 30, 30));
        player_.tap(XK_a);
        EXPECT_TRUE(waits_for_text("Gear : 1", 30, 30));
        player_.press(XK_Escape);
        EXPECT_EQ(game_->wait(), 0);
        player_.release(XK_Escape);
        EXPECT_EQ(errors(), "");
    }

    fs::path home_;
};

} // namespace

TEST_F(LinuxPackage, StartsWhereItWasUnpacked) {
    const fs::path folder = unpack_into(new_folder());
    start_game("./tarvik", folder);
    play();
    EXPECT_TRUE(fs::is_empty(home_)) << "no copy of the data where none is needed";
}

TEST_F(LinuxPackage, StartsFromAnotherFolderFromAPathWithBlanksAndThroughALink) {
    const fs::path blanks = new_folder() / "my games";
    fs::create_directory(blanks);
    const fs::path folder = unpack_into(blanks);
    const fs::path elsewhere = new_folder();
    start_game(folder / "tarvik", elsewhere);
    play();
    fs::create_symlink(folder / "tarvik", elsewhere / "race");
    start_game("./race", elsewhere);
    play();
}

TEST_F(LinuxPackage, PlaysWithACopyOfTheDataWhereItMayNotWrite) {
    const fs::path folder = unpack_into(new_folder());
    forbid_writing(folder);
    start_game(folder / "tarvik", "/");
    play();
    EXPECT_TRUE(fs::exists(home_ / ".cache/tarvik/data/race2.map"));
}

// On standard error, and in a window for those who started it from one.
TEST_F(LinuxPackage, NamesWhatIsMissing) {
    const fs::path folder = unpack_into(new_folder());
    const fs::path tools = new_folder();
    const fs::path shown = tools / "shown";
    std::ofstream(tools / "zenity") << "#!/bin/sh\nfor last; do :; done; echo \"$last\" >" << shown;
    fs::permissions(tools / "zenity", fs::perms(0755));
    const std::string path = tools.string() + ":/usr/bin:/bin";
    const auto expect_refusal = [&](const std::string& display, const std::string& why) {
        start_game(folder / "tarvik", folder, {{"PATH", path}, {"DISPLAY", display}});
        EXPECT_EQ(game_->wait(), 1);
        EXPECT_NE(errors().find(why), std::string::npos) << errors();
        EXPECT_EQ(read(shown), errors());
    };
    expect_refusal("", "there is no display");
    expect_refusal(":98765", "no display");

    // A library that the loader does not find: the program asks for one with a name of that length.
    const fs::path program = folder / "bin/tarvik";
    ASSERT_TRUE(run({"sed", "-i", "s/libX11.so.6/libX77.so.6/", program}));
    expect_refusal(server_.display(), "libraries are missing: libX77.so.6");

    fs::rename(folder / "data/race2.map", folder / "race2.map");
    expect_refusal(server_.display(), "data/race2.map is missing");
}

TEST_F(LinuxPackage, GoesIntoTheMenu) {
    const fs::path blanks = new_folder() / "my games";
    fs::create_directory(blanks);
    const fs::path folder = unpack_into(blanks);
    const fs::path home = new_folder();
    ASSERT_TRUE(run(as_player({folder / "add-to-menu"}),
                    {.environment = {{"HOME", home}, {"XDG_DATA_HOME", ""}}}));
    std::ifstream file(home / ".local/share/applications/tarvik.desktop");
    std::map<std::string, std::string> entry;
    for (std::string line; std::getline(file, line);) {
        const std::size_t sign = line.find('=');
        entry[line.substr(0, sign)] = sign == std::string::npos ? "" : line.substr(sign + 1);
    }
    EXPECT_EQ(entry["Exec"], '"' + (folder / "tarvik").string() + '"');
    EXPECT_TRUE(fs::exists(entry["Icon"])) << entry["Icon"];
    EXPECT_EQ(entry["Name"], "Tarvik");
}

} // namespace tarvik
