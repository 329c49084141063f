// An FMDataba player list page through the list test report and both exports.
#include "fmd/fmdleague.h"
#include "fuzz/harness.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FMD_League list;
    Fuzz::exercise(list, data, size);
    return 0;
}
