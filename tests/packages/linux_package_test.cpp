// The archive for Linux and the package for Debian, from unpacking to driving. The archive for the
// web is the page that tests/web plays; only its licences are looked at here.
#include "tests/packages/package_fixture.h"

namespace tarvik {

namespace {

namespace fs = std::filesystem;

using testing::AllOf;
using testing::HasSubstr;

class LinuxPackage : public PackageTest {
  protected:
    LinuxPackage() {
        fs::create_directory(home_);
    }

    /// The player's home is empty and can be written.
    void start(const fs::path& program, const std::string& display) {
        start_game(display, {program},
                   {{"HOME", home_},
                    {"XDG_CACHE_HOME", ""},
                    {"PATH", (folder_ / "bin").string() + ":/usr/bin:/bin"}});
    }

    /// Says what has to be missing, on standard error and in a window for those who started it
    /// from one.
    void expect_refusal(const fs::path& script, const std::string& display,
                        const std::string& why) {
        expected_exit_code_ = 1;
        start(script, display);
        EXPECT_EQ(game_->wait(), 1);
        const std::string words = read_file(folder_ / "errors");
        EXPECT_THAT(words, HasSubstr(why));
        EXPECT_EQ(read_file(folder_ / "zenity-says"), words);
    }

    const fs::path home_ = folder_ / "home";
};

using WebPackage = PackageTest;

} // namespace

TEST_F(LinuxPackage, StartsFromAnyFolderAndThroughALinkAndCopiesNothing) {
    fs::create_symlink(unpack(TARVIK_LINUX_PACKAGE) / "tarvik", folder_ / "race");
    start("./race", server_.display());
    frame_at_start();
    play();
    EXPECT_TRUE(fs::is_empty(home_));
}

TEST_F(LinuxPackage, NamesWhatIsMissing) {
    const fs::path zenity = folder_ / "bin/zenity";
    fs::create_directory(folder_ / "bin");
    write_file(zenity, "#!/bin/sh\nfor last; do :; done; echo \"$last\" >'" +
                           (folder_ / "zenity-says").string() + "'\n");
    fs::permissions(zenity, fs::perms(0755));

    const fs::path folder = unpack(TARVIK_LINUX_PACKAGE);
    expect_refusal(folder / "tarvik", "", "there is no display");
    expect_refusal(folder / "tarvik", ":98765", "tarvik: no display (");

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
    EXPECT_THAT(read_file(home_ / "applications/tarvik.desktop"),
                AllOf(HasSubstr("\nExec=\"" + (folder / "tarvik").string() + "\"\n"),
                      HasSubstr("\nIcon=" + icon + "\n")));
    EXPECT_TRUE(fs::exists(icon));
}

// What a package manager installs cannot be written by players.
TEST_F(LinuxPackage, PlaysWithACopyOfTheDataWhenInstalled) {
    const fs::path usr = unpack(TARVIK_DEBIAN_PACKAGE);
    output_of({"chmod", "-R", "a-w", usr});
    start(usr / "bin/tarvik", server_.display());
    frame_at_start();
    play();
    EXPECT_TRUE(fs::exists(home_ / ".cache/tarvik/data/race2.map"));
    output_of({"chmod", "-R", "u+w", usr});

    const fs::path share = usr / "share";
    output_of({"desktop-file-validate", share / "applications/tarvik.desktop"});
    output_of({"appstreamcli", "validate", "--no-net", share / "metainfo/tarvik.metainfo.xml"});
    EXPECT_TRUE(fs::exists(share / "icons/hicolor/scalable/apps/tarvik.svg"));
    EXPECT_TRUE(fs::exists(share / "man/man6/tarvik.6.gz"));
    EXPECT_THAT(output_of({"dpkg-deb", "--info", TARVIK_DEBIAN_PACKAGE}),
                AllOf(HasSubstr("libsdl2-2.0-0"), HasSubstr("libc6"), HasSubstr("libx11-6")));
}

TEST_F(WebPackage, CarriesLicences) {
    EXPECT_THAT(output_of({"unzip", "-p", TARVIK_WEB_PACKAGE, "*/THIRD-PARTY.txt"}),
                AllOf(HasSubstr("system/lib/libc/musl/*"), HasSubstr("system/lib/libcxx/*"),
                      HasSubstr("License: NCSA~LLVM")));
    EXPECT_THAT(output_of({"unzip", "-p", TARVIK_WEB_PACKAGE, "*/LICENSE.txt"}),
                HasSubstr("the Tarvik authors"));
}

} // namespace tarvik
