# A room is a folder below src/ that is one library. Sources include by paths from src/. A room links the rooms in DEPENDS,
# and those that these link; a call of a function in any other room does not link.

add_library(lunq_flags INTERFACE)
target_compile_options(lunq_flags INTERFACE
  -Wall -Wextra -Wpedantic $<$<BOOL:${LUNQ_WERROR}>:-Werror> -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wformat=2
  $<$<CONFIG:Release>:-O2>)
target_compile_definitions(lunq_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS
  QT_NO_FOREACH QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_STRICT_ITERATORS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_include_directories(lunq_flags INTERFACE "${CMAKE_SOURCE_DIR}/src")
if(LUNQ_SANITIZE)
  target_compile_options(lunq_flags INTERFACE -fsanitize=${LUNQ_SANITIZE} -fno-sanitize-recover=undefined
                                              -fno-omit-frame-pointer)
  target_link_options(lunq_flags INTERFACE -fsanitize=${LUNQ_SANITIZE})
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

# lunq_test(ROOM LIBRARIES ... [ENVIRONMENT NAME=VALUE...]): every .cpp of tests/ROOM becomes the test program test_ROOM,
# which links these libraries. Each of its classes is a test of its own: a crash takes no other class with it.
function(lunq_test room)
  cmake_parse_arguments(TEST "" "" "LIBRARIES;ENVIRONMENT" ${ARGN})
  string(REPLACE "/" "_" program "test_${room}")
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/tests/${room}/*.cpp")
  add_executable(${program} ${sources})
  target_link_libraries(${program} PRIVATE lunq_test_support ${TEST_LIBRARIES})
  target_precompile_headers(${program} REUSE_FROM lunq_test_support)
  list(PREPEND TEST_ENVIRONMENT "QT_QPA_PLATFORM=offscreen" "UBSAN_OPTIONS=print_stacktrace=1")
  set(list "${CMAKE_CURRENT_BINARY_DIR}/${program}_classes.cmake")
  add_custom_command(TARGET ${program} POST_BUILD
    COMMAND "${CMAKE_COMMAND}" "-DPROGRAM=$<TARGET_FILE:${program}>" "-DROOM=${room}" "-DOUTPUT=${list}"
            "-DENVIRONMENT=${TEST_ENVIRONMENT}"
            -P "${CMAKE_SOURCE_DIR}/cmake/TestClasses.cmake"
    BYPRODUCTS "${list}" COMMENT "Listing the classes of ${program}" VERBATIM)
  # If a program was not built, its test fails; it does not vanish.
  set(include "${CMAKE_CURRENT_BINARY_DIR}/${program}_tests.cmake")
  file(WRITE "${include}"
    "if(EXISTS [==[${list}]==])\n  include([==[${list}]==])\nelse()\n  add_test(${room} ${program}_is_not_built)\nendif()\n")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${include}")
endfunction()
