// How frames get into the window: by a graphics card if there is one.
#pragma once

struct SDL_Renderer;
struct SDL_Window;

namespace tarvik {

/// Makes the renderer for a window that has not been shown yet. Null, with SDL's reason, if that is
/// impossible.
SDL_Renderer* make_renderer(SDL_Window* window);

} // namespace tarvik
