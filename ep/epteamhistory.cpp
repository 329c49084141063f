#include "ep/epteamhistory.h"

#include "core/scan.h"
#include "core/values.h"
#include "ep/teamrows.h"

using namespace Qt::StringLiterals;

qint16 EP_TeamHistory::lastSeason = 0;

namespace {

// The team and the two names go through convert; otWins stands in two columns,
// and otLosses in none.
template<typename Convert>
void writeRow(const EP_TeamHistory &row, QTextStream &stream, const QChar &s, Convert convert)
{
    stream << convert(row.team) << s << convert(row.league) << s << row.season << s << row.standing
           << s << row.gp << s << row.wins << s << row.ties << s << row.losses << s << row.otWins
           << s << row.otWins << s << row.goalsFor << s << row.goalsAgainst << s << row.points << s
           << row.postSeason << s << convert(row.actualName) << '\n';
}

qint16 cellValue(QString &row, const QString &marker)
{
    QString value;
    takeBetween(value, row, marker, u"</td>"_s);
    return static_cast<qint16>(parseMoney(value));
}

} // namespace

void EP_TeamHistory::writeAscii(QTextStream &stream, const QChar &separator)
{
    writeRow(*this, stream, separator, toAsciiName);
}

void EP_TeamHistory::writeUtf(QTextStream &stream, const QChar &separator)
{
    writeRow(*this, stream, separator, asItStands);
}

void EP_TeamHistory::parsePage(QString &row)
{
    // The first ">" is that of the link in the season cell; the season's first
    // year stands up to the dash.
    QString value;
    takeBetween(value, row, u">"_s, u"-"_s);
    // Plus one, in 16 bits: a row without a readable year gives 1 and takes the
    // season of the row before it.
    season
        = carryYear(static_cast<qint16>(static_cast<quint32>(parseMoney(value)) + 1u), lastSeason);

    skipPast(row, u"<td class=\"league\">"_s);
    takeBetween(league, row, u">"_s, u"</a>"_s);

    gp = cellValue(row, u"<td class=\"gp\">"_s);
    wins = cellValue(row, u"<td class=\"w\">"_s);
    ties = cellValue(row, u"<td class=\"t\">"_s);
    losses = cellValue(row, u"<td class=\"l\">"_s);
    otWins = cellValue(row, u"<td class=\"otw\">"_s);
    otLosses = cellValue(row, u"<td class=\"otl\">"_s);
    goalsFor = cellValue(row, u"<td class=\"gf\">"_s);
    goalsAgainst = cellValue(row, u"<td class=\"ga\">"_s);
    points = cellValue(row, u"<td class=\"tp\">"_s);
    // The site's class attribute of the standing cell ends in a blank.
    standing = cellValue(row, u"<td class=\"rank \">"_s);

    // The cell behind the standing. An outcome of several lines is dropped whole:
    // the string is its own text here, and loses the first line and what is left.
    takeBetween(postSeason, row, u">"_s, u"</td>"_s);
    takeUntil(postSeason, postSeason, u"\n"_s);
}

bool scanTeamHistory(QList<EP_TeamHistory> &rows, QString &text, const QString &teamName)
{
    return scanTeamRows(rows, text, teamName, u"Team History and Standings"_s,
                        u"Where are they now"_s, u"<td class=\"season\">"_s, u"</tr>"_s);
}

QString teamHistorySample(const QList<EP_TeamHistory> &rows, const int &index)
{
    // One arg() after the other, as the line has always been built.
    return teamRowSample(
        rows, index, u"History row #%1 does not exist"_s, [](const EP_TeamHistory &row) {
            return u"%1 %2 %3 %4 %5-%6-%7 %8:%9 %10:%11 %12 %13 %14"_s.arg(row.season)
                .arg(row.actualName)
                .arg(row.league)
                .arg(row.gp)
                .arg(row.wins)
                .arg(row.ties)
                .arg(row.losses)
                .arg(row.otWins)
                .arg(row.otLosses)
                .arg(row.goalsFor)
                .arg(row.goalsAgainst)
                .arg(row.points)
                .arg(row.standing)
                .arg(row.postSeason);
        });
}
