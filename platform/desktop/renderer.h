// How pictures get into the window: by a graphics card where there is one.
#pragma once

struct SDL_Renderer;
struct SDL_Window;

namespace tarvik {

/// Makes what draws into a window that has not been shown yet. Null, with SDL's reason, where that
/// is impossible.
SDL_Renderer* make_renderer(SDL_Window* window);

} // namespace tarvik
