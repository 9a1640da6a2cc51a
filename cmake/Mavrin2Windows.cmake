# What a build for Windows adds to a program or a component: resources, and the type library that is
# compiled from the descriptions of its interfaces.

enable_language(RC)
# Static libraries only: the others are named .dll.a.
set(CMAKE_FIND_LIBRARY_SUFFIXES .a)
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(MAVRIN2_WIDL_FLAG --win64)
else()
  set(MAVRIN2_WIDL_FLAG --win32)
endif()
find_program(MAVRIN2_WIDL ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32-widl REQUIRED)
# The library that declares what all libraries share comes with Wine; its two forms say the same.
find_path(MAVRIN2_STDOLE stdole2.tlb REQUIRED NO_CMAKE_FIND_ROOT_PATH
  PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows /usr/lib/i386-linux-gnu/wine/i386-windows)
set(MAVRIN2_IDL_PROGRAMS "${CMAKE_SOURCE_DIR}/build/release/idl" CACHE PATH
    "Folder of the programs that describe libraries, built for this machine")

# mavrin2_type_library(TARGET PROGRAM): compiles what PROGRAM describes into TARGET's resource 1.
function(mavrin2_type_library target program)
  set(stem "${CMAKE_CURRENT_BINARY_DIR}/${target}")
  set(writer "${MAVRIN2_IDL_PROGRAMS}/${program}")
  add_custom_command(
    OUTPUT "${stem}.tlb"
    COMMAND "${writer}" "${stem}.idl"
    COMMAND "${MAVRIN2_WIDL}" ${MAVRIN2_WIDL_FLAG} -t -L "${MAVRIN2_STDOLE}" -o "${stem}.tlb"
            "${stem}.idl"
    DEPENDS "${writer}"
    COMMENT "Compiling the type library of ${target}"
    VERBATIM)
  file(CONFIGURE OUTPUT "${stem}-library.rc" @ONLY CONTENT "1 TYPELIB \"${stem}.tlb\"\n")
  set_source_files_properties("${stem}-library.rc" PROPERTIES OBJECT_DEPENDS "${stem}.tlb")
  target_sources(${target} PRIVATE "${stem}-library.rc")
endfunction()

# mavrin2_resources(TARGET RESOURCES PICTURE): what TARGET carries beside its code, from a resource
# script in which @picture@ is the path of the bitmap that is drawn from the text PICTURE.
function(mavrin2_resources target resources picture_text)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  set(picture_text "${CMAKE_CURRENT_SOURCE_DIR}/${picture_text}")
  set(picture "${CMAKE_CURRENT_BINARY_DIR}/${target}.bmp")
  set(draw "${CMAKE_SOURCE_DIR}/cmake/draw_bitmap.py")
  add_custom_command(
    OUTPUT "${picture}"
    COMMAND Python3::Interpreter "${draw}" "${picture_text}" "${picture}"
    DEPENDS "${draw}" "${picture_text}"
    COMMENT "Drawing the picture of ${target}"
    VERBATIM)
  set(script "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
  configure_file("${resources}" "${script}" @ONLY)
  set_source_files_properties("${script}" PROPERTIES OBJECT_DEPENDS "${picture}")
  target_sources(${target} PRIVATE "${script}")
endfunction()

# mavrin2_windows_component(NAME PROGRAM LAYERS...): a DLL with the four entry points of a component
# and the type library that PROGRAM describes.
function(mavrin2_windows_component name program)
  set(entry "${CMAKE_SOURCE_DIR}/platform/windows/entry")
  add_library(${name} SHARED "${CMAKE_SOURCE_DIR}/automation/module_exports.cpp"
    "${entry}/module_entry.cpp" "${entry}/component.def")
  target_link_libraries(${name} PRIVATE ${ARGN})
  set_target_properties(${name} PROPERTIES PREFIX "")
  # No minute of the clock in the file, so that one source gives one file.
  target_link_options(${name} PRIVATE -Wl,--enable-stdcall-fixup,--no-insert-timestamp -s)
  mavrin2_type_library(${name} ${program})
endfunction()

# All that a user gets, which mavrin2_component adds to.
add_custom_target(components)
