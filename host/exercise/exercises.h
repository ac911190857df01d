// One exercise for each argument list.
#pragma once

#include "host/exercise/scene.h"

namespace vantrix::host {

// Operands are apart from what is written, the same, or over it in any way.
Exercise ExercisePlaneBlend, ExerciseOpacityBlend, ExerciseMaskedBlend, ExerciseColorMaskedBlend,
    ExercisePlanesBlend, ExerciseInvertBlend, ExerciseShareBlend, ExerciseMaskFirstBlend;

Exercise ExerciseDeviation, ExerciseConvolve, ExerciseBlockSAD, ExerciseBlockSignedSAD;
template <int kSpan>
Exercise ExerciseFloatBlock;

Exercise ExerciseRescaleWords, ExerciseExpand8To16;

Exercise ExerciseSpreadMark, ExerciseClassify8, ExerciseClassify16, ExercisePropagate8,
    ExercisePropagate16;

Exercise ExerciseCopyBytes, ExerciseCopyRect, ExerciseFillBytes, ExerciseFillRect,
    ExerciseFillWords, ExerciseFillWordRect, ExerciseBytesAllEqual, ExerciseRectAllEqual;

Exercise ExerciseFilterHorizontal8, ExerciseFilterHorizontal16, ExerciseFilterHorizontal32F,
    ExerciseFilterVertical8, ExerciseFilterVertical32F;
Exercise ExerciseBoxAverageRows, ExerciseBoxAverageArea, ExerciseResampleRowsStepped,
    ExerciseSampleAtPositions1D, ExerciseSampleAtPositions2D;
Exercise ExerciseFillArray;

}  // namespace vantrix::host
