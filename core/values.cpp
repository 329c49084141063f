#include "core/values.h"

#include "core/scan.h"

#include <QByteArrayView>
#include <QStringList>
#include <QStringView>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

// Truncates a single-precision product toward zero. A product outside the 32-bit
// range, an infinity or a NaN ("inf" and "nan" read as numbers) has no defined
// conversion in C++: it gives what the x86 truncating conversion gives for it, the
// lowest 32-bit value, so the result is the same on every machine and nothing
// clamps a huge amount into a plausible one.
qint32 truncateProduct(float product)
{
    const double value = product;
    if (!(value > -2147483649.0 && value < 2147483648.0))
        return std::numeric_limits<qint32>::min();
    return static_cast<qint32>(value);
}

// Thousands in 32-bit arithmetic: a product beyond the range wraps around as the
// machine's multiply does (done unsigned, where wrapping is defined).
qint32 timesThousand(qint32 value)
{
    return static_cast<qint32>(static_cast<quint32>(value) * 1000u);
}

// The text up to its first blank, all of it when there is none.
QString firstWord(const QString &text)
{
    return text.split(u" "_s, Qt::KeepEmptyParts, Qt::CaseSensitive).value(0);
}

// The text without its first and its last character.
QStringView inner(const QString &text)
{
    if (text.size() < 2)
        return {};
    return QStringView(text).sliced(1, text.size() - 2);
}

bool lowerContains(const QString &text, const QString &part)
{
    return text.toLower().contains(part, Qt::CaseSensitive);
}

} // namespace

QString toAsciiName(const QString &name)
{
    // Latin-1 bytes read back as UTF-8: a name that came in as the two halves of
    // a UTF-8 sequence is put together again, a lone accented letter is not valid
    // UTF-8 and turns into U+FFFD. This is not a transliteration.
    const QByteArray bytes = name.toLatin1();
    QString result = QString::fromUtf8(QByteArrayView(bytes.constData(), bytes.size()));
    result.remove(u","_s, Qt::CaseSensitive);
    result.remove(u";"_s, Qt::CaseSensitive);
    // Must come after the read-back: only an o-slash rebuilt from its two UTF-8
    // halves is still one here.
    result.replace(u"\u00F8"_s, u"o"_s, Qt::CaseSensitive);
    return result;
}

qint32 parseMoney(QString &text)
{
    // A cell with a title attribute shows the amount behind the next ">".
    QString value;
    if (peekBetween(value, text, u"title"_s, u">"_s, u"<"_s))
        text = value;

    text.replace(u","_s, u"."_s, Qt::CaseSensitive);

    // "1.50 mil. €"
    if (lowerContains(text, u"mil"_s))
        return truncateProduct(firstWord(text).toFloat() * 1000000.0f);

    // "€1.50m": the first character is taken for the currency sign, the last for the "m".
    if (lowerContains(text, u"m"_s))
        return truncateProduct(inner(text).toFloat() * 1000000.0f);

    // "500 Th. €" and the capital "K" of some cells: whole thousands only.
    if (lowerContains(text, u"th. "_s) || text.contains(u"K"_s, Qt::CaseSensitive))
        return timesThousand(firstWord(text).toInt());

    // "€500 Th." without anything behind it.
    if (lowerContains(text, u"th."_s)) {
        const QStringView number = text.size() < 4 ? QStringView(text).sliced(1)
                                                   : QStringView(text).sliced(1, text.size() - 4);
        return truncateProduct(number.toFloat() * 1000.0f);
    }

    // "€500k"
    if (text.contains(u"k"_s, Qt::CaseSensitive))
        return timesThousand(inner(text).toInt());

    // Plain counts, and the dash of a cell with no value.
    QString plain = text.simplified();
    plain.remove(u"-"_s, Qt::CaseSensitive);
    return plain.toInt();
}

qint16 carryYear(qint16 candidate, qint16 &last)
{
    if (candidate > 999)
        last = candidate;
    return last;
}
