# Writes form_macros.h: for each form, the instruction sets that the compiler may use in its units,
# as the compiler's own macros name them.
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp "")
function(macros_with result)
  if(CMAKE_CXX_COMPILER_TARGET)
    list(APPEND ARGN --target=${CMAKE_CXX_COMPILER_TARGET})
  endif()
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} ${ARGN} -dM -E empty.cpp
                  WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR} OUTPUT_VARIABLE output
                  COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL "#define [A-Za-z0-9_]+" macros "${output}")
  list(TRANSFORM macros REPLACE "#define " "")
  set(${result} ${macros} PARENT_SCOPE)
endfunction()

macros_with(always)
separate_arguments(common NATIVE_COMMAND "${CMAKE_CXX_FLAGS}")
set(text "#pragma once\n\n#include \"common/forms.h\"\n\nnamespace vantrix {\n\n")
string(APPEND text "template <class Form>\ninline constexpr const char* kMacros = nullptr;\n")
foreach(form ${VANTRIX_FORMS})
  get_directory_property(flags ${plugin} VANTRIX_FLAGS_${form})
  macros_with(macros ${common} ${flags})
  list(REMOVE_ITEM macros ${always})
  list(FILTER macros EXCLUDE REGEX "^__FP_FAST_")  # these say that fused products are fast
  list(JOIN macros " " macros)
  string(APPEND text "template <>\ninline constexpr const char* kMacros<${form}> = \"${macros}\";\n")
endforeach()
string(APPEND text "\n}  // namespace vantrix\n")
file(CONFIGURE OUTPUT form_macros.h CONTENT "${text}" @ONLY)
