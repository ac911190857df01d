# Runs every test program, `slots` and `verify` again on emulated processors: one with only what
# 64-bit code may rely on, one with SSSE3 but not SSE4.1, and one with all that the emulator has,
# which is up to AVX2. An instruction that a processor lacks ends the program that executes it.
#
# More models are only asked which forms they allow, and every program must start on them. The last
# four lack part of what a wide form needs: AVX, the saving of its registers, or SSSE3, which the
# compiler takes for granted with AVX2.
find_program(VANTRIX_QEMU qemu-x86_64 REQUIRED)
add_executable(instruction instruction.cpp)

function(expect_forms test forms)
  set_tests_properties(${test} PROPERTIES ENVIRONMENT "VANTRIX_EXPECT_FORMS=${forms}")
endfunction()

function(executes name cpu feature)
  program_test(on_${name}_has_${feature} "${VANTRIX_QEMU};-cpu;${cpu};$<TARGET_FILE:instruction>;${feature}"
               0 "executed ${feature}")
endfunction()
function(refuses name cpu feature)
  program_test(on_${name}_lacks_${feature} "${VANTRIX_QEMU};-cpu;${cpu};$<TARGET_FILE:instruction>;${feature}"
               "Illegal instruction" "")
endfunction()

# `forms` are those that run there.
function(asks_processor name cpu forms)
  set(on ${VANTRIX_QEMU} -cpu ${cpu})
  add_test(NAME on_${name}_forms COMMAND ${on} $<TARGET_FILE:test_kernels>
           --gtest_filter=FormsTest.*:InstalledTest.*)
  expect_forms(on_${name}_forms "${forms}")
  add_test(NAME on_${name}_detection COMMAND ${on} $<TARGET_FILE:test_instruction_sets>)
  add_test(NAME on_${name}_verify COMMAND ${on} $<TARGET_FILE:vantrix-host> verify 20)
  program_test(on_${name}_slots "${on};$<TARGET_FILE:vantrix-host>;slots" 0 "slots served")
  program_test(on_${name}_bench "${on};$<TARGET_FILE:vantrix-bench>;--benchmark_list_tests" 0
               "blnd/2/SSE2/")
endfunction()

# `with` and `without` are the features that `slots` must report as present and as missing.
function(on_processor name cpu with without forms)
  set(on ${VANTRIX_QEMU} -cpu ${cpu})
  foreach(area ${VANTRIX_AREAS})
    add_test(NAME on_${name}_${area} COMMAND ${on} $<TARGET_FILE:test_${area}>)
  endforeach()
  expect_forms(on_${name}_kernels "${forms}")
  set(expect "")
  foreach(feature ${with})
    string(APPEND expect "  [+] ${feature}\n")
    executes(${name} ${cpu} ${feature})
  endforeach()
  foreach(feature ${without})
    string(APPEND expect "  - ${feature}\n")
    refuses(${name} ${cpu} ${feature})
  endforeach()
  program_test(on_${name}_host_slots "${on};$<TARGET_FILE:vantrix-host>;slots" 0 "${expect}")
  program_test(on_${name}_host_verify "${on};$<TARGET_FILE:vantrix-host>;verify" 0
               "\n[0-9]+ passed, 0 failed")
  program_test(on_${name}_bench "${on};$<TARGET_FILE:vantrix-bench>;--benchmark_list_tests" 0
               "blnd/2/SSE2/")
endfunction()

on_processor(sse2 qemu64,-pni "" "SSSE3;SSE4.1" "scalar SSE2")
on_processor(ssse3 core2duo "SSSE3" "SSE4.1" "scalar SSE2 SSSE3 text64")
on_processor(all max "SSSE3;SSE4.1" "" "scalar SSE2 SSSE3 AVX2 text64")

asks_processor(nehalem Nehalem "scalar SSE2 SSSE3 text64")
asks_processor(sandybridge SandyBridge "scalar SSE2 SSSE3 text64")
asks_processor(haswell Haswell "scalar SSE2 SSSE3 AVX2 text64")
asks_processor(epyc EPYC "scalar SSE2 SSSE3 AVX2 text64")
asks_processor(all_but_avx max,-avx "scalar SSE2 SSSE3 text64")
asks_processor(all_but_xsave max,-xsave "scalar SSE2 SSSE3 text64")
asks_processor(all_but_ssse3 max,-ssse3 "scalar SSE2")
asks_processor(avx2_alone qemu64,+avx,+avx2 "scalar SSE2")

executes(all max AVX2)
executes(all_but_ssse3 max,-ssse3 AVX2)
refuses(ssse3 core2duo AVX2)
refuses(sandybridge SandyBridge AVX2)
refuses(all_but_xsave max,-xsave AVX2)
