// Creation and destruction of sprites.
#include "render/sprite.h"

#include "shell/out_of_memory.h"

#include <cstdlib>

namespace tarvik {

Sprite* sprite_table = nullptr;

Sprite::~Sprite() {
    std::free(pixels);
    pixels = nullptr;
    width = 0;
    height = 0;
    bytes_per_pixel = 0;
    pixel_bytes = 0;
}

void create_sprite_table() {
    sprite_table = allocate_buffer<Sprite>(SPRITE_COUNT, "sprite table");
}

void release_sprite_table() {
    delete[] sprite_table;
    sprite_table = nullptr;
}

} // namespace tarvik
