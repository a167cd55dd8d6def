// Keeps the map of a drawing up to date. The system tells when the drawing is saved, so nothing is
// done while nothing happens.
#include "tools/data/watch_drawing.h"

#include "tools/data/build_track.h"
#include "tools/files/failure.h"
#include "tools/files/whole_file.h"

#include <exception>
#include <gio/gio.h>
#include <glib-unix.h>
#include <iostream>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

namespace tarvik {
namespace {

namespace fs = std::filesystem;

/// Tells one save of a file from the next; all 0 while there is no file.
using Save = std::tuple<ino_t, off_t, time_t, long>;

Save save_of(const fs::path& path) {
    struct stat now {};
    stat(path.c_str(), &now);
    return {now.st_ino, now.st_size, now.st_mtim.tv_sec, now.st_mtim.tv_nsec};
}

/// One save may cause several notices; what was already built is not built again.
struct Watch {
    fs::path drawing;
    fs::path map;
    std::ostream& out;
    Save built{};

    void look() {
        const Save now = save_of(drawing);
        if (now == Save{} || now == built) {
            return;
        }
        built = now;
        try {
            build_track(drawing, map);
            out << drawing.filename().string() << " is saved: press [ to race on it" << std::endl;
        } catch (const std::exception& error) {
            std::cerr << "tarvik-data: " << error.what() << std::endl;
        }
    }
};

void on_change(GFileMonitor*, GFile*, GFile*, GFileMonitorEvent event, gpointer watch) {
    // A file that is being written is left alone until it is closed.
    if (event != G_FILE_MONITOR_EVENT_CHANGED && event != G_FILE_MONITOR_EVENT_CREATED) {
        static_cast<Watch*>(watch)->look();
    }
}

gboolean on_input(gint input, GIOCondition, gpointer loop) {
    char ignored[256];
    if (read(input, ignored, sizeof ignored) > 0) {
        return G_SOURCE_CONTINUE;
    }
    g_main_loop_quit(static_cast<GMainLoop*>(loop));
    return G_SOURCE_REMOVE;
}

} // namespace

void watch_drawing(const fs::path& drawing, const fs::path& map, std::ostream& out) {
    open_file(drawing); // says why, if it cannot be read
    GFile* file = g_file_new_for_path(drawing.c_str());
    GError* error = nullptr;
    GFileMonitor* monitor = g_file_monitor_file(file, G_FILE_MONITOR_WATCH_MOVES, nullptr, &error);
    g_object_unref(file);
    if (monitor == nullptr) {
        const std::string reason = error->message;
        g_error_free(error);
        throw Failure("cannot watch " + drawing.string() + ": " + reason);
    }
    Watch watch{drawing, map, out};
    g_signal_connect(monitor, "changed", G_CALLBACK(on_change), &watch);
    std::error_code missing;
    if (fs::last_write_time(drawing) < fs::last_write_time(map, missing)) {
        watch.built = save_of(drawing); // what the map was made from
    } else {
        watch.look();
    }
    GMainLoop* loop = g_main_loop_new(nullptr, FALSE);
    g_unix_fd_add(STDIN_FILENO, static_cast<GIOCondition>(G_IO_IN | G_IO_HUP | G_IO_ERR), on_input,
                  loop);
    g_main_loop_run(loop);
    g_main_loop_unref(loop);
    g_object_unref(monitor);
}

} // namespace tarvik
