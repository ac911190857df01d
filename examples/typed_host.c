/* A small host that takes its types and numbers from include/vantrix.h. It starts the plug-in that
   is named on the command line, multiplies two planes, and folds a path into a fill array.
   minimal_host.c states the same agreement without the header.

     cc -std=c11 -I. examples/typed_host.c -ldl -o typed_host && ./typed_host ./libvantrix.so */
#include <stdint.h>
#include <stdio.h>
#include <string.h>

#include "include/vantrix.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

static const struct {
  uint32_t code;
  int16_t version, count;
} kSuites[kVantrixSuites] = {
    {kVantrixBlend, kVantrixBlendVersion, kVantrixBlendEntries},
    {kVantrixConvert, kVantrixConvertVersion, kVantrixConvertEntries},
    {kVantrixCore, kVantrixCoreVersion, kVantrixCoreEntries},
    {kVantrixDisplay, kVantrixDisplayVersion, kVantrixDisplayEntries},
    {kVantrixFilter, kVantrixFilterVersion, kVantrixFilterEntries},
    {kVantrixMemory, kVantrixMemoryVersion, kVantrixMemoryEntries},
    {kVantrixPaint, kVantrixPaintVersion, kVantrixPaintEntries},
    {kVantrixResample, kVantrixResampleVersion, kVantrixResampleEntries},
    {kVantrixSelect, kVantrixSelectVersion, kVantrixSelectEntries},
    {kVantrixPath, kVantrixPathVersion, kVantrixPathEntries},
};
enum { kBlend = 0, kCore = 2, kPath = 9, kMostEntries = kVantrixBlendEntries };
static VantrixRoutine tables[kVantrixSuites][kMostEntries];
static struct {
  struct VantrixParameterBlock head;
  struct VantrixSuiteRecord records[kVantrixSuites];
} block = {{0, kVantrixSuites}, {{0, 0, 0, NULL}}};

/* A real host has its own routines in its tables. */
static void NotCalled(void) { puts("a routine was called that nothing calls"); }

static int64_t Poll(void) { return 0; }
static uint32_t Query(uint32_t signature, uint32_t selector, void* answer) {
  const uint64_t isDebugged = 1;
  if (signature != kVantrixHostSignature) return 0; /* no suite that the block does not list */
  if (selector == kVantrixPathDebug) memcpy(answer, &isDebugged, sizeof isDebugged);
  return 1;
}
static int reports;
static void Assert(const char* message, const char* sourceFile, int32_t line, int32_t flag) {
  printf("%s, %s %d, flag %d\n", message, sourceFile, (int)line, (int)flag);
  ++reports;
}

static VantrixPluginMain* Load(const char* path) {
  union {
    void* data;
    VantrixPluginMain* routine;
  } entry = {NULL};
#if defined(_WIN32)
  HMODULE library = LoadLibraryA(path);
  if (library)
    entry.routine = (VantrixPluginMain*)(VantrixRoutine)GetProcAddress(library, "PluginMain");
#else
  void* library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  if (library) entry.data = dlsym(library, "PluginMain");
#endif
  return entry.routine;
}

int main(int count, char** arguments) {
  VantrixPluginMain* const pluginMain = count == 2 ? Load(arguments[1]) : NULL;
  if (!pluginMain) {
    fputs("typed_host: name the plug-in's library\n", stderr);
    return 1;
  }
  for (int i = 0; i < kVantrixSuites; ++i) {
    const struct VantrixSuiteRecord record = {kSuites[i].code, kSuites[i].version, kSuites[i].count,
                                              tables[i]};
    block.records[i] = record;
    for (int slot = 0; slot < kMostEntries; ++slot) tables[i][slot] = NotCalled;
  }
  tables[kCore][kVantrixHostPoll] = (VantrixRoutine)Poll;
  tables[kCore][kVantrixHostCapabilityQuery] = (VantrixRoutine)Query;
  tables[kCore][kVantrixHostAssert] = (VantrixRoutine)Assert;

  int16_t result;
  if (pluginMain(kVantrixStartUp, &block.head, 0, &result) != kVantrixStarted) {
    fprintf(stderr, "typed_host: start-up failed with %d\n", result);
    return 1;
  }

  /* Two rows of three samples each, dense in the source, four bytes apart in the destination. */
  const uint8_t source[6] = {255, 128, 0, 255, 128, 0};
  uint8_t plane[8] = {200, 200, 200, 7, 100, 100, 100, 7};
  const uint8_t product[8] = {200, 100, 0, 7, 100, 50, 0, 7};
  ((VantrixBlendMultiply8*)tables[kBlend][kVantrixBlendMultiply8])(source, plane, 2, 3, 3, 4);
  const int isProduct = memcmp(plane, product, sizeof plane) == 0;
  printf("product: %s\n", isProduct ? "right" : "WRONG");

  /* One row of eight words, in which 2 to 8 is covered. The new shape goes from 5 to 10; its
     entries are at the end of the row. The second eight words are scratch. */
  struct {
    struct VantrixFillArray head;
    uint32_t words[16];
  } path = {{.firstRow = 0, .endRow = 1, .rowStride = 8},
            {2, 2, 2, 8, 0, 0, 10u << 1, 5u << 1 | kVantrixUpward}};
  VantrixApplyFillArrayOperation* const fold =
      (VantrixApplyFillArrayOperation*)tables[kPath][kVantrixApplyFillArrayOperation];
  fold(&path.head, kVantrixSubtract, 1);
  const int isCut = path.words[kVantrixEntryCount] == 2 && path.words[kVantrixPendingCount] == 0 &&
                    path.words[kVantrixFirstEntry] == 2 && path.words[kVantrixFirstEntry + 1] == 5;
  printf("path: %s\n", isCut ? "right" : "WRONG");

  /* An array without rows is reported, because this host asks for checks. */
  path.head.endRow = 0;
  fold(&path.head, kVantrixUnion, 1);
  if (!isProduct || !isCut || reports != 1) return 1;
  puts("all as it should be");
  return 0;
}
