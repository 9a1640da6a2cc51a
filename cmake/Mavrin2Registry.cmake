# The component registry of the build tree and of an installation. Each holds the components that
# lie beside it by paths relative to itself, so that both trees can be moved.
get_property(components GLOBAL PROPERTY MAVRIN2_COMPONENTS)

set(registry "${MAVRIN2_STAGE_DIR}/lib/mavrin2-components")
set(modules "")
set(installed_modules "")
foreach(component IN LISTS components)
  list(APPEND modules "$<TARGET_FILE:${component}>")
  list(APPEND installed_modules "lib/mavrin2/$<TARGET_FILE_NAME:${component}>")
endforeach()

if(components)
  # Made from nothing each time: a class that a component has dropped must not stay known.
  add_custom_command(
    OUTPUT "${registry}"
    COMMAND "${CMAKE_COMMAND}" -E rm -f "${registry}"
    COMMAND mavrin2-register --registry "${registry}" ${modules}
    DEPENDS mavrin2-register ${components}
    COMMENT "Registering the components of this build tree"
    VERBATIM)
  add_custom_target(mavrin2_registry ALL DEPENDS "${registry}")

  list(JOIN installed_modules ";" installed_modules)
  install(CODE "
    set(root \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}\")
    set(modules \"${installed_modules}\")
    list(TRANSFORM modules PREPEND \"\${root}/\")
    message(STATUS \"Registering: \${root}/lib/mavrin2-components\")
    file(REMOVE \"\${root}/lib/mavrin2-components\")
    execute_process(
      COMMAND \"\${root}/bin/mavrin2-register\"
              --registry \"\${root}/lib/mavrin2-components\" \${modules}
      COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE \"\${root}/lib/mavrin2-components.lock\")")
endif()
