// A Transfer Markt player profile page through the player test report and both exports.
#include "fuzz/harness.h"
#include "tfm/tfmplayer.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    TFM_Player player;
    Fuzz::exercise(player, data, size);
    return 0;
}
