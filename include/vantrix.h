/* What a host and the plug-in agree on, in C11: the entry point, the suites and their services, and
   the signature of every slot that a kernel serves. docs/HOST.md says how to use it.

   Routines use the C calling convention of the system. Numbers are little-endian. Pointers have
   8 bytes. */
#ifndef VANTRIX_H
#define VANTRIX_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Start-up -------------------------------------------------------------------------------- */

/* An entry of a suite's table. The caller casts it to the slot's own type. */
typedef void (*VantrixRoutine)(void);

/* A suite: a table of routines that the host owns and the plug-in writes into. */
struct VantrixSuiteRecord {
  uint32_t suiteCode; /* a VantrixSuiteCode */
  int16_t suiteVersion;
  int16_t suiteCount; /* entries; compared as an unsigned number: any negative count is enough */
  VantrixRoutine* routines;
};

/* The head of a parameter block. The records follow it in memory, from offset 8 on. */
struct VantrixParameterBlock {
  uint32_t hostWord;   /* the host's own */
  int32_t recordCount; /* below 1: no records */
};

/* Four characters each, the first in the highest byte. */
enum VantrixSuiteCode {
  kVantrixBlend = 0x626C6E64,    /* blnd */
  kVantrixConvert = 0x636F6E76,  /* conv */
  kVantrixCore = 0x636F7265,     /* core */
  kVantrixDisplay = 0x64697370,  /* disp */
  kVantrixFilter = 0x66696C74,   /* filt */
  kVantrixMemory = 0x6D656D6F,   /* memo */
  kVantrixPaint = 0x706E7467,    /* pntg */
  kVantrixResample = 0x72736D70, /* rsmp */
  kVantrixSelect = 0x73656C65,   /* sele */
  kVantrixPath = 0x70617468      /* path */
};
enum { kVantrixSuites = 10 };
/* The version of each suite that the plug-in looks for. */
enum VantrixSuiteVersion {
  kVantrixBlendVersion = 6,
  kVantrixConvertVersion = 12,
  kVantrixCoreVersion = 4,
  kVantrixDisplayVersion = 7,
  kVantrixFilterVersion = 9,
  kVantrixMemoryVersion = 4,
  kVantrixPaintVersion = 11,
  kVantrixResampleVersion = 5,
  kVantrixSelectVersion = 6,
  kVantrixPathVersion = 16
};
/* The least suiteCount that is enough. */
enum VantrixLeastCount {
  kVantrixBlendLeastCount = 109,
  kVantrixConvertLeastCount = 15,
  kVantrixCoreLeastCount = 8,
  kVantrixDisplayLeastCount = 24,
  kVantrixFilterLeastCount = 60,
  kVantrixMemoryLeastCount = 36,
  kVantrixPaintLeastCount = 92,
  kVantrixResampleLeastCount = 9,
  kVantrixSelectLeastCount = 115,
  kVantrixPathLeastCount = 47
};
/* Entries that are copied from the table. That many must be readable, whatever the count says. */
enum VantrixEntries {
  kVantrixBlendEntries = 395,
  kVantrixConvertEntries = 79,
  kVantrixCoreEntries = 17,
  kVantrixDisplayEntries = 82,
  kVantrixFilterEntries = 345,
  kVantrixMemoryEntries = 182,
  kVantrixPaintEntries = 151,
  kVantrixResampleEntries = 62,
  kVantrixSelectEntries = 123,
  kVantrixPathEntries = 53
};

/* The one export, "PluginMain". Only the low 16 bits of the selector count; data is not read. */
typedef int32_t VantrixPluginMain(int32_t selector, const struct VantrixParameterBlock* block,
                                  uintptr_t data, int16_t* result);
enum VantrixSelector { kVantrixAbout = 0, kVantrixStartUp = 1, kVantrixShutDown = 2 };

/* The value of *result after a call. The call returns the same, except 1 after a start-up that
   succeeds. */
enum VantrixResult {
  kVantrixDone = 0,
  kVantrixStarted = 1, /* returned only */
  kVantrixSuiteMissing = -1,
  kVantrixUnknownSelector = -30300
};

/* Services of the host in the core suite. */
enum VantrixCoreSlot {
  kVantrixHostPoll = 0,
  kVantrixNoiseBufferHook = 3,
  kVantrixHostCapabilityQuery = 5,
  kVantrixHostAssert = 16
};
/* Called by the local deviation filter, which returns its result. */
typedef int64_t VantrixHostPoll(void);
/* The plug-in's own routine, which replaces the host's. It records that `count` values are in the
   `size` bytes from base on, calls the host's routine and returns its result. */
typedef uint64_t VantrixNoiseBufferHook(uint8_t* base, uint32_t count, uint32_t size);
/* Called while the plug-in starts. The low byte of the result is 1 if the host knows the selector,
   else 0. *answer has 8 bytes, which are 0 before the call. */
typedef uint32_t VantrixHostCapabilityQuery(uint32_t signature, uint32_t selector, void* answer);
/* Takes the reports of the path suite. The texts live as long as the library. */
typedef void VantrixHostAssert(const char* message, const char* sourceFile, int32_t line,
                               int32_t flag);

enum VantrixSignature {
  kVantrixHostSignature = 0x5158494D, /* QXIM: a question about the host's paths */
  kVantrixPluginKind = 0x5158584D     /* QXXM: a suite; the selector is its code */
};
enum VantrixPathSelector {
  kVantrixPathDebug = 0x70646267,     /* pdbg: not 0 if fill arrays are to be checked */
  kVantrixPathGuardValue = 0x70646776 /* pdgv: the guard value, 0 for none */
};

/* ---- Planes ----------------------------------------------------------------------------------

   A plane is the address of its first sample and a stride: the bytes from a row to the next, which
   may be negative. Columns and widths are counts of samples. Samples of 16 bits lie at even
   addresses, floats at multiples of 4. A count below 1 touches no memory, unless a comment below
   says otherwise. Only the samples of the rows are written.

   Planes may overlap in any way: the result is that of one sample at a time, row by row, each row
   from its first sample to its last. Only the low bits of a colour, an opacity, a value or a flag
   count; the bits above may hold anything. */

/* ---- blnd: blends of 8-bit planes ------------------------------------------------------------

   Only the low byte of a colour, an opacity or a flag counts. d is the sample of the destination, s
   of the source and m of the mask; c is the colour and k the opacity. 255 stands for 1.
   docs/SLOTS.md has the rules. */

enum VantrixBlendSlot {
  kVantrixBlendMasked8 = 2,
  kVantrixBlendColorMasked8 = 3,
  kVantrixBlendDarkenMasked8 = 7,
  kVantrixBlendDarkenColorMasked8 = 8,
  kVantrixBlendLightenMasked8 = 10,
  kVantrixBlendLightenColorMasked8 = 11,
  kVantrixBlendMultiplyMasked8 = 22,
  kVantrixBlendMultiply8 = 24,
  kVantrixBlendScreenColorMasked8 = 26,
  kVantrixBlendScreen8 = 27,
  kVantrixBlendLighten8 = 28,
  kVantrixBlendDarken8 = 29,
  kVantrixBlendThresholdMasked8 = 30,
  kVantrixBlendColorThresholdMasked8 = 31,
  kVantrixBlendOverlayMasked8 = 47,
  kVantrixBlendOverlayColorMasked8 = 48,
  kVantrixBlendOverlay8 = 49,
  kVantrixBlendHardLightMasked8 = 50,
  kVantrixBlendHardLightColorMasked8 = 51,
  kVantrixBlendHardLight8 = 52,
  kVantrixBlendMultiplyOpacity8 = 56,
  kVantrixBlendScreenOpacity8 = 57,
  kVantrixBlendOverlayOpacity8 = 58,
  kVantrixBlendHardLightOpacity8 = 59,
  kVantrixBlendBurnPlanes8 = 66,
  kVantrixBlendMultiplyPlanes8 = 74,
  kVantrixBlendInvertMultiplyPlanes8 = 75,
  kVantrixBlendScreenShare8 = 96,
  kVantrixBlendMultiplyPlanesInvert8 = 97,
  kVantrixBlendColorWhereZero8 = 106
};

/* The source, or one colour, mixed in under a mask. */
typedef void VantrixBlendMasked8(const uint8_t* source, uint8_t* destination, const uint8_t* mask,
                                 int32_t rows, int32_t columns, int32_t sourceStride,
                                 int32_t destinationStride, int32_t maskStride);
typedef void VantrixBlendColorMasked8(uint32_t color, uint8_t* destination, const uint8_t* mask,
                                      int32_t rows, int32_t columns, int32_t destinationStride,
                                      int32_t maskStride);

/* The smaller of s and d. At full strength, a block of 16 samples that does not change is not
   written, except at a row's ends. Under a mask, a sample that does not change is not written,
   except in a block in which another changes. */
typedef void VantrixBlendDarken8(const uint8_t* source, uint8_t* destination, int32_t rows,
                                 int32_t columns, int32_t sourceStride, int32_t destinationStride);
typedef void VantrixBlendDarkenMasked8(const uint8_t* source, uint8_t* destination,
                                       const uint8_t* mask, int32_t rows, int32_t columns,
                                       int32_t sourceStride, int32_t destinationStride,
                                       int32_t maskStride);
typedef void VantrixBlendDarkenColorMasked8(uint32_t color, uint8_t* destination,
                                            const uint8_t* mask, int32_t rows, int32_t columns,
                                            int32_t destinationStride, int32_t maskStride);

/* The larger of s and d. What is not written is as for the smaller. */
typedef void VantrixBlendLighten8(const uint8_t* source, uint8_t* destination, int32_t rows,
                                  int32_t columns, int32_t sourceStride, int32_t destinationStride);
typedef void VantrixBlendLightenMasked8(const uint8_t* source, uint8_t* destination,
                                        const uint8_t* mask, int32_t rows, int32_t columns,
                                        int32_t sourceStride, int32_t destinationStride,
                                        int32_t maskStride);
typedef void VantrixBlendLightenColorMasked8(uint32_t color, uint8_t* destination,
                                             const uint8_t* mask, int32_t rows, int32_t columns,
                                             int32_t destinationStride, int32_t maskStride);

/* The product of s and d. */
typedef void VantrixBlendMultiply8(const uint8_t* source, uint8_t* destination, int32_t rows,
                                   int32_t columns, int32_t sourceStride,
                                   int32_t destinationStride);
typedef void VantrixBlendMultiplyOpacity8(const uint8_t* source, uint8_t* destination, int32_t rows,
                                          int32_t columns, int32_t sourceStride,
                                          int32_t destinationStride, uint32_t opacity);
typedef void VantrixBlendMultiplyMasked8(const uint8_t* source, uint8_t* destination,
                                         const uint8_t* mask, int32_t rows, int32_t columns,
                                         int32_t sourceStride, int32_t destinationStride,
                                         int32_t maskStride);

/* Screen. In screen, overlay and hard light, a row of at most 4096 samples behaves as if its
   operands had been copied before it is written. */
typedef void VantrixBlendScreen8(const uint8_t* source, uint8_t* destination, int32_t rows,
                                 int32_t columns, int32_t sourceStride, int32_t destinationStride);
typedef void VantrixBlendScreenOpacity8(const uint8_t* source, uint8_t* destination, int32_t rows,
                                        int32_t columns, int32_t sourceStride,
                                        int32_t destinationStride, uint32_t opacity);
typedef void VantrixBlendScreenColorMasked8(uint32_t color, uint8_t* destination,
                                            const uint8_t* mask, int32_t rows, int32_t columns,
                                            int32_t destinationStride, int32_t maskStride);

/* Overlay: screen or product, as d decides. */
typedef void VantrixBlendOverlay8(const uint8_t* source, uint8_t* destination, int32_t rows,
                                  int32_t columns, int32_t sourceStride, int32_t destinationStride);
typedef void VantrixBlendOverlayOpacity8(const uint8_t* source, uint8_t* destination, int32_t rows,
                                         int32_t columns, int32_t sourceStride,
                                         int32_t destinationStride, uint32_t opacity);
typedef void VantrixBlendOverlayMasked8(const uint8_t* source, uint8_t* destination,
                                        const uint8_t* mask, int32_t rows, int32_t columns,
                                        int32_t sourceStride, int32_t destinationStride,
                                        int32_t maskStride);
typedef void VantrixBlendOverlayColorMasked8(uint32_t color, uint8_t* destination,
                                             const uint8_t* mask, int32_t rows, int32_t columns,
                                             int32_t destinationStride, int32_t maskStride);

/* Hard light: screen or product, as s decides. */
typedef void VantrixBlendHardLight8(const uint8_t* source, uint8_t* destination, int32_t rows,
                                    int32_t columns, int32_t sourceStride,
                                    int32_t destinationStride);
typedef void VantrixBlendHardLightOpacity8(const uint8_t* source, uint8_t* destination,
                                           int32_t rows, int32_t columns, int32_t sourceStride,
                                           int32_t destinationStride, uint32_t opacity);
typedef void VantrixBlendHardLightMasked8(const uint8_t* source, uint8_t* destination,
                                          const uint8_t* mask, int32_t rows, int32_t columns,
                                          int32_t sourceStride, int32_t destinationStride,
                                          int32_t maskStride);
typedef void VantrixBlendHardLightColorMasked8(uint32_t color, uint8_t* destination,
                                               const uint8_t* mask, int32_t rows, int32_t columns,
                                               int32_t destinationStride, int32_t maskStride);

/* The first two write s or the colour where the mask is 128 or more; the third writes the colour
   where the mask is 0. Samples that are not selected are rewritten unchanged, but only in whole
   blocks of 16 that start at a 16-byte boundary. */
typedef void VantrixBlendThresholdMasked8(const uint8_t* source, uint8_t* destination,
                                          const uint8_t* mask, int32_t rows, int32_t columns,
                                          int32_t sourceStride, int32_t destinationStride,
                                          int32_t maskStride);
typedef void VantrixBlendColorThresholdMasked8(uint32_t color, uint8_t* destination,
                                               const uint8_t* mask, int32_t rows, int32_t columns,
                                               int32_t destinationStride, int32_t maskStride);
typedef void VantrixBlendColorWhereZero8(const uint8_t* mask, uint8_t* destination, int32_t rows,
                                         int32_t columns, int32_t maskStride,
                                         int32_t destinationStride, uint32_t color);

/* Products of two planes. The destination's samples are not read. In the last routine the
   destination is the third plane, and each flag that is not 0 complements its plane. */
typedef void VantrixBlendMultiplyPlanes8(const uint8_t* first, uint8_t* destination,
                                         const uint8_t* second, int32_t rows, int32_t columns,
                                         int32_t firstStride, int32_t destinationStride,
                                         int32_t secondStride);
typedef void VantrixBlendInvertMultiplyPlanes8(const uint8_t* first, uint8_t* destination,
                                               const uint8_t* second, int32_t rows, int32_t columns,
                                               int32_t firstStride, int32_t destinationStride,
                                               int32_t secondStride);
typedef void VantrixBlendMultiplyPlanesInvert8(const uint8_t* first, const uint8_t* second,
                                               uint8_t* destination, int32_t rows, int32_t columns,
                                               int32_t firstStride, int32_t secondStride,
                                               int32_t destinationStride, uint32_t invertFirst,
                                               uint32_t invertSecond, uint32_t invertResult);

/* Burn, whose destination's samples are not read; and screen, whose two planes are both written.
   The floating-point control and status are the same on return as on entry. */
typedef void VantrixBlendBurnPlanes8(const uint8_t* base, uint8_t* destination,
                                     const uint8_t* blend, int32_t rows, int32_t columns,
                                     int32_t baseStride, int32_t destinationStride,
                                     int32_t blendStride);
typedef void VantrixBlendScreenShare8(uint8_t* share, uint8_t* combined, int32_t rows,
                                      int32_t columns, int32_t shareStride, int32_t combinedStride);

/* ---- conv: conversions of depth --------------------------------------------------------------

   Full scale is 255 in 8 bits and 32768 in the host's 16 bits. The stride of a plane of 16-bit
   samples is rounded down to an even number of bytes. */

enum VantrixConvertSlot { kVantrixExpand8To16 = 18, kVantrixRescaleWords = 19 };

/* 8 bits to 16. The planes may overlap. */
typedef void VantrixExpand8To16(const uint8_t* source, uint16_t* destination, int32_t rows,
                                int32_t width, int32_t sourceStride, int32_t destinationStride);

/* Rescales in place between maxima of 0x8000 and 0xFFFF, in either direction, and returns 0. For
   other maxima it calls the host's own routine, with any counts, and returns its result. */
typedef uint64_t VantrixRescaleWords(uint16_t* samples, uint32_t fromMaximum, uint32_t toMaximum,
                                     int32_t rows, int32_t width, int32_t stride);

/* ---- filt: filters --------------------------------------------------------------------------- */

enum VantrixFilterSlot {
  kVantrixFilterLocalDeviation8 = 12,
  kVantrixFilterConvolveVertical8 = 28,
  kVantrixFilterBlockSAD128 = 188,
  kVantrixFilterBlockSignedSAD128 = 189,
  kVantrixFilterFloatBlock8 = 191,
  kVantrixFilterFloatBlock12 = 192,
  kVantrixFilterFloatBlock16 = 193,
  kVantrixFilterFloatBlock20 = 194
};

/* The window of a convolution. */
struct VantrixConvolutionKernel {
  uint8_t hosts[80];   /* not read */
  int32_t radius;      /* rows on each side; negative: an empty window, all 0 */
  uint32_t weights[1]; /* 2 radius + 1, top row first; the low 16 bits count, 256 stands for 1 */
};

/* The deviation of 3 x 3 samples: one sample beyond the source's rows and columns is read on every
   side. Polls the host first, whatever the counts, and returns its answer. */
typedef int64_t VantrixFilterLocalDeviation8(const uint8_t* source, uint8_t* destination,
                                             int32_t rows, int32_t columns, int32_t sourceStride,
                                             int32_t destinationStride);

/* Reads `radius` rows above and below the source's rows. If planes overlap, it processes 4096
   columns at a time, and forms their output row whole before it stores it. */
typedef void VantrixFilterConvolveVertical8(const uint8_t* source, uint8_t* destination,
                                            uint32_t rows, int32_t columns, int32_t sourceStride,
                                            int32_t destinationStride,
                                            const struct VantrixConvolutionKernel* kernel);

/* A block is 128 bytes at a multiple of 16. The sum is in the low 16 bits of the result. */
typedef uint32_t VantrixFilterBlockSAD128(const uint8_t* a, const uint8_t* b);
typedef uint32_t VantrixFilterBlockSignedSAD128(const uint8_t* a, const uint8_t* b,
                                                const uint8_t* direction);

/* Each step moves on by four inputs and gives four outputs, by a matrix of 4 rows of 8, 12, 16 or
   20 floats. count is in floats; with less than one row of inputs nothing is done. The last two
   hand the remaining inputs to the host's own routine, with the fourth and the fifth argument. */
typedef void VantrixFilterFloatBlock8(const float* input, uint32_t count, const float* matrix,
                                      uintptr_t fourth, uintptr_t fifth, float* output);
typedef void VantrixFilterFloatBlock12(const float* input, uint32_t count, const float* matrix,
                                       uintptr_t fourth, uintptr_t fifth, float* output);
typedef void VantrixFilterFloatBlock16(const float* input, uint32_t count, const float* matrix,
                                       uintptr_t fourth, uintptr_t fifth, float* output);
typedef void VantrixFilterFloatBlock20(const float* input, uint32_t count, const float* matrix,
                                       uintptr_t fourth, uintptr_t fifth, float* output);

/* ---- memo: copies, fills and comparisons -----------------------------------------------------

   bytes, rowBytes and the width of a rectangle of bytes are in bytes; count and the width of a
   rectangle of words are in 16-bit values. No alignment is needed. Only the low byte of a value
   counts, and for words the low half. */

enum VantrixMemorySlot {
  kVantrixCopyBytes = 0,
  kVantrixCopyRect = 1,
  kVantrixFillBytes = 3,
  kVantrixFillRect = 4,
  kVantrixBytesAllEqual = 17,
  kVantrixRectAllEqual = 18,
  kVantrixFillWords = 65,
  kVantrixFillWordRect = 66
};

/* Runs may overlap: the result is as if all had been read first. Rectangles are copied row by row,
   each row as a run; rows that follow one another in both planes are one run. */
typedef void VantrixCopyBytes(const uint8_t* source, uint8_t* destination, int32_t bytes);
typedef void VantrixCopyRect(const uint8_t* source, uint8_t* destination, int32_t rows,
                             int32_t rowBytes, int32_t sourceStride, int32_t destinationStride);

/* Writes one value throughout. */
typedef void VantrixFillBytes(uint8_t* destination, int32_t bytes, uint32_t value);
typedef void VantrixFillRect(uint8_t* destination, int32_t rows, int32_t width, int32_t stride,
                             uint32_t value);
typedef void VantrixFillWords(uint16_t* destination, int32_t count, uint32_t value);
typedef void VantrixFillWordRect(uint16_t* destination, int32_t rows, int32_t width, int32_t stride,
                                 uint32_t value);

/* Returns 1 if every byte is the value, else 0; 1 for a count below 1. */
typedef uint32_t VantrixBytesAllEqual(const uint8_t* pointer, int32_t bytes, uint32_t value);
typedef uint32_t VantrixRectAllEqual(const uint8_t* pointer, int32_t rows, int32_t width,
                                     int32_t stride, uint32_t value);

/* ---- rsmp: resampling ------------------------------------------------------------------------

   Source and destination may overlap, as planes do. Lists have an element for each output item.
   Only the low 16 bits of a tap count and a mode count; the tap count is signed. */

enum VantrixResampleSlot {
  kVantrixBoxAverageRows8 = 3,
  kVantrixFilterResampleHorizontal8 = 5,
  kVantrixFilterResampleVertical8 = 6,
  kVantrixResampleRowsStepped8 = 7,
  kVantrixFilterResampleHorizontal16 = 13,
  kVantrixSampleAtPositions1D8 = 18,
  kVantrixSampleAtPositions2D8 = 19,
  kVantrixBoxAverageArea8 = 24,
  kVantrixFilterResampleHorizontal32F = 26,
  kVantrixFilterResampleVertical32F = 27
};

/* Each output row is the average of as many source rows as the list says; 0 leaves it unchanged. */
typedef void VantrixBoxAverageRows8(const uint8_t* source, uint8_t* destination, int32_t outputRows,
                                    int32_t width, const int32_t* rowCounts, int32_t sourceStride,
                                    int32_t destinationStride);

/* Each output sample is the average of a block; blocks lie side by side. With a size below 1
   nothing is done. */
typedef void VantrixBoxAverageArea8(const uint8_t* source, uint8_t* destination, int32_t outputRows,
                                    int32_t outputColumns, int32_t blockWidth, int32_t blockHeight,
                                    int32_t sourceStride, int32_t destinationStride);

/* Filters along rows. Output column i has tapCount taps: the first is tapCount / 2 (truncated) - 1
   samples before sample offsets[i], and its weights start at phases[i] x tapCount. 16384 stands for
   1. With 0 or 1 taps the sample after offsets[i] is copied; for floats, one tap weighs it. */
typedef void VantrixFilterResampleHorizontal8(const uint8_t* source, uint8_t* destination,
                                              uint32_t rows, int32_t width, const int32_t* offsets,
                                              const uint8_t* phases, int32_t sourceStride,
                                              int32_t destinationStride, int32_t tapCount,
                                              const int16_t* weights);
typedef void VantrixFilterResampleHorizontal16(const uint16_t* source, uint16_t* destination,
                                               uint32_t rows, int32_t width, const int32_t* offsets,
                                               const uint8_t* phases, int32_t sourceStride,
                                               int32_t destinationStride, int32_t tapCount,
                                               const int16_t* weights);
typedef void VantrixFilterResampleHorizontal32F(const float* source, float* destination,
                                                uint32_t rows, int32_t width,
                                                const int32_t* offsets, const uint8_t* phases,
                                                int32_t sourceStride, int32_t destinationStride,
                                                int32_t tapCount, const int16_t* weights);

/* The same along columns: offsets and phases are those of output rows. With 0 or 1 taps rows are
   copied by the memory suite's entry 0. For floats, a stride is truncated to whole samples. */
typedef void VantrixFilterResampleVertical8(const uint8_t* source, uint8_t* destination,
                                            int32_t outputRows, int32_t width,
                                            const int32_t* offsets, const uint8_t* phases,
                                            int32_t sourceStride, int32_t destinationStride,
                                            int32_t tapCount, const int16_t* weights);
typedef void VantrixFilterResampleVertical32F(const float* source, float* destination,
                                              int32_t outputRows, int32_t width,
                                              const int32_t* offsets, const uint8_t* phases,
                                              int32_t sourceStride, int32_t destinationStride,
                                              int32_t tapCount, const int16_t* weights);

/* Stretches row y of the source, width samples and 3 more on either side, over rowLengths[y]
   samples about its middle. A negative length mirrors the row; a row of length 0 is filled by the
   memory suite's entry 3. */
typedef void VantrixResampleRowsStepped8(const uint8_t* source, uint8_t* destination, int32_t rows,
                                         int32_t width, const int32_t* rowLengths,
                                         int32_t sourceStride, int32_t destinationStride);

/* Samples at positions in 65536ths of a sample; for planes, x and y alternate. Mode 0 takes the
   nearest sample, any other mode mixes neighbours. If the position is outside the source, the
   output sample does not change. */
typedef void VantrixSampleAtPositions1D8(const uint8_t* source, uint8_t* destination, int32_t count,
                                         int32_t sourceLength, const int32_t* positions,
                                         int32_t mode);
typedef void VantrixSampleAtPositions2D8(const uint8_t* source, uint8_t* destination, int32_t count,
                                         int32_t sourceWidth, int32_t sourceHeight,
                                         const int32_t* positions, int32_t sourceStride,
                                         int32_t mode);

/* ---- sele: selections ------------------------------------------------------------------------

   Widths, counts and lengths are in entries. An entry that does not change, or receives
   nothing, is not written, unless one less than 32 bytes away does. */

enum VantrixSelectSlot {
  kVantrixSelectSpreadMark8 = 26,
  kVantrixSelectClassify8 = 33,
  kVantrixSelectPropagate8 = 35,
  kVantrixSelectPropagate16 = 73,
  kVantrixSelectClassify16 = 75
};

/* The result of a classification: all entries 0, all below half, on both sides of half, all from
   half on, all full. Half and full are 128 and 255, or 16384 and 32768. */
enum VantrixMaskClass {
  kVantrixMaskEmpty,
  kVantrixMaskBelowHalf,
  kVantrixMaskMixed,
  kVantrixMaskFromHalf,
  kVantrixMaskFull
};

/* Bit 7 of an entry is its mark, which spreads to the rows above and below. */
typedef void VantrixSelectSpreadMark8(uint8_t* data, int32_t rows, int32_t width, int32_t rowBytes);

/* Masks narrower than 16 entries (8-bit) or 8 entries (16-bit) go to the host's own routine, with
   any counts. A mask without rows is empty. For 16-bit entries, rowBytes is rounded down to an even
   number. */
typedef int32_t VantrixSelectClassify8(const uint8_t* data, int32_t rows, int32_t width,
                                       int32_t rowBytes);
typedef int32_t VantrixSelectClassify16(const uint16_t* data, int32_t rows, int32_t width,
                                        int32_t rowBytes);

/* Propagates along lines of entries; a step may be negative. Steps are in entries for the first
   routine, and in bytes for the second. */
typedef void VantrixSelectPropagate8(uint8_t* priority, uint8_t* value, int32_t lineCount,
                                     int32_t lineLength, int32_t lineStep, int32_t entryStep);
typedef void VantrixSelectPropagate16(uint16_t* priority, uint16_t* value, int32_t lineCount,
                                      int32_t lineLength, int32_t lineStep, int32_t entryStep);

/* ---- path: fill arrays ----------------------------------------------------------------------- */

enum VantrixPathSlot { kVantrixApplyFillArrayOperation = 24 };

/* The head of a block at a multiple of 4 bytes. Words of 32 bits follow it: the rows, rowStride
   words each; a guard word, if arrays are guarded; rowStride words of scratch, of which the last
   two are not written; a guard word again. docs/HOST.md says what a row holds. */
struct VantrixFillArray {
  int32_t boundLeft;
  int32_t firstRow;
  int32_t boundRight;
  int32_t endRow; /* one past the last row */
  int32_t hostWord;
  int32_t rowStride; /* words; at least 2 */
  int32_t hostWords[20];
};

/* The words of a row, and the low bit of a pending entry that goes up. */
enum VantrixFillRowWord { kVantrixEntryCount, kVantrixPendingCount, kVantrixFirstEntry };
enum { kVantrixUpward = 1 };

/* How the new shape is combined with what a row held. Any other code keeps what the row held. */
enum VantrixFillOperation {
  kVantrixUnion,
  kVantrixSubtract,
  kVantrixIntersect,
  kVantrixExclusiveOr
};

/* Folds the pending entries of every row into its settled ones. nonZeroWinding: not 0 for the
   non-zero rule, 0 for the even-odd rule. If there are no rows, nothing is done. */
typedef void VantrixApplyFillArrayOperation(struct VantrixFillArray* array, uint32_t operation,
                                            uint32_t nonZeroWinding);

#ifdef __cplusplus
}
#endif

#endif
