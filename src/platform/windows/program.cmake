# Moorlink.exe, stripped, in a folder as it is installed; its symbols go beside that folder.

# A library of its own, since the resource compiler understands none of the house's options.
set(resources ${CMAKE_SOURCE_DIR}/resources)
set(version_header ${CMAKE_CURRENT_BINARY_DIR}/resources/version.h)
configure_file(${resources}/version.h.in ${version_header} @ONLY)
add_library(moorlink_resources OBJECT ${resources}/Moorlink.rc)
target_include_directories(moorlink_resources PRIVATE ${resources} ${CMAKE_CURRENT_BINARY_DIR}/resources)
set_source_files_properties(${resources}/Moorlink.rc PROPERTIES
  OBJECT_DEPENDS "${resources}/Moorlink.manifest;${resources}/Moorlink.ico;${resources}/hand.cur;${version_header}")

add_executable(Moorlink WIN32 entry.cpp standard_library.cpp)
target_link_libraries(Moorlink PRIVATE kestrelmoor_logic moorlink_resources)
target_link_options(Moorlink PRIVATE
  -Wl,--major-subsystem-version=4,--minor-subsystem-version=0
  -Wl,--major-os-version=4,--minor-os-version=0
  -Wl,--dynamicbase,--nxcompat)
set_target_properties(Moorlink PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/program)

set(symbols ${CMAKE_BINARY_DIR}/Moorlink.exe.debug)
# Without --preserve-dates the tool would put the time of day into the program's header.
add_custom_command(TARGET Moorlink POST_BUILD
  COMMAND ${CMAKE_OBJCOPY} --only-keep-debug $<TARGET_FILE:Moorlink> ${symbols}
  COMMAND ${CMAKE_STRIP} --strip-all --preserve-dates $<TARGET_FILE:Moorlink>
  BYPRODUCTS ${symbols}
  VERBATIM)
