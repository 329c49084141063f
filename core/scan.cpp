#include "core/scan.h"
// The marker operations come next.
