// instruction NAME executes one instruction of SSSE3, SSE4.1 or AVX2. An emulated processor without
// it must refuse it, or the runs on that processor would show nothing.
#include <cstdio>
#include <string_view>

int main(int count, char** arguments) {
  const std::string_view name = count == 2 ? arguments[1] : "";
  if (name == "SSSE3") asm volatile("pabsd %%xmm0, %%xmm0" : : : "xmm0");
  if (name == "SSE4.1") asm volatile("pmulld %%xmm0, %%xmm0" : : : "xmm0");
  if (name == "AVX2") asm volatile("vpaddd %%ymm0, %%ymm0, %%ymm0\n\tvzeroupper" : : : "xmm0");
  std::printf("executed %s\n", arguments[count - 1]);
  return 0;
}
