# Fails if one of OBJECTS, the kernels' own, needs more than the others and three routines of the C
# library. Nothing in them may allocate, lock or throw.
execute_process(COMMAND nm --undefined-only --format=just-symbols --demangle ${OBJECTS}
                OUTPUT_VARIABLE names COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\n" ";" names "${names}")
list(FILTER names EXCLUDE REGEX "^$|\\.o:$|vantrix::|^mem(cpy|move|set)$|^_GLOBAL_OFFSET_TABLE_$")
if(names)
  message(FATAL_ERROR "the kernels need ${names}")
endif()
