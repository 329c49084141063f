// An FMDataba player page through the player test report and both exports.
#include "fmd/fmdplayer.h"
#include "fuzz/harness.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FMD_Player player;
    Fuzz::exercise(player, data, size);
    return 0;
}
