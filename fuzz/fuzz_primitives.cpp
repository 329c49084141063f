// Every marker operation, with three markers cut from the front of the input,
// and the value conversions on the rest. Besides the sanitizers, the promises
// that the scanners build on are checked: a failed step leaves the text (and
// where so promised the value) as it was.
#include "core/scan.h"
#include "core/values.h"
#include "tfm/tfmhistory.h"

#include <cstddef>
#include <cstdint>

using namespace Qt::StringLiterals;

namespace {

// A broken promise is a finding like a crash.
void require(bool condition)
{
    if (!condition)
        __builtin_trap();
}

// The first three bytes give the lengths of the markers (up to 31 bytes each),
// which follow them; what is left is the text.
struct Input
{
    QString first;
    QString second;
    QString third;
    QString text;
};

Input cutInput(const uint8_t *data, size_t size)
{
    Input input;
    if (size < 3) {
        input.text = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
        return input;
    }
    size_t at = 3;
    QString *markers[] = {&input.first, &input.second, &input.third};
    for (int i = 0; i < 3; ++i) {
        const size_t length = qMin(size_t(data[i] & 31), size - at);
        *markers[i]
            = QString::fromUtf8(reinterpret_cast<const char *>(data + at), qsizetype(length));
        at += length;
    }
    input.text = QString::fromUtf8(reinterpret_cast<const char *>(data + at), qsizetype(size - at));
    return input;
}

void markerOperations(const Input &in)
{
    QString text = in.text;
    isolateBetween(text, in.first, in.second);
    require(text.size() <= in.text.size());

    QString out = u"unchanged"_s;
    text = in.text;
    if (takeBetween(out, text, in.first, in.second))
        require(text.size() < in.text.size());
    else
        require(out.isNull() && text == in.text);

    out = u"unchanged"_s;
    text = in.text;
    if (takeUntil(out, text, in.first))
        require(text.size() < in.text.size());
    else
        require(out == u"unchanged"_s && text == in.text);

    text = in.text;
    if (!skipPast(text, in.first))
        require(text == in.text);

    text = in.text;
    if (cutAt(text, in.first))
        require(text.size() <= in.text.size() && !text.isEmpty());
    else
        require(text == in.text);

    out = u"unchanged"_s;
    if (!peekBetween(out, in.text, in.first, in.second, in.third))
        require(out == u"unchanged"_s);

    qint32 number = 1;
    text = in.text;
    if (!takeInt(number, text, in.first, in.second))
        require(number == 0 && text == in.text);

    qint16 shortNumber = 1;
    text = in.text;
    if (!takeShort(shortNumber, text, in.first, in.second))
        require(shortNumber == 0 && text == in.text);

    QString first;
    QString second;
    splitAtSpace(in.text, first, second);
    if (second.isNull())
        require(first == in.text);
    else
        require(first.size() + 1 + second.size() == in.text.size());
}

void conversions(const Input &in)
{
    QString text = in.text;
    parseDollars(text);
    seasonStartYear(in.text);
    seasonEndYear(in.text);
    text = in.text;
    seasonYear(text);
    toAsciiName(in.text);
    text = in.text;
    parseMoney(text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const Input input = cutInput(data, size);
    markerOperations(input);
    conversions(input);
    return 0;
}
