// An Elite Prospects player page through the player test report and both exports.
#include "ep/epplayer.h"
#include "fuzz/harness.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    EP_Player player;
    Fuzz::exercise(player, data, size);
    return 0;
}
