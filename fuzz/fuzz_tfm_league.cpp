// A Transfer Markt league page through the league test report and both exports.
#include "fuzz/harness.h"
#include "tfm/tfmleague.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    TFM_League league;
    Fuzz::exercise(league, data, size);
    return 0;
}
