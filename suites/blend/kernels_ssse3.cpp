#include "common/forms.h"

using VantrixForm = vantrix::Ssse3;
#include "suites/blend/mixing_instances.inl"
