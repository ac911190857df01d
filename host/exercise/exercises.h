// One exercise for each argument list.
#pragma once

#include "host/exercise/scene.h"

namespace vantrix::host {

Exercise ExerciseMaskedBlend, ExerciseColorMaskedBlend;

Exercise ExerciseCopyBytes, ExerciseCopyRect, ExerciseFillBytes, ExerciseFillRect,
    ExerciseFillWords, ExerciseFillWordRect, ExerciseBytesAllEqual, ExerciseRectAllEqual;

Exercise ExerciseFillArray;

}  // namespace vantrix::host
