# One set of compile options for everything in this repository.
#
# Floating point is part of the game's behaviour: the same inputs give the same frames with every
# compiler. So no contraction into fused multiply-adds, and never -ffast-math. And sin and cos are
# called one by one: merged into one sincos, as optimisers like to do, a last bit can differ.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

option(TARVIK_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(TARVIK_FUZZ "Build the fuzzers, and everything under the same sanitizers; clang only" OFF)

add_library(tarvik_options INTERFACE)
add_library(tarvik::options ALIAS tarvik_options)
target_include_directories(tarvik_options INTERFACE ${CMAKE_SOURCE_DIR})

if(MSVC)
  # Warnings are not errors here, since no build on Linux would have found them.
  target_compile_options(tarvik_options INTERFACE /W4 /fp:precise /utf-8 /D_CRT_SECURE_NO_WARNINGS)
else()
  target_compile_options(
    tarvik_options
    INTERFACE -Wall
              -Wextra
              -Wconversion
              -Wshadow
              -Wpedantic
              -Wold-style-cast
              -Werror
              -ffp-contract=off
              -fno-builtin-sin
              -fno-builtin-cos)
endif()

if(TARVIK_SANITIZE)
  target_compile_options(tarvik_options INTERFACE -fsanitize=address,undefined
                                                  -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tarvik_options INTERFACE -fsanitize=address,undefined)
endif()

if(TARVIK_FUZZ)
  # Not in the undefined group: a float that fits no integer.
  target_compile_options(
    tarvik_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined,float-cast-overflow
                             -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_definitions(tarvik_options INTERFACE _GLIBCXX_ASSERTIONS)
  target_link_options(tarvik_options INTERFACE -fsanitize=address,undefined)
endif()
