// Listening to the page's keyboard and mouse.
#pragma once

namespace tarvik {

void start_listening();
void stop_listening();

} // namespace tarvik
