# How tests are built for Windows: with a test framework made from Debian's sources, and one run of
# Wine for each program, since starting one costs more than most cases in it.

# Tests are compiled more often than they run long.
add_compile_options(-O0)

set(BUILD_GMOCK ON)
set(INSTALL_GTEST OFF)
add_subdirectory(/usr/src/googletest "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL)

# mavrin2_tests(NAME LIBRARIES...): a test program of all .cpp files in the current folder and of
# those that are for this system only.
function(mavrin2_tests name)
  file(GLOB sources CONFIGURE_DEPENDS
    "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/windows/*.cpp")
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE ${ARGN} mavrin2_options gmock gtest_main)
  # All files of this machine are on that drive of Wine's.
  target_compile_definitions(${name} PRIVATE TEST_DATA_DIR="Z:${CMAKE_CURRENT_SOURCE_DIR}/data")
  add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()
