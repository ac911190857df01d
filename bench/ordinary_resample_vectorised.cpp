#include "bench/ordinary_resample.h"

using HowCompiled = vantrix::bench::Vectorised;
#include "bench/ordinary_resample.inl"
