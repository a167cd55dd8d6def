// The archive for Windows, played under Wine.
#include "tests/packages/package_fixture.h"

namespace tarvik {

namespace {

namespace fs = std::filesystem;

using testing::AllOf;
using testing::HasSubstr;

constexpr Area SCREEN = {0, 0, XServer::WIDTH, XServer::HEIGHT};

constexpr Area centred(int width, int height) {
    return {(SCREEN.width - width) / 2, (SCREEN.height - height) / 2, width, height};
}

// One Wine prefix for all tests; making it takes ten seconds or more.
const TemporaryFolder prefix_folder;
const std::string prefix = prefix_folder / "";

class WindowsPackage : public PackageTest {
  protected:
    static void SetUpTestSuite() {
        output_of({TARVIK_UNDER_WINE, prefix, "wineboot", "--init"});
        stop_wine();
    }

    void TearDown() override {
        PackageTest::TearDown();
        stop_wine(); // it holds on to this test's display
    }

    void start() {
        start_game(server_.display(), {"env", "--chdir=" + game_folder_.string(), TARVIK_UNDER_WINE,
                                       prefix, "tarvik.exe"});
    }

    bool window_comes_to(const Area& place) {
        return Player::waits_until([&] { return player_.place() == place; });
    }

    static void stop_wine() {
        for (const char* how : {"--kill", "--wait"}) {
            ChildProcess({"/usr/lib/wine/wineserver", how},
                         {.environment = {{"WINEPREFIX", prefix}}})
                .wait();
        }
    }

    const fs::path game_folder_ = unpack(TARVIK_WINDOWS_PACKAGE);
};

} // namespace

TEST_F(WindowsPackage, IsOneProgramWithIconVersionManifestAndLicences) {
    const std::string program = (game_folder_ / "tarvik.exe").string();
    EXPECT_EQ(output_of({"sh", "-c",
                         "x86_64-w64-mingw32-objdump -p '" + program +
                             "' | sed -n 's/.*DLL Name: //p' | LC_ALL=C sort | xargs"}),
              "GDI32.dll KERNEL32.dll OPENGL32.dll USER32.dll msvcrt.dll\n");

    std::string resources = output_of({"wrestool", "--extract", "--raw", program});
    std::erase(resources, '\0'); // two bytes a character
    EXPECT_THAT(resources, AllOf(HasSubstr("FileVersion" TARVIK_VERSION),
                                 HasSubstr(">PerMonitorV2, PerMonitor</"),
                                 HasSubstr("level=\"asInvoker\""), HasSubstr("\x89PNG")));
    EXPECT_THAT(read_file(game_folder_ / "THIRD-PARTY.txt"),
                AllOf(HasSubstr("winpthreads"), HasSubstr("GCC RUNTIME LIBRARY EXCEPTION"),
                      HasSubstr("License: ZPL-2.1")));
}

TEST_F(WindowsPackage, PlaysBorderlessAndCentredAtSixtyFramesASecondAndIsSharpOnDenseDisplays) {
    start();
    const Pixels frame = frame_at_start();
    EXPECT_TRUE(window_comes_to(centred(WINDOW.width, WINDOW.height)));
    EXPECT_THAT(best_rate(player_), AllOf(testing::Ge(55), testing::Le(66)));
    play();

    // At 144 dots per inch a logical pixel is three device pixels wide, and no more would fit.
    output_of({TARVIK_UNDER_WINE, prefix, "reg", "add", "HKCU\\Control Panel\\Desktop", "/v",
               "LogPixels", "/t", "REG_DWORD", "/d", "144", "/f"});
    stop_wine();
    start();
    const Area shown = centred(960, 720);
    wait_for_start(3);
    EXPECT_TRUE(player_.sees({0, 0, 960, 720}, fitted(frame, 960, 720)));
    EXPECT_TRUE(window_comes_to(shown));

    player_.turn_to(player_.window());
    player_.tap(XK_F11);
    EXPECT_TRUE(window_comes_to(SCREEN));
    EXPECT_TRUE(player_.sees(SCREEN, fitted(frame, SCREEN.width, SCREEN.height)));

    // The pointer is twice as far from the corner as the mouse.
    player_.move_mouse_to(shown.x + 30, shown.y + 90);
    EXPECT_TRUE(player_.sees({shown.x + 60, shown.y + 180, 1, 1}, {0x181818})) << "its tip";

    player_.press(XK_Alt_L);
    player_.tap(XK_Return);
    player_.release(XK_Alt_L);
    EXPECT_TRUE(window_comes_to(shown));
    leave();
}

} // namespace tarvik
