# Tests what the compiler made of the kernels: the instructions and names in the objects.
add_test(NAME kernel_imports COMMAND ${CMAKE_COMMAND}
  "-DOBJECTS=$<FILTER:${vantrix_core_objects},INCLUDE,/suites/>"
  -P ${CMAKE_CURRENT_SOURCE_DIR}/check_imports.cmake)

set(check_objects ${CMAKE_CURRENT_SOURCE_DIR}/check_objects.py)
add_test(NAME objects_Core COMMAND ${check_objects} Core $<TARGET_OBJECTS:vantrix_core>
         $<TARGET_OBJECTS:vantrix_core_entry> $<TARGET_OBJECTS:vantrix_core_startup>
         COMMAND_EXPAND_LISTS)
foreach(form ${VANTRIX_FORMS})
  add_test(NAME objects_${form} COMMAND ${check_objects} ${form}
           $<TARGET_OBJECTS:vantrix_core_${form}> $<TARGET_OBJECTS:lane_ops_${form}>
           COMMAND_EXPAND_LISTS)
endforeach()
if(TARGET vantrix_text64)
  add_test(NAME objects_Text64 COMMAND ${check_objects} Text64
           $<TARGET_OBJECTS:vantrix_text64> $<TARGET_OBJECTS:lane_ops_Text64> COMMAND_EXPAND_LISTS)
endif()

# Tests that the check finds what it must find.
add_library(unfit_object OBJECT unfit_object.cpp)
target_link_libraries(unfit_object PRIVATE vantrix_flags)
target_compile_definitions(unfit_object PRIVATE VX_FORM=Avx512)
target_compile_options(unfit_object PRIVATE -ffunction-sections)
function(refused_as form)
  list(JOIN ARGN ".*" expect)
  program_test(objects_refused_as_${form} "${check_objects};${form};$<TARGET_OBJECTS:unfit_object>"
               1 "${expect}")
endfunction()
refused_as(Avx512
  "approximation: rcpps"
  "compress store: vpcompressb"
  "fused product: vfmadd231ps"
  "gather: vpgatherdd"
  "masked store: maskmovdqu"
  "masked store: vpmaskmovd"
  "names Scalar: "
  "names no form: [^\n]*NamesNoForm"
  "newer than Avx512: andn"
  "no %zmm in kernel [^\n]*NarrowKernel"
  "returns to what was pushed: "
  "runs before main"
  "scatter: vpscatterdd"
  "1 objects, 2 kernels, 14 faults")
refused_as(Avx2
  "newer than Avx2: vpaddb %zmm0" "no %ymm in kernel [^\n]*NarrowKernel")
refused_as(Sse2 "names Avx512: " "newer than Sse2: vpaddb %xmm0" "newer than Sse2: vpaddb %ymm0")
