// An Elite Prospects team page through the team test report and both exports.
#include "ep/epteam.h"
#include "fuzz/harness.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    EP_Team team;
    Fuzz::exercise(team, data, size);
    return 0;
}
