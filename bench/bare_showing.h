// The least that showing a picture on an X server can be: bytes into shared memory, and a request.
#pragma once

#include <X11/Xlib.h>
#include <X11/extensions/XShm.h>

#include <vector>

namespace tarvik::bench {

/// A window of its own, in which a picture is shown that is already as the screen wants it.
class BareShowing {
  public:
    BareShowing(Display* display, int width, int height);
    BareShowing(const BareShowing&) = delete;
    BareShowing& operator=(const BareShowing&) = delete;
    ~BareShowing();

    /// Copies the picture, has it shown, and waits until the server has read it.
    void show();

  private:
    Display* display_;
    Window window_;
    XShmSegmentInfo memory_{};
    XImage* image_;
    std::vector<char> picture_;
};

} // namespace tarvik::bench
