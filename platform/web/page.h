// What the page does for the layer; defined in page_calls.js.
#pragma once

#include "platform/win32.h"

namespace tarvik {

/// The canvas that stands for the window, as a selector of the page.
inline constexpr const char* CANVAS = "#game";

} // namespace tarvik

extern "C" {

/// Puts `width` by `height` pixels on the canvas: rows from the top down, red, green, blue and
/// an opaque alpha, a byte each.
void page_show_frame(const DWORD* pixels, int width, int height);

/// Waits until the next frame may be shown, which is due in `milliseconds` (negative if late), in
/// step with the display as far as its refresh rate allows. In a hidden page it waits until the
/// page is visible.
void page_wait_for_frame(double milliseconds);

/// Tells the page of a lap completed on a track: its result, in frames.
void page_lap_completed(int track, int frames);

/// Whether the browser lets the page look at controllers; some frames of other sites' pages may
/// not.
int page_may_look_at_controllers();

/// Whether the keyboard belongs to the canvas.
int page_has_focus();

/// Shows or hides the pointer over the canvas.
void page_show_pointer(int visible);

/// Opens a file for reading; one that the page has not got is empty. Never 0.
int page_open_file(const char* name);

/// Reads on in an open file: the next `wanted` bytes, or as many as are left. Returns their number.
DWORD page_read_file(int file, void* buffer, DWORD wanted);

/// Whether there was an open file to close.
int page_close_file(int file);
}
