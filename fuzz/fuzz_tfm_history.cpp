// A Transfer Markt history page through the history test report, and the same
// bytes as one table row of that page, written in both export modes.
#include "fuzz/harness.h"
#include "tfm/tfmhistory.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    TFM_History page;
    Fuzz::exercise(page, data, size);

    TFM_History row;
    QString text = Fuzz::pageText(data, size);
    row.parsePage(text);
    Fuzz::writeRecord(row);
    return 0;
}
