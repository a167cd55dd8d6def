// The archive for Linux and the package for Debian, from unpacking to driving. The archive for the
// web is the page that tests/web plays; only its licences are looked at here.
#include "tests/packages/package_fixture.h"

#include <fstream>

namespace tarvik {

namespace {

namespace fs = std::filesystem;

class LinuxPackage : public PackageTest {
  protected:
    /// The player's home is empty and can be written.
    void start(const Command& command, const std::string& display) {
        start_game(display, command, {{"HOME", home_}, {"XDG_CACHE_HOME", ""}, {"PATH", path_}});
    }

    void start(const Command& command) {
        start(command, server_.display());
    }

    /// Says what has to be missing, on standard error and in a window for those who started it
    /// from one.
    void expect_refusal(const fs::path& script, const std::string& display,
                        const std::string& why) {
        expected_exit_code_ = 1;
        start({script}, display);
        EXPECT_EQ(game_->wait(), 1);
        EXPECT_NE(errors().find(why), std::string::npos) << errors();
        EXPECT_EQ(read(folder_ / "zenity-says"), errors());
    }

    void SetUp() override {
        PackageTest::SetUp();
        home_ = folder_ / "home";
        fs::create_directory(home_);
        fs::create_directory(folder_ / "bin");
        path_ = (folder_ / "bin").string() + ":/usr/bin:/bin";
        const fs::path zenity = folder_ / "bin/zenity";
        std::ofstream(zenity) << "#!/bin/sh\nfor last; do :; done; echo \"$last\" >"
                              << folder_ / "zenity-says";
        fs::permissions(zenity, fs::perms(0755));
    }

    fs::path home_;
    std::string path_;
};

} // namespace

TEST_F(LinuxPackage, StartsFromAnyFolderAndThroughALinkAndCopiesNothing) {
    fs::create_symlink(unpack(TARVIK_LINUX_PACKAGE) / "tarvik", folder_ / "race");
    start({"./race"});
    play();
    EXPECT_EQ(errors(), "");
    EXPECT_TRUE(fs::is_empty(home_));
}

TEST_F(LinuxPackage, NamesWhatIsMissing) {
    const fs::path folder = unpack(TARVIK_LINUX_PACKAGE);
    expect_refusal(folder / "tarvik", "", "there is no display");
    expect_refusal(folder / "tarvik", ":98765", "no display");

    // A library that the loader does not find: the program asks for one with a name of that length.
    output_of({"sed", "-i", "s/libX11.so.6/libX77.so.6/", folder / "bin/tarvik"});
    expect_refusal(folder / "tarvik", server_.display(), "libraries are missing: libX77.so.6");

    fs::remove(folder / "data/race2.map");
    expect_refusal(folder / "tarvik", server_.display(), "data/race2.map is missing");
}

TEST_F(LinuxPackage, GoesIntoTheMenu) {
    const fs::path folder = unpack(TARVIK_LINUX_PACKAGE);
    output_of({"env", "XDG_DATA_HOME=" + home_.string(), folder / "add-to-menu"});
    const std::string icon = folder / "icons/tarvik-256.png";
    expect_parts(read(home_ / "applications/tarvik.desktop"),
                 {"\nExec=\"" + (folder / "tarvik").string() + "\"\n", "\nIcon=" + icon + "\n"});
    EXPECT_TRUE(fs::exists(icon));
}

// What a package manager installs cannot be written by players.
TEST_F(LinuxPackage, PlaysWithACopyOfTheDataWhenInstalled) {
    const fs::path usr = unpack(TARVIK_DEBIAN_PACKAGE);
    output_of({"chmod", "-R", "a-w", usr});
    start({usr / "bin/tarvik"});
    play();
    EXPECT_EQ(errors(), "");
    EXPECT_TRUE(fs::exists(home_ / ".cache/tarvik/data/race2.map"));
    output_of({"chmod", "-R", "u+w", usr});

    const fs::path share = usr / "share";
    output_of({"desktop-file-validate", share / "applications/tarvik.desktop"});
    output_of({"appstreamcli", "validate", "--no-net", share / "metainfo/tarvik.metainfo.xml"});
    EXPECT_TRUE(fs::exists(share / "icons/hicolor/scalable/apps/tarvik.svg"));
    EXPECT_TRUE(fs::exists(share / "man/man6/tarvik.6.gz"));
    expect_parts(output_of({"dpkg-deb", "--info", TARVIK_PACKAGES "/" TARVIK_DEBIAN_PACKAGE}),
                 {"libsdl2-2.0-0", "libc6", "libx11-6"});
}

TEST(WebPackage, CarriesLicences) {
    const std::string archive = TARVIK_PACKAGES "/tarvik-" TARVIK_VERSION "-web.zip";
    expect_parts(output_of({"unzip", "-p", archive, "*/THIRD-PARTY.txt"}),
                 {"system/lib/libc/musl/*", "system/lib/libcxx/*", "License: NCSA~LLVM"});
    expect_parts(output_of({"unzip", "-p", archive, "*/LICENSE.txt"}), {"the Tarvik authors"});
}

} // namespace tarvik
