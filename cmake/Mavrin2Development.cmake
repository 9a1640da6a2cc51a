# What an installation has for authors of hosts in C++: headers, their description for pkg-config, and
# the interface definitions, which any other language can read.

# mavrin2_headers(HEADER...): installs headers below the folder that their includes start from.
function(mavrin2_headers)
  foreach(header IN LISTS ARGN)
    get_filename_component(folder "${header}" DIRECTORY)
    install(FILES "${CMAKE_SOURCE_DIR}/${header}" DESTINATION include/mavrin2/${folder})
  endforeach()
endfunction()

# The interfaces, without what implements them.
file(GLOB interfaces RELATIVE "${CMAKE_SOURCE_DIR}" CONFIGURE_DEPENDS
  control/interfaces/*.h companions/contracts/*.h)
list(FILTER interfaces EXCLUDE REGEX "/(lame_members|lame_properties|lame_settings)\\.h$")
# What platform/linux/automation/automation.h includes is the part of COM that hosts see.
file(STRINGS platform/linux/automation/automation.h system REGEX "^#include \"")
list(TRANSFORM system REPLACE "^#include \"(.*)\"$" "\\1")
mavrin2_headers(${interfaces} ${system} platform/linux/automation/automation.h
  platform/automation.h automation/com_ptr.h automation/interface_builder.h
  automation/interface_description.h automation/interface_id.h automation/variant.h)

configure_file(cmake/mavrin2.pc.in "${CMAKE_BINARY_DIR}/mavrin2.pc" @ONLY)
install(FILES "${CMAKE_BINARY_DIR}/mavrin2.pc" DESTINATION lib/pkgconfig)

# A build with tests is not installed; it need not link the programs that write the definitions.
if(NOT MAVRIN2_TESTS)
  set(definitions "")
  foreach(component IN LISTS components)
    set(definition "${CMAKE_BINARY_DIR}/idl/${component}.idl")
    add_custom_command(OUTPUT "${definition}"
      COMMAND ${component}-idl "${definition}"
      DEPENDS ${component}-idl
      VERBATIM)
    list(APPEND definitions "${definition}")
  endforeach()
  add_custom_target(mavrin2_definitions ALL DEPENDS ${definitions})
  install(FILES ${definitions} DESTINATION share/mavrin2/idl)
endif()
