# What every target of the project shares, and the two ways to make one.

# Everywhere the same, so that a program finds its libraries and the component registry relative to
# itself, whatever the prefix.
set(CMAKE_INSTALL_BINDIR bin)
set(CMAKE_INSTALL_LIBDIR lib)
include(GNUInstallDirs)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${MAVRIN2_STAGE_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${MAVRIN2_STAGE_DIR}/lib")
# Relative to the file itself, so that a build tree and an installed tree can be moved.
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN/../lib")

add_library(mavrin2_options INTERFACE)
target_include_directories(mavrin2_options INTERFACE "${CMAKE_SOURCE_DIR}")
# -ffp-contract=off: sums of products round alike on every processor.
# -Wno-non-virtual-dtor: a virtual destructor in an interface would shift every slot after it.
target_compile_options(mavrin2_options INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wdelete-non-virtual-dtor -Wno-non-virtual-dtor
  -ffp-contract=off)
if(WIN32)
  target_compile_definitions(mavrin2_options INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0601)
  # One file is all that a user copies. What no one calls stays out of it.
  target_compile_options(mavrin2_options INTERFACE -ffunction-sections -fdata-sections)
  target_link_options(mavrin2_options INTERFACE -static -Wl,--gc-sections)
endif()
if(MAVRIN2_SANITIZE)
  target_compile_options(mavrin2_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(mavrin2_options INTERFACE -fsanitize=address,undefined)
  # Exported C++ templates are compared by address across modules otherwise.
  target_compile_options(mavrin2_options INTERFACE -fno-sanitize=vptr)
endif()

# mavrin2_folders(FOLDER...): add_subdirectory of each.
function(mavrin2_folders)
  foreach(folder IN LISTS ARGN)
    add_subdirectory(${folder})
  endforeach()
endfunction()

# mavrin2_layer(NAME FOLDER...): a static library of all .cpp files directly in the given folders.
function(mavrin2_layer name)
  set(sources "")
  foreach(folder IN LISTS ARGN)
    file(GLOB found CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp")
    list(APPEND sources ${found})
  endforeach()
  if(sources)
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC mavrin2_options)
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE mavrin2_options)
  endif()
endfunction()

# mavrin2_component(NAME LAYERS...): a loadable component that exports the module entry points. It is
# registered in the build tree and installed.
function(mavrin2_component name)
  if(WIN32)
    mavrin2_windows_component(${name} ${name}-idl ${ARGN})
    add_dependencies(components ${name})
    return()
  endif()
  add_library(${name} SHARED "${CMAKE_SOURCE_DIR}/automation/module_exports.cpp")
  target_link_libraries(${name} PRIVATE ${ARGN})
  # Its libraries are one folder up once it is installed.
  set_target_properties(${name} PROPERTIES INSTALL_RPATH "$ORIGIN/..")
  set_property(GLOBAL APPEND PROPERTY MAVRIN2_COMPONENTS ${name})
  install(TARGETS ${name} LIBRARY DESTINATION lib/mavrin2)
endfunction()
