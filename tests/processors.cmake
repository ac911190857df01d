# Every test program, `slots` and `verify` once more on emulated processors: what 64-bit
# code may count on and no more, SSSE3 without SSE4.1, and all there is. An instruction
# that a processor lacks ends the program that meets it.
find_program(VANTRIX_QEMU qemu-x86_64 REQUIRED)
add_executable(instruction instruction.cpp)

# `with` and `without` are what `slots` says of the processor.
function(on_processor name cpu with without)
  set(on ${VANTRIX_QEMU} -cpu ${cpu})
  foreach(area ${VANTRIX_AREAS})
    add_test(NAME on_${name}_${area} COMMAND ${on} $<TARGET_FILE:test_${area}>)
  endforeach()
  set(expect "")
  foreach(feature ${with})
    string(APPEND expect "  [+] ${feature}\n")
    program_test(on_${name}_has_${feature} "${on};$<TARGET_FILE:instruction>;${feature}" 0 "executed ${feature}")
  endforeach()
  foreach(feature ${without})
    string(APPEND expect "  - ${feature}\n")
    program_test(on_${name}_lacks_${feature} "${on};$<TARGET_FILE:instruction>;${feature}"
                 "Illegal instruction" "")
  endforeach()
  program_test(on_${name}_host_slots "${on};$<TARGET_FILE:vantrix-host>;slots" 0 "${expect}")
  program_test(on_${name}_host_verify "${on};$<TARGET_FILE:vantrix-host>;verify" 0
               "\n[0-9]+ passed, 0 failed")
endfunction()

on_processor(sse2 qemu64,-pni "" "SSSE3;SSE4.1")
on_processor(ssse3 core2duo "SSSE3" "SSE4.1")
on_processor(all max "SSSE3;SSE4.1" "")
