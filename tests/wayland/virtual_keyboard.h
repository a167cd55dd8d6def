// A keyboard that is there from before the game to after it, with the keys of an ordinary one.
#pragma once

#include <cstdint>
#include <string>

struct wl_display;
struct wl_proxy;

namespace tarvik {

class VirtualKeyboard {
  public:
    /// Plugs it in at the compositor with this socket.
    explicit VirtualKeyboard(const std::string& socket);
    VirtualKeyboard(const VirtualKeyboard&) = delete;
    VirtualKeyboard& operator=(const VirtualKeyboard&) = delete;
    ~VirtualKeyboard();

    /// Keys by their numbers in <linux/input-event-codes.h>.
    void press(std::uint32_t key);
    void release(std::uint32_t key);
    void tap(std::uint32_t key);

  private:
    void send_key(std::uint32_t key, std::uint32_t state);
    void send_keymap();

    wl_display* display_;
    wl_proxy* keyboard_ = nullptr;
    std::uint32_t time_ = 0;
};

} // namespace tarvik
