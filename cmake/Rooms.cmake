# A room is a folder below src/ that is one library. It includes by paths from src/, and links only the rooms named in
# DEPENDS: a use of any other room does not link.

add_library(lunq_flags INTERFACE)
target_compile_options(lunq_flags INTERFACE
  -Wall -Wextra -Wpedantic $<$<BOOL:${LUNQ_WERROR}>:-Werror> -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wformat=2
  $<$<CONFIG:Release>:-O2>)
target_compile_definitions(lunq_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS
  QT_NO_FOREACH QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_STRICT_ITERATORS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_include_directories(lunq_flags INTERFACE "${CMAKE_SOURCE_DIR}/src")
if(LUNQ_SANITIZE)
  target_compile_options(lunq_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                              -fno-omit-frame-pointer)
  target_link_options(lunq_flags INTERFACE -fsanitize=address,undefined)
endif()
if(LUNQ_FUZZ)
  target_compile_options(lunq_flags INTERFACE -fsanitize=fuzzer-no-link,address,undefined,float-cast-overflow
                                              -fno-sanitize-recover=all -fno-omit-frame-pointer -O1)
  target_link_options(lunq_flags INTERFACE -fsanitize=address,undefined)
endif()

# lunq_room(NAME DEPENDS ... LIBRARIES ... [PCH header... | PCH_FROM room]): every .cpp of the current folder becomes the
# library NAME. Rooms with the same precompiled header share the one of the lowest of them.
function(lunq_room name)
  cmake_parse_arguments(ROOM "" "PCH_FROM" "DEPENDS;LIBRARIES;PCH" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC lunq_flags ${ROOM_DEPENDS} ${ROOM_LIBRARIES})
  if(ROOM_PCH)
    target_precompile_headers(${name} PRIVATE ${ROOM_PCH})
  elseif(ROOM_PCH_FROM)
    target_precompile_headers(${name} REUSE_FROM ${ROOM_PCH_FROM})
  endif()
endfunction()

# lunq_test(ROOM): every .cpp of tests/ROOM becomes the test program test_ROOM, which links that room.
function(lunq_test room)
  cmake_parse_arguments(TEST "" "" "LIBRARIES" ${ARGN})
  string(REPLACE "/" "_" program "test_${room}")
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/tests/${room}/*.cpp")
  add_executable(${program} ${sources})
  target_link_libraries(${program} PRIVATE lunq_test_support ${TEST_LIBRARIES})
  target_precompile_headers(${program} REUSE_FROM lunq_test_support)
  add_test(NAME ${room} COMMAND ${program})
  set_tests_properties(${room} PROPERTIES TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;UBSAN_OPTIONS=print_stacktrace=1")
endfunction()
