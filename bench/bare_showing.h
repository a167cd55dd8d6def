// The least work that showing a frame on an X server can be: bytes into shared memory, and a
// request.
#pragma once

#include <X11/Xlib.h>
#include <X11/extensions/XShm.h>

#include <vector>

namespace tarvik::bench {

/// A window of its own that shows frames which are already in the screen's format.
class BareShowing {
  public:
    BareShowing(Display* display, int width, int height);
    BareShowing(const BareShowing&) = delete;
    BareShowing& operator=(const BareShowing&) = delete;
    ~BareShowing();

    /// Copies the frame, has it shown, and waits until the server has read it.
    void show();

  private:
    Display* display_;
    Window window_;
    XShmSegmentInfo memory_{};
    XImage* image_;
    std::vector<char> picture_;
};

} // namespace tarvik::bench
