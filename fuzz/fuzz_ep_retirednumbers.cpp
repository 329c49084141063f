// The retired numbers of an Elite Prospects team page, the rows' report lines for
// every index (and one on either side), and each row written in both export
// modes; then the same bytes as one list item.
#include "ep/epretirednumber.h"
#include "fuzz/harness.h"

using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Fuzz::reset();
    QString text = Fuzz::pageText(data, size);
    QList<EP_RetiredNumber> rows;
    scanRetiredNumbers(rows, text, u"Fuzz Club"_s);
    for (int i = -1; i <= int(rows.size()); ++i)
        retiredNumberSample(rows, i);
    for (EP_RetiredNumber &row : rows)
        Fuzz::writeRecord(row);

    EP_RetiredNumber row;
    text = Fuzz::pageText(data, size);
    row.parsePage(text);
    Fuzz::writeRecord(row);
    return 0;
}
