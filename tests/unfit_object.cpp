// Everything that check_objects.py refuses, to show that it does.
#include "plugin/base/builds.h"

namespace vantrix {
namespace {

// Listed for 64-byte registers, and uses none.
template <class Form>
void NarrowKernel() {
  asm volatile("vpaddb %xmm0, %xmm0, %xmm0");
}
template <class Form>
void WideKernel() {
  asm volatile("vpaddb %zmm0, %zmm0, %zmm0");
}

int Ask() {
  int answer = 0;
  asm volatile("" : "+r"(answer));
  return answer;
}

}  // namespace

extern const Build kUnfitBuilds[] = {{1, Entry<NarrowKernel<VX_FORM>>},
                                     {2, Entry<WideKernel<VX_FORM>>}};

extern const int kAsked;
const int kAsked = Ask();

// Has one name in every form's unit, although the instructions differ.
template <class Sample>
[[gnu::noinline]] void NamesNoForm() {
  asm volatile("vpaddb %ymm0, %ymm0, %ymm0");
}
template <class Form>
[[gnu::noinline]] void NamesAForm() {
  asm volatile("andn %eax, %eax, %eax");
}

void Execute() {
  NamesNoForm<char>();
  NamesAForm<VX_FORM>();
  NamesAForm<Scalar>();
  asm volatile("vpgatherdd %ymm0, (%rax, %ymm1), %ymm2");
  asm volatile("vpscatterdd %zmm0, (%rax, %zmm1) {%k1}");
  asm volatile("vpcompressb %zmm0, (%rax) {%k1}");
  asm volatile("vpmaskmovd %ymm0, %ymm1, (%rax)");
  asm volatile("maskmovdqu %xmm0, %xmm1");
  asm volatile("vfmadd231ps %ymm0, %ymm1, %ymm2");
  asm volatile("rcpps %xmm0, %xmm1");
  asm volatile("push %rax\n ret");
}

}  // namespace vantrix
