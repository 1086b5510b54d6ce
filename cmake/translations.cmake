# What the builds of the language libraries and of the help pages read of the translations.
set(translation_folder ${CMAKE_SOURCE_DIR}/languages)

# The languages that are built with the program.
function(list_languages result)
  set(language_list ${translation_folder}/LINGUAS)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${language_list})
  file(STRINGS ${language_list} languages REGEX "^[^#]")
  set(${result} ${languages} PARENT_SCOPE)
endfunction()

# The first word of a field in a translation's header.
function(read_translation_field language field result)
  set(po_file ${translation_folder}/${language}.po)
  if(NOT EXISTS ${po_file})
    message(FATAL_ERROR "languages/LINGUAS names ${language}, but there is no languages/${language}.po")
  endif()
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${po_file})
  file(STRINGS ${po_file} line REGEX "^\"${field}: ")
  if(NOT line MATCHES ": *([^ \\\\]+)")
    message(FATAL_ERROR "${po_file}: the header field ${field} is missing or empty")
  endif()
  set(${result} ${CMAKE_MATCH_1} PARENT_SCOPE)
endfunction()
