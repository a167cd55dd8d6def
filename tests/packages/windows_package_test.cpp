// The archive for Windows, played under Wine.
#include "tests/packages/package_fixture.h"

#include <set>
#include <sstream>

namespace tarvik {

namespace {

namespace fs = std::filesystem;

class WindowsPackage : public PackageTest {
  protected:
    static constexpr unsigned long POST_COLOUR = 0xE02020;
    static constexpr unsigned long GRASS_COLOUR = 0x00C800;
    static constexpr Area ROAD = {330, 300, 1, 1}; // behind the car at the start
    static constexpr int RACE_X = 146;             // of the text of race and lap
    static constexpr int RACE_Y = 30;

    /// One Windows for all tests; making it takes ten seconds or more.
    static void SetUpTestSuite() {
        prefix = make_folder("wine");
        give_to_player(prefix);
        fs::create_directory(prefix / "home");
        give_to_player(prefix);
        ASSERT_TRUE(
            run(as_player({"wine64", "wineboot", "--init"}), {.environment = wine_environment()}))
            << "Wine cannot be set up";
        stop_wine();
    }

    static void TearDownTestSuite() {
        std::error_code ignored;
        fs::remove_all(prefix, ignored);
    }

    void SetUp() override {
        folder_ = unpack(TARVIK_WINDOWS_PACKAGE, new_folder());
    }

    void TearDown() override {
        game_.reset();
        stop_wine(); // it holds on to this test's display
        PackageTest::TearDown();
    }

    void start_game() {
        start({"wine64", "tarvik.exe"}, folder_, wine_environment());
    }

    void start_race() {
        start_game();
        wait_for_game_with(POST_COLOUR);
        if (!HasFatalFailure()) {
            player_.turn_to_game();
        }
    }

    void expect_escape_to_end_it() {
        player_.press(XK_Escape);
        EXPECT_EQ(game_->wait(), 0);
        player_.release(XK_Escape);
    }

    /// What a command about tarvik.exe prints.
    std::string describe(std::vector<std::string> command) {
        const fs::path output = new_folder() / "output";
        command.push_back(folder_ / "tarvik.exe");
        EXPECT_TRUE(run(command, {.output = output})) << command.front();
        return read(output);
    }

    static fs::path prefix;
    fs::path folder_;

  private:
    static Environment wine_environment() {
        const char* path = std::getenv("PATH");
        return {{"WINEPREFIX", prefix},
                {"WINEDEBUG", "-all"},
                {"WINEDLLOVERRIDES", "mscoree,mshtml,winemenubuilder.exe="},
                {"HOME", prefix / "home"},
                {"PATH", std::string(path != nullptr ? path : "/usr/bin:/bin") + ":/usr/lib/wine"}};
    }

    static void stop_wine() {
        run(as_player({"wineserver", "--kill"}), {.environment = wine_environment()});
        run(as_player({"wineserver", "--wait"}), {.environment = wine_environment()});
    }
};

fs::path WindowsPackage::prefix;

} // namespace

TEST_F(WindowsPackage, NeedsTheSystemsLibrariesOnly) {
    std::istringstream lines(describe({"x86_64-w64-mingw32-objdump", "-p"}));
    std::set<std::string> libraries;
    for (std::string line; std::getline(lines, line);) {
        constexpr std::string_view LABEL = "DLL Name: ";
        if (const std::size_t at = line.find(LABEL); at != std::string::npos) {
            libraries.insert(line.substr(at + LABEL.size()));
        }
    }
    EXPECT_EQ(libraries, (std::set<std::string>{"GDI32.dll", "KERNEL32.dll", "OPENGL32.dll",
                                                "USER32.dll", "msvcrt.dll"}));
}

TEST_F(WindowsPackage, CarriesIconVersionAndManifest) {
    const std::string resources = describe({"wrestool", "--list"});
    int icons = 0;
    for (std::size_t at = 0; (at = resources.find("--type=3 ", at)) != std::string::npos; ++at) {
        ++icons;
    }
    EXPECT_EQ(icons, 7) << resources;
    EXPECT_NE(resources.find("--type=14 "), std::string::npos) << resources;

    std::string version = describe({"wrestool", "--extract", "--raw", "--type=16"});
    std::erase(version, '\0'); // two bytes a character
    EXPECT_NE(version.find(std::string("FileVersion") + TARVIK_VERSION), std::string::npos);

    const std::string manifest = describe({"wrestool", "--extract", "--raw", "--type=24"});
    EXPECT_NE(manifest.find(">false</dpiAware>"), std::string::npos) << manifest;
    EXPECT_NE(manifest.find(">unaware</dpiAwareness>"), std::string::npos) << manifest;
    EXPECT_NE(manifest.find("level=\"asInvoker\""), std::string::npos) << manifest;
}

TEST_F(WindowsPackage, TheWindowStandsBareInTheMiddleAndKeysChangeGear) {
    start_race();
    ASSERT_FALSE(HasFatalFailure());
    XWindowAttributes window{};
    XGetWindowAttributes(player_.display(), player_.window(), &window);
    EXPECT_EQ(window.x, (XServer::WIDTH - 640) / 2);
    EXPECT_EQ(window.y, (XServer::HEIGHT - 480) / 2);
    EXPECT_EQ(window.width, 640);
    EXPECT_EQ(window.height, 480);
    EXPECT_EQ(window.border_width, 0);
    EXPECT_NE(player_.look_at(ROAD), Pixels{GRASS_COLOUR});
    EXPECT_TRUE(waits_for_text("Gear : 0", 30, 30));
    player_.tap(XK_a);
    EXPECT_TRUE(waits_for_text("Gear : 1", 30, 30));
    player_.tap(XK_1);
    EXPECT_TRUE(waits_for_text("Easy", 30, 44));
    expect_escape_to_end_it();
}

// In first gear and at walking pace the car turns within the box of the gate. From the start the
// gate is seen in front of the texts, but no longer when the car has reached it.
TEST_F(WindowsPackage, ALapGoesThroughTheGate) {
    start_race();
    ASSERT_FALSE(HasFatalFailure());
    player_.tap(XK_a);
    ASSERT_TRUE(waits_for_text("Gear : 1", 30, 30));
    const std::string no_lap = "Race ended : 0           ";
    player_.tap(XK_Up);
    ASSERT_TRUE(waits_a_minute_until([&] {
        return shows(no_lap + "Cycle : ", RACE_X, RACE_Y) &&
               !shows(no_lap + "Cycle : 0", RACE_X, RACE_Y);
    })) << "the clock starts at the gate";
    player_.press(XK_Left);
    EXPECT_TRUE(waits_a_minute_until([&] {
        return shows("Race ended : ", RACE_X, RACE_Y) && !shows(no_lap, RACE_X, RACE_Y);
    })) << "the lap has a result";
    player_.release(XK_Left);
    expect_escape_to_end_it();
}

TEST_F(WindowsPackage, WithoutItsDataThereIsNothingButGrass) {
    fs::remove_all(folder_ / "data");
    start_game();
    wait_for_game_with(GRASS_COLOUR);
    EXPECT_EQ(player_.look_at(ROAD), Pixels{GRASS_COLOUR});
    player_.turn_to_game();
    expect_escape_to_end_it();
    EXPECT_FALSE(fs::exists(folder_ / "data"));
}

TEST_F(WindowsPackage, AReadOnlyMapIsNotOpened) {
    forbid_writing(folder_ / "data/race1.map");
    start_game();
    wait_for_game_with(POST_COLOUR); // the gate is from the archive, which is as it was
    EXPECT_EQ(player_.look_at(ROAD), Pixels{GRASS_COLOUR});
    player_.turn_to_game();
    expect_escape_to_end_it();
}

} // namespace tarvik
