// A Transfer Markt squad page, club or national team, through the team test report and both
// exports.
#include "fuzz/harness.h"
#include "tfm/tfmteam.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    TFM_Team team;
    Fuzz::exercise(team, data, size);
    return 0;
}
