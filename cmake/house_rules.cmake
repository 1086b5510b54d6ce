# What holds for every target of ours: the language, the warnings, and what keeps Moorlink.exe small.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_CXX_SCAN_FOR_MODULES OFF)

add_library(house_rules INTERFACE)
target_compile_options(house_rules INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Werror
  $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Woverloaded-virtual>
  -ffile-prefix-map=${CMAKE_SOURCE_DIR}/=)
target_include_directories(house_rules INTERFACE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR})

if(KESTRELMOOR_SANITIZE)
  target_compile_options(house_rules INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  target_link_options(house_rules INTERFACE -fsanitize=address,undefined)
endif()

if(KESTRELMOOR_COVERAGE)
  target_compile_options(house_rules INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:-fprofile-instr-generate;-fcoverage-mapping>")
  target_link_options(house_rules INTERFACE -fprofile-instr-generate)
endif()

if(KESTRELMOOR_FUZZ)
  # Not for a library that the program loads: it would look for the fuzzer's hooks in vain.
  set(not_traced ${CMAKE_CURRENT_LIST_DIR}/fuzz_not_traced.txt)
  target_compile_options(house_rules INTERFACE
    "$<$<NOT:$<STREQUAL:$<TARGET_PROPERTY:TYPE>,MODULE_LIBRARY>>:-fsanitize=fuzzer-no-link;-fsanitize-coverage-ignorelist=${not_traced}>")
  # Steps beyond a container's end are findings in the build without sanitizers, too.
  target_compile_definitions(house_rules INTERFACE _GLIBCXX_ASSERTIONS)
endif()

if(WIN32)
  # UNICODE names throughout; nothing newer than the oldest system's structures.
  target_compile_definitions(house_rules INTERFACE UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX)
  target_compile_options(house_rules INTERFACE -ffunction-sections -fdata-sections -g1)
  target_link_options(house_rules INTERFACE -static -Wl,--gc-sections -Wl,--no-insert-timestamp)
endif()
