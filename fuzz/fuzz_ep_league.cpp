// An Elite Prospects league page through the league test report and both exports.
#include "ep/epleague.h"
#include "fuzz/harness.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    EP_League league;
    Fuzz::exercise(league, data, size);
    return 0;
}
