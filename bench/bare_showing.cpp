// Xlib and its extension for shared memory, nothing else.
#include "bench/bare_showing.h"

#include <cstring>
#include <stdexcept>

#include <X11/Xutil.h>
#include <sys/ipc.h>
#include <sys/shm.h>

namespace tarvik::bench {

BareShowing::BareShowing(Display* display, int width, int height)
    : display_(display), window_(XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0,
                                                     static_cast<unsigned>(width),
                                                     static_cast<unsigned>(height), 0, 0, 0)),
      image_(XShmCreateImage(display, DefaultVisual(display, DefaultScreen(display)),
                             static_cast<unsigned>(DefaultDepth(display, DefaultScreen(display))),
                             ZPixmap, nullptr, &memory_, static_cast<unsigned>(width),
                             static_cast<unsigned>(height))) {
    if (image_ == nullptr) {
        throw std::runtime_error("the X server shares no memory");
    }
    picture_.assign(static_cast<std::size_t>(image_->bytes_per_line) *
                        static_cast<std::size_t>(height),
                    '\x5A');
    memory_.shmid = shmget(IPC_PRIVATE, picture_.size(), IPC_CREAT | 0600);
    memory_.shmaddr = static_cast<char*>(shmat(memory_.shmid, nullptr, 0));
    image_->data = memory_.shmaddr;
    XShmAttach(display, &memory_);
    XMapRaised(display, window_);
    XSync(display, False);
    shmctl(memory_.shmid, IPC_RMID, nullptr); // once both let go of it
}

BareShowing::~BareShowing() {
    XShmDetach(display_, &memory_);
    XDestroyWindow(display_, window_);
    XSync(display_, False);
    image_->data = nullptr;
    XDestroyImage(image_);
    shmdt(memory_.shmaddr);
}

void BareShowing::show() {
    std::memcpy(image_->data, picture_.data(), picture_.size());
    XShmPutImage(display_, window_, DefaultGC(display_, DefaultScreen(display_)), image_, 0, 0, 0,
                 0, static_cast<unsigned>(image_->width), static_cast<unsigned>(image_->height),
                 False);
    XSync(display_, False);
}

} // namespace tarvik::bench
