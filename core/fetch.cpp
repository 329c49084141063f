#include "core/fetch.h"
#include "core/fetchtesting.h"
// The page fetcher comes next.
