# The compiler flags of each form, by the names of common/forms.h. Start-up must detect every
# instruction that a form's flags allow (plugin/base/instruction_sets.cpp).
#
# Kernels are vectorised by hand. From the other loops of wide units compilers make gathers and
# masked stores, which some processors run from microcode.
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  set(VANTRIX_NO_AUTOVECTORS -fno-vectorize -fno-slp-vectorize)
else()
  # The second flag is needed because GCC 12 takes the undefined lanes of its own 64-byte intrinsics
  # for uninitialised values of ours.
  set(VANTRIX_NO_AUTOVECTORS -fno-tree-vectorize -Wno-maybe-uninitialized)
endif()
set(VANTRIX_FORMS Scalar Sse2 Ssse3 Avx2 Avx512)
set(VANTRIX_FLAGS_Ssse3 -mssse3)
set(VANTRIX_FLAGS_Avx2 -mavx2 ${VANTRIX_NO_AUTOVECTORS})
set(VANTRIX_FLAGS_Avx512 -mavx512f -mavx512bw -mavx512dq -mavx512vl -mavx512vbmi
                         -mprefer-vector-width=512 ${VANTRIX_NO_AUTOVECTORS})
if(WIN32 AND NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR "GCC stores 32-byte registers misaligned on Windows' stacks: use clang")
endif()
