#include "common/forms.h"

using VantrixForm = vantrix::OneSample;
#include "suites/blend/instances.inl"
