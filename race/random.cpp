// Multiply and add, modulo 2^32; the low bits, which repeat soonest, are not handed out.
#include "race/random.h"

namespace tarvik {

namespace {

std::uint32_t state = 1;

} // namespace

void srand(std::uint32_t seed) {
    state = seed;
}

std::int32_t rand() {
    state = state * 214013U + 2531011U;
    return static_cast<std::int32_t>((state >> 16U) & (RAND_RANGE - 1U));
}

} // namespace tarvik
