#include "core/values.h"
// The value conversions come next.
