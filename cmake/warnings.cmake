# How every target of this project is compiled: strict warnings, and floating point that gives the
# same digits on every machine (no fused operations, every exception flag honoured).
add_library(branok_options INTERFACE)
target_compile_options(branok_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
  -Wformat=2 -Wimplicit-fallthrough -Werror
  # g++ 12 sees overlaps in assignments to std::string where there are none.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  -ffp-contract=off -fno-math-errno)
target_include_directories(branok_options INTERFACE ${CMAKE_SOURCE_DIR}/src)

if(BRANOK_SANITIZE)
  target_compile_options(branok_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(branok_options INTERFACE -fsanitize=address,undefined)
endif()
if(BRANOK_FUZZ)
  target_compile_options(branok_options INTERFACE
    -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  target_link_options(branok_options INTERFACE -fsanitize=address,undefined)
endif()

# A room of the house: branok_room(name SOURCES ... NEEDS ...) makes the static library
# branok_<name>. What is not under NEEDS cannot be linked: that is the wall between rooms.
function(branok_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;NEEDS" ${ARGN})
  add_library(branok_${name} STATIC ${ROOM_SOURCES})
  target_link_libraries(branok_${name} PUBLIC branok_options ${ROOM_NEEDS})
endfunction()
