/* The smallest host: what an author of a host needs to know to run the plug-in, in C11. On purpose
   it includes nothing of ours: it states the agreement again, in literal numbers, so that a change
   of the header shows. typed_host.c includes the header. This host loads the library that is named
   on the command line, starts it several times, calls routines through its own tables, and prints
   what happened. It ends with status 0 if all went as it should.

     cc -std=c11 minimal_host.c -ldl -o minimal_host && ./minimal_host ./libvantrix.so

   Pointers have 8 bytes. Routines use the C calling convention of the system. The block is read
   while the plug-in starts. Tables are used as long as the process lives. The thread that starts
   the plug-in keeps flush-to-zero. Routines of the plug-in may be called from any thread. */
#include <stdint.h>
#include <stdio.h>
#include <string.h>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

/* An entry of a table. The caller casts it to the routine's own type. */
typedef void (*Routine)(void);

/* How a host tells the plug-in about its routine suites: 8 bytes, then 16 bytes for each suite. */
struct SuiteRecord {
  uint32_t code; /* four letters, the first in the highest byte */
  int16_t version;
  int16_t count;     /* how many entries the host says the table has */
  Routine* routines; /* written by the plug-in when it starts */
};
struct ParameterBlock {
  uint32_t hosts; /* not read */
  int32_t recordCount;
  struct SuiteRecord records[10];
};
_Static_assert(sizeof(struct SuiteRecord) == 16, "a record has 16 bytes");

/* The one export. Selector 1 starts; 0 and 2 do nothing; any other is unknown. The result word is
   always written: 0, -1 for a failure, -30300 for an unknown selector. Returns 1 after a start, and
   otherwise the number in the result word. */
typedef int32_t PluginMainRoutine(int16_t selector, struct ParameterBlock* block, intptr_t data,
                                  int16_t* result);

/* The ten suites, each in the version that the plug-in looks for, and how many entries of its table
   are copied when the plug-in starts. That many must be readable, whatever the count says. The
   count must be at least `least`, or negative. */
#define ENTRIES 400
static const struct {
  char code[5];
  int16_t version, least, copied;
} kSuites[10] = {
    {"blnd", 6, 109, 395}, {"conv", 12, 15, 79}, {"core", 4, 8, 17},    {"disp", 7, 24, 82},
    {"filt", 9, 60, 345},  {"memo", 4, 36, 182}, {"pntg", 11, 92, 151}, {"rsmp", 5, 9, 62},
    {"sele", 6, 115, 123}, {"path", 16, 47, 53},
};
enum { kBlend = 0, kCore = 2, kFilter = 4, kMemory = 5 };
static Routine tables[10][ENTRIES];

/* Stands for the host's routine in an entry that nothing here calls. */
static void NotCalled(void) { puts("a routine was called that nothing calls"); }

/* Services that the plug-in calls: entries 0, 5 and 16 of the core suite, and entries 0 and 3 of
   the memory suite as they are after the start. It replaces entry 3 of the core suite by a routine
   that calls the host's own. */
static int polls;
static int64_t Poll(void) { return ++polls; }

/* Called when the plug-in starts. It is called for each suite that the block does not list, with
   the signature QXXM and the suite's code. A host that returns 1 has written the address of a
   record into *answer. For these questions the block must list the core suite with 5 entries or
   more. Then it is called with the signature QXIM and pdbg, and with QXIM and pdgv: whether to
   check fill arrays of paths, and with which guard value. */
static struct SuiteRecord* unlisted;
static uint64_t pathIsDebugged;
static char asked[200];
static uint8_t Query(uint32_t signature, uint32_t selector, void* answer) {
  const uint32_t words[2] = {signature, selector};
  for (int i = 0; i < 8; ++i) {
    const char letter[2] = {(char)(words[i / 4] >> (24 - 8 * (i % 4))), 0};
    strncat(asked, letter, sizeof asked - strlen(asked) - 1);
  }
  strcat(asked, " ");
  uint64_t was;
  memcpy(&was, answer, 8);
  if (was != 0) strcat(asked, "not cleared ");
  if (signature == 0x5158584D) memcpy(answer, &unlisted, 8);      /* QXXM */
  if (selector == 0x70646267) memcpy(answer, &pathIsDebugged, 8); /* pdbg */
  return signature == 0x5158584D;
}
static char asserted[200];
static void Assert(const char* message, const char* file, int32_t line, int32_t flag) {
  snprintf(asserted, sizeof asserted, "%s %s %d %d", message,
           strrchr(file, '\\') ? strrchr(file, '\\') + 1 : file, (int)line, (int)flag);
}

/* The host's own routine in entry 53 of the suite of blends. The plug-in writes this entry with a
   pass-through to the host's own routine. */
static int64_t HostsOwn(int32_t a, int64_t b) { return a + b; }

static int failures;
static void Expect(const char* what, int64_t actual, int64_t expected) {
  const int isRight = actual == expected;
  printf("%-44s %lld%s\n", what, (long long)actual, isRight ? "" : "  WRONG");
  if (!isRight) printf("%44s %lld was expected\n", "", (long long)expected);
  failures += !isRight;
}

static const char* Reason(void) {
#if defined(_WIN32)
  static char text[40];
  snprintf(text, sizeof text, "cannot load it, error %lu", GetLastError());
  return text;
#else
  return dlerror();
#endif
}
static PluginMainRoutine* Load(const char* path) {
  union {
    void* data;
    PluginMainRoutine* routine;
  } entry = {NULL};
#if defined(_WIN32)
  HMODULE library = LoadLibraryA(path);
  if (library) entry.routine = (PluginMainRoutine*)(Routine)GetProcAddress(library, "PluginMain");
#else
  void* library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  if (library) entry.data = dlsym(library, "PluginMain");
#endif
  return entry.routine;
}

int main(int count, char** arguments) {
  PluginMainRoutine* const pluginMain = count == 2 ? Load(arguments[1]) : NULL;
  if (!pluginMain) {
    fprintf(stderr, "minimal_host: %s\n", count == 2 ? Reason() : "name the plug-in's library");
    return 1;
  }

  struct ParameterBlock block = {0, 10, {{0, 0, 0, NULL}}};
  for (int i = 0; i < 10; ++i) {
    const char* c = kSuites[i].code;
    for (int slot = 0; slot < ENTRIES; ++slot) tables[i][slot] = NotCalled;
    block.records[i].code =
        (uint32_t)c[0] << 24 | (uint32_t)c[1] << 16 | (uint32_t)c[2] << 8 | (uint32_t)c[3];
    block.records[i].version = kSuites[i].version;
    block.records[i].count = kSuites[i].least;
    block.records[i].routines = tables[i];
  }
  tables[kCore][0] = (Routine)Poll;
  tables[kCore][5] = (Routine)Query;
  tables[kCore][16] = (Routine)Assert;
  tables[kBlend][53] = (Routine)HostsOwn;

  int16_t result = 99;
  Expect("selector 7, which is unknown", pluginMain(7, &block, 0, &result), -30300);
  Expect("  its result word", result, -30300);

  /* If a suite reports one entry too few, nothing is installed. */
  for (int i = 0; i < 10; ++i) {
    block.records[i].count = (int16_t)(kSuites[i].least - 1);
    Expect("start with a short table", pluginMain(1, &block, 0, &result), -1);
    Expect("  its result word", result, -1);
    Expect("  entries changed", tables[kBlend][2] != NotCalled, 0);
    block.records[i].count = i == 9 ? -1 : kSuites[i].least; /* any negative count is enough */
  }

  /* A suite that the block does not list, but that the capability query knows. */
  struct SuiteRecord paths = block.records[9];
  unlisted = &paths;
  block.recordCount = 9;
  asked[0] = 0;
  Expect("start with a suite that is asked for", pluginMain(1, &block, 0, &result), 1);
  Expect("  in this order", strcmp(asked, "QXXMpath QXIMpdbg QXIMpdgv "), 0);
  block.recordCount = 10;

  for (int start = 1; start <= 2; ++start) {
    Expect("start", pluginMain(1, &block, 0, &result), 1);
    Expect("  its result word", result, 0);

    /* Entry 2: source, destination, mask, rows, columns, and the strides in bytes. A mask of 128
       mixes half of the source in: 100 + 128 x (200 - 100) / 255, rounded. */
    uint8_t source[40], destination[40], mask[40];
    memset(source, 200, 40), memset(destination, 100, 40), memset(mask, 128, 40);
    typedef void MaskedBlend(const uint8_t*, uint8_t*, const uint8_t*, int32_t, int32_t, int32_t,
                             int32_t, int32_t);
    ((MaskedBlend*)tables[kBlend][2])(source, destination, mask, 2, 19, 20, 20, 20);
    Expect("  masked blend, the first sample", destination[0], 150);
    Expect("  the last one of the second row", destination[38], 150);
    Expect("  the one between the rows", destination[19], 100);

    /* Entry 0 of the memory suite: source, destination, bytes. */
    uint8_t copy[40] = {0};
    typedef void Copy(const uint8_t*, uint8_t*, int32_t);
    ((Copy*)tables[kMemory][0])(source, copy, 33);
    Expect("  copy, its last byte", copy[32], 200);
    Expect("  the byte behind it", copy[33], 0);

    /* Entry 12 of the filters polls the host once and returns the answer, even without rows. */
    typedef int64_t Deviation(const uint8_t*, uint8_t*, int32_t, int32_t, int32_t, int32_t);
    const int64_t answer = ((Deviation*)tables[kFilter][12])(source, copy, 0, 5, 5, 5);
    Expect("  a filter of no rows polls", answer, polls);
    Expect("  once a call", polls, start);

    typedef int64_t Own(int32_t, int64_t);
    Expect("  the entry is ours no longer", tables[kBlend][53] != (Routine)HostsOwn, 1);
    Expect("  and is served by our routine", ((Own*)tables[kBlend][53])(-2, INT64_C(50000000000)),
           INT64_C(49999999998));
  }

  /* A host that turns path debugging on, but says that it does not know the questions, gets
     reports. */
  pathIsDebugged = 1;
  Expect("start with paths debugged", pluginMain(1, &block, 0, &result), 1);
  printf("  %s\n", asserted);
  Expect("  reports",
         strncmp(asserted, "Path debug guard value gestalt, 'pdgv' not recognized", 53), 0);
  puts(failures ? "failed" : "all as it should be");
  return failures != 0;
}
