#include "core/scan.h"

using namespace Qt::StringLiterals;

namespace {

// First occurrence of marker at or behind from, in any letter case. A negative
// from would make QString count from the end of the text, so it never gets there.
qsizetype find(const QString &text, const QString &marker, qsizetype from = 0)
{
    if (from < 0)
        return -1;
    return text.indexOf(marker, from, Qt::CaseInsensitive);
}

// Drops count characters from the front; a count beyond the text empties it,
// a count of zero or below leaves it alone.
void dropFront(QString &text, qsizetype count)
{
    if (count > 0)
        text.remove(0, qMin(count, text.size()));
}

} // namespace

bool isolateBetween(QString &text, const QString &first, const QString &second)
{
    // No test on first: when it is absent the index is -1 and the cut still
    // happens, one character short of the marker's length.
    const qsizetype i = find(text, first);
    dropFront(text, i + first.size());

    // The text ends where second begins. An absent second (-1) empties the text,
    // and so does a second at position 0.
    const qsizetype j = find(text, second);
    text.truncate(qMax<qsizetype>(j, 0));
    return true;
}

bool takeBetween(QString &out, QString &text, const QString &first, const QString &second)
{
    const qsizetype i = find(text, first);
    if (i >= 0) {
        const qsizetype start = i + first.size();
        const qsizetype j = find(text, second, start);
        const qsizetype length = j - start;
        // An empty value counts as a failure, so a scanning loop does not advance
        // past two adjacent markers.
        if (j >= 0 && length >= 1) {
            out = text.sliced(start, length).trimmed();
            dropFront(text, j + second.size());
            return true;
        }
    }
    out = QString();
    return false;
}

bool takeUntil(QString &out, QString &text, const QString &marker)
{
    // A marker right at the front fails like an absent one, and out keeps what it held.
    const qsizetype i = find(text, marker);
    if (i < 1)
        return false;
    out = text.first(i).trimmed();
    dropFront(text, i + marker.size());
    return true;
}

bool skipPast(QString &text, const QString &marker)
{
    const qsizetype i = find(text, marker);
    if (i < 0)
        return false;
    dropFront(text, i + marker.size());
    return true;
}

bool cutAt(QString &text, const QString &marker)
{
    const qsizetype i = find(text, marker);
    if (i < 0 || i >= text.size())
        return false;
    // The marker's first character stays: the scanners behind a cut at a closing
    // tag expect its "<" at the end.
    text.resize(i + 1);
    return true;
}

bool peekBetween(QString &out, const QString &text, const QString &anchor, const QString &first,
                 const QString &second)
{
    const qsizetype a = find(text, anchor);
    if (a < 0)
        return false;
    const qsizetype j = find(text, first, a + anchor.size());
    // Not guarded on purpose: with first absent the value is looked for from
    // first.size() - 1 on, near the top of the page, behind the anchor's back.
    const qsizetype start = j + first.size();
    if (start < 0)
        return false;
    const qsizetype k = find(text, second, start);
    if (k < 0 || k - start < 1)
        return false;
    QString value = text.sliced(start, k - start);
    // Only the small-letter entity is known to the sites' cells.
    value.remove(u"&nbsp;"_s, Qt::CaseSensitive);
    out = value.trimmed();
    return true;
}

bool takeInt(qint32 &out, QString &text, const QString &first, const QString &second)
{
    QString value;
    const bool found = takeBetween(value, text, first, second);
    out = value.trimmed().toInt();
    return found;
}

bool takeShort(qint16 &out, QString &text, const QString &first, const QString &second)
{
    QString value;
    const bool found = takeBetween(value, text, first, second);
    out = value.trimmed().toShort();
    return found;
}

qint32 parseDollars(QString &text)
{
    // Salaries read "$1,250,000 Per Year": the number stands between the sign and
    // the "P" of "Per".
    isolateBetween(text, u"$"_s, u"P"_s);
    text.remove(u","_s, Qt::CaseSensitive);
    return text.trimmed().toInt();
}

qint32 seasonStartYear(const QString &season)
{
    const qsizetype i = find(season, u"/"_s);
    if (i < 0)
        return 0;
    // Two-digit years, always of this century.
    return season.first(i).toShort() + 2000;
}

qint32 seasonEndYear(const QString &season)
{
    const qsizetype i = find(season, u"/"_s);
    if (i < 0)
        return 0;
    return season.sliced(i + 1).toShort() + 2000;
}

void splitAtSpace(const QString &name, QString &first, QString &second)
{
    const qsizetype i = name.indexOf(u" "_s, 0, Qt::CaseSensitive);
    if (i < 1) {
        first = name;
        second = QString();
        return;
    }
    first = name.first(i);
    second = name.sliced(i + 1);
}
