#include "tfm/tfmhistory.h"

#include "core/constants.h"
#include "core/fetch.h"
#include "core/scan.h"
#include "core/sharedstate.h"
#include "core/values.h"

using namespace Qt::StringLiterals;

namespace {

void writeRow(QTextStream &stream, const QChar &separator, const QString &club,
              const TFM_History &row)
{
    stream << club << separator << row.season << separator << QString::number(row.apps) << separator
           << QString::number(row.goals) << separator << QString::number(row.onLoan ? 1 : 0)
           << separator << u"\n"_s;
}

} // namespace

QString seasonYear(QString &text)
{
    if (text.size() <= 4)
        return text;
    // The two digits behind the slash of a season such as 19/20 decide the century.
    text = text.mid(3, 2);
    bool ok = false;
    const int year = text.toInt(&ok);
    if (ok && year >= 50)
        return u"19"_s + text;
    return u"20"_s + text;
}

void TFM_History::writeAscii(QTextStream &stream, const QChar &separator)
{
    writeRow(stream, separator, toAsciiName(club), *this);
}

void TFM_History::writeUtf(QTextStream &stream, const QChar &separator)
{
    writeRow(stream, separator, club, *this);
}

void TFM_History::parsePage(QString &row)
{
    // The row begins inside the tag of its first cell, the season's.
    QString cell;
    takeBetween(cell, row, u">"_s, u"<"_s);
    cell = cell.trimmed();
    season = seasonYear(cell);

    // The first alt is the competition's flag; the club's badge has the second.
    skipPast(row, u"alt"_s);
    QString name;
    takeBetween(name, row, u"alt=\""_s, u"\""_s);
    club = name.trimmed();

    skipPast(row, u"zentriert"_s);
    QString count;
    peekBetween(count, row, u"<a"_s, u">"_s, u"<"_s);
    apps = static_cast<quint32>(count.toInt());

    // The skip above took one "zentriert", so this finds the cell behind it.
    QString scored;
    takeBetween(scored, row, u"class=\"zentriert\">"_s, u"<"_s);
    goals = static_cast<quint32>(scored.toInt());

    onLoan = false;
}

void TFM_History::testReport(QString &text)
{
    QList<TFM_History> rows;
    QString name;
    QString dateOfBirth;
    scanHistoryPage(rows, text, name, dateOfBirth);
    appendLog(u"--- TESTING HISTORY WEBPAGE ---"_s);
    appendLog(toAsciiName(u"%1: %2"_s.arg(u"ASCII name"_s, name)));
    appendLog(u"%1: %2"_s.arg(u"Name"_s, name));
    appendLog(u"%1: %2"_s.arg(u"Date of birth"_s, dateOfBirth));
    for (const TFM_History &row : std::as_const(rows)) {
        appendLog(u"%1: %2"_s.arg(u"Club"_s, row.club));
        appendLog(u"%1: %2"_s.arg(u"qint32. appearances"_s).arg(row.apps));
        appendLog(u"%1: %2"_s.arg(u"qint32. goals"_s).arg(row.goals));
        appendLog(u"%1: %2"_s.arg(u"Year"_s, row.season));
    }
    appendLog(u"--- COMPLETE ---"_s);
}

void TFM_History::scanHistoryPage(QList<TFM_History> &rows, QString &page, QString &name,
                                  QString &dateOfBirth)
{
    // The name follows the shirt number where there is one, else the headline's tag.
    if (!peekBetween(name, page, u"data-header__shirt-number\""_s, u"span>"_s, u"</h"_s))
        peekBetween(name, page, u"<h1 class=\"data-header__headline-wrapper\""_s, u">"_s, u"</h"_s);
    name.remove(u"<strong>"_s, Qt::CaseSensitive);
    name.remove(u"</strong>"_s, Qt::CaseSensitive);
    name = name.trimmed();

    peekBetween(dateOfBirth, page, u"birthDate\""_s, u">"_s, u"("_s);
    dateOfBirth = dateOfBirth.trimmed();

    // Without the league table's heading the rows are taken from wherever the page
    // stands; the cut ends them with the first table behind it.
    skipPast(page, u">National leagues<"_s);
    skipPast(page, u"<tr class=\"odd\">"_s);
    cutAt(page, u"</tbody>"_s);

    QString text;
    while (takeBetween(text, page, u"<td class=\"zentriert\""_s, u"</tr>"_s)) {
        TFM_History row;
        row.parsePage(text);
        rows.append(row);
    }
}

bool TFM_History::downloadHistory(QList<TFM_History> &rows, const QString &path, QString &name,
                                  QString &dateOfBirth)
{
    // The address may belong to a list that changes while the fetch waits.
    const QString address = path;
    QString page;
    if (!fetchSitePage(page, TFM_ROOT_URL, address, false, nullptr, 0, 1)) {
        appendLog(u"ERROR: Unable to access %1"_s.arg(address));
        return false;
    }
    scanHistoryPage(rows, page, name, dateOfBirth);
    return true;
}
