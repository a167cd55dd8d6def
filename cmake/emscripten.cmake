# Toolchain: WebAssembly, with Debian's emscripten.
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)

# The optimiser of emscripten's JavaScript is a Node.js program that asks for Debian's node-acorn.
set(CMAKE_CXX_LINKER_LAUNCHER ${CMAKE_COMMAND} -E env NODE_PATH=/usr/share/nodejs)

# Nothing of this system is linked; its folders are no place to look.
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
