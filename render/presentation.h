// The two ends of a picture: a black frame buffer to draw on, and showing what was drawn.
#pragma once

namespace tarvik {

/// Clears the window's back buffer and sets the whole frame buffer to black.
void clear_frame();

/// Hands the frame buffer to OpenGL unchanged and swaps the window's buffers. That fits the window
/// exactly as OpenGL comes: nobody ever sets a raster position or a zoom.
void present_frame();

} // namespace tarvik
