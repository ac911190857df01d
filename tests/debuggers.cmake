# Tests the printers of tools/debugger, in both debuggers, on a program that is not optimised.
add_executable(debugger_subject debugger_subject.cpp)
target_link_libraries(debugger_subject PRIVATE vantrix_flags)
target_compile_options(debugger_subject PRIVATE -O0 -g -Wno-psabi)

set(shown
  "one = 1 x 8 bits .65."
  "bytes = 32 x 8 bits .200 201 [0-9 ]* 215 . 216 [0-9 ]* 231."
  "words = 8 x 16 bits .-1 2 -3 4 -32768 32767 0 1."
  "floats = 4 x 32 bits .0.5 -1 1e.10 0."
  "plane = row at 0x[0-9a-f]+, stride -40: 200 201 [0-9 ]* 215 "
  "target = row at 0x[0-9a-f]+, stride 64: 208 209 "
  "weights = row at 0x[0-9a-f]+, stride 16: 216 217 "
  "nowhere = row at 0x10, stride 1: unreadable"
  "head = rows -1 to 1, 8 words each"
  "row -1 = 4..9 7.up 5.down, row 0 = empty, row 1 = 9 settled, 1 pending: more than the 6 that fit")
list(JOIN shown ".*" shown)
set(printers ${PROJECT_SOURCE_DIR}/tools/debugger)
set(subject $<TARGET_FILE:debugger_subject>)
program_test(printers_gdb
  "gdb;-nx;-batch;-ex;source ${printers}/gdb_printers.py;-ex;break Stop;-ex;run;-ex;up;-ex;info locals;${subject}"
  0 "${shown}")
program_test(printers_lldb
  "lldb-19;--no-lldbinit;--batch;-o;command script import ${printers}/lldb_printers.py;-o;breakpoint set -n Stop;-o;run;-o;up;-o;frame variable;${subject}"
  0 "${shown}")
