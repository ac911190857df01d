#include "common/forms.h"

using VantrixForm = vantrix::Sse2;
#include "suites/blend/instances.inl"
