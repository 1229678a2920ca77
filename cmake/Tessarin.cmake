# What every target of the tree shares: the language, the warnings, and one call a folder.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_library(tessarin_options INTERFACE)
target_compile_options(tessarin_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)  # g++ 12 sees overlaps in std::string that are none
if(TESSARIN_WERROR)
  target_compile_options(tessarin_options INTERFACE -Werror)
endif()
if(TESSARIN_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined
    -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(TESSARIN_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# tessarin_library(floor [dependency ...]): the library tessarin_<floor> of every .cpp in this
# folder. A floor links only the floors below it, so the linker holds the architecture.
function(tessarin_library floor)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
  add_library(tessarin_${floor} STATIC ${sources})
  target_include_directories(tessarin_${floor} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(tessarin_${floor} PUBLIC ${ARGN} PRIVATE tessarin_options)
endfunction()

# tessarin_test(name [library ...]): the test program <name>_test of every .cpp in this folder.
function(tessarin_test name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
  add_executable(${name}_test ${sources})
  target_include_directories(${name}_test PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
  if(TARGET tessarin_${name})
    target_link_libraries(${name}_test PRIVATE tessarin_${name})
  endif()
  target_link_libraries(${name}_test PRIVATE ${ARGN} tessarin_options GTest::gtest_main)
  include(GoogleTest)
  gtest_discover_tests(${name}_test DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
endfunction()
