#include "bench/ordinary_resample.h"

using HowCompiled = vantrix::bench::NotVectorised;
#include "bench/ordinary_resample.inl"
