// The frame buffer's memory.
#include "render/frame_buffer.h"

#include "shell/out_of_memory.h"

namespace tarvik {

std::uint8_t* frame_buffer = nullptr;

void create_frame_buffer() {
    frame_buffer = allocate_buffer<std::uint8_t>(frame_bytes(), "frame buffer");
}

void release_frame_buffer() {
    delete[] frame_buffer;
    frame_buffer = nullptr;
}

} // namespace tarvik
