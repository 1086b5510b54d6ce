# The program's version, told here alone: the executable's version record and the installer take it from here.
set(KESTRELMOOR_VERSION_MAJOR 1)
set(KESTRELMOOR_VERSION_MINOR 2)
set(KESTRELMOOR_VERSION_REVISION 84)

# "1.02.0084": the minor version has two digits, the revision four.
function(pad_version_number number digits result)
  string(REPEAT 0 ${digits} zeros)
  string(LENGTH ${number} length)
  if(length LESS digits)
    string(SUBSTRING ${zeros} ${length} -1 missing)
    set(number ${missing}${number})
  endif()
  set(${result} ${number} PARENT_SCOPE)
endfunction()
pad_version_number(${KESTRELMOOR_VERSION_MINOR} 2 padded_minor)
pad_version_number(${KESTRELMOOR_VERSION_REVISION} 4 padded_revision)
set(KESTRELMOOR_VERSION_TEXT ${KESTRELMOOR_VERSION_MAJOR}.${padded_minor}.${padded_revision})
