#include "ep/epplayerhistory.h"

#include "core/csvexport.h"
#include "core/scan.h"
#include "core/values.h"
#include "ep/teamrows.h"

using namespace Qt::StringLiterals;

const QString notAvailable = u"n/a"_s;

qint16 EP_PlayerHistory::lastYear = 0;

namespace {

// The four counts of a skater's half, each behind the marker of its cell.
struct SkaterCells
{
    QString goals;
    QString assists;
    QString pim;
    QString plusMinus;
};

const SkaterCells regularCells = {u"<td class=\"regular g"_s, u"<td class=\"regular a"_s,
                                  u"<td class=\"regular pim"_s, u"<td class=\"regular pm"_s};
const SkaterCells playoffCells = {u"<td class=\"playoffs g"_s, u"<td class=\"playoffs a"_s,
                                  u"<td class=\"playoffs pim"_s, u"<td class=\"playoffs pm"_s};

// The text of the next cell; null when it is empty or missing.
QString nextCell(QString &row)
{
    QString value;
    takeBetween(value, row, u">"_s, u"</td>"_s);
    return value;
}

// A count cell behind marker. A dash reads as 0, and the sign of a negative
// plus/minus is dropped with it.
qint16 countAfter(QString &row, const QString &marker)
{
    skipPast(row, marker);
    QString value = nextCell(row);
    return static_cast<qint16>(parseMoney(value));
}

double averageAfter(QString &row, const QString &marker)
{
    skipPast(row, marker);
    return textToFloat(nextCell(row));
}

// The cell markers end without their closing quote: the site's class list goes on
// behind them. The games cell has gone already, so "regular g" finds the goals.
void readSkaterHalf(QString &row, const SkaterCells &cells, qint16 &goals, qint16 &assists,
                    qint16 &pim, qint16 &plusMinus)
{
    goals = countAfter(row, cells.goals);
    assists = countAfter(row, cells.assists);
    pim = countAfter(row, cells.pim);
    plusMinus = countAfter(row, cells.plusMinus);
}

// The highest age from 23 down to 11 that the competition's name holds anywhere.
qint16 ageClassOf(const QString &competition)
{
    if (competition.isEmpty())
        return -1;
    for (qint16 age = 23; age >= 11; --age) {
        if (competition.contains(QString::number(age), Qt::CaseInsensitive))
            return age;
    }
    return -1;
}

int digit(bool flag)
{
    return flag ? 1 : 0;
}

// One arg() a value, in a row: plus/minus before the minutes, unlike the file.
QString sampleLine(const EP_PlayerHistory &row)
{
    return u"%1 %2 %3 %4 %5 %6 %7 %8 (%9 %10) : %11 %12 %13 %14 %15 %16 (%17 %18) : "
           u"%19 %20 %21 %22 %23"_s.arg(row.year)
               .arg(row.club)
               .arg(row.competition)
               .arg(row.regularGp)
               .arg(row.regularGoals)
               .arg(row.regularAssists)
               .arg(row.regularPlusMinus)
               .arg(row.regularPim)
               .arg(row.regularGaa, 0, 'g')
               .arg(row.regularSvp, 0, 'g')
               .arg(row.playoffType)
               .arg(row.playoffGp)
               .arg(row.playoffGoals)
               .arg(row.playoffAssists)
               .arg(row.playoffPlusMinus)
               .arg(row.playoffPim)
               .arg(row.playoffGaa, 0, 'g')
               .arg(row.playoffSvp, 0, 'g')
               .arg(row.ageType)
               .arg(digit(row.isInternational))
               .arg(digit(row.isCaptain))
               .arg(digit(row.isAlternate))
               .arg(digit(row.onLoan));
}

} // namespace

EP_PlayerHistory::EP_PlayerHistory(const QString *firstName, const QString *secondName,
                                   const QDate *dateOfBirth)
    : firstName(firstName)
    , secondName(secondName)
    , dateOfBirth(dateOfBirth)
{ }

void EP_PlayerHistory::parsePage(QString &row)
{
    // The row's class attribute names national teams with "INT".
    QString value;
    takeBetween(value, row, u"team-"_s, u"\""_s);
    isInternational = value.contains(u"INT"_s, Qt::CaseInsensitive);

    // A season cell of two years gives the first; an empty one takes the year of
    // the row above, of this player or of the one before.
    skipPast(row, u"<td class=\"season"_s);
    takeBetween(value, row, u">"_s, u"-"_s);
    year = carryYear(static_cast<qint16>(parseMoney(value)), lastYear);

    skipPast(row, u"<a href="_s);
    takeBetween(club, row, u">"_s, u"</a>"_s);
    if (club.isEmpty()) {
        isValid = false;
        return;
    }

    // Any icon left in the row counts as the loan icon: an "<i", a class, and
    // something before its "</i>".
    QString icon = u"fa-loan"_s;
    onLoan = peekBetween(icon, row, u"<i"_s, u"class"_s, u"</i>"_s);

    skipPast(row, u"<a href="_s);
    takeBetween(competition, row, u">"_s, u"</a>"_s);
    // A captain's letter is a link of its own between the club and the league.
    bool lettered = false;
    if (competition.contains(u"&ldquo;C&rdquo;"_s, Qt::CaseInsensitive)) {
        isCaptain = true;
        lettered = true;
    } else if (competition.contains(u"&ldquo;A&rdquo;"_s, Qt::CaseInsensitive)) {
        isAlternate = true;
        lettered = true;
    }
    if (lettered) {
        skipPast(row, u"<a href="_s);
        takeBetween(competition, row, u">"_s, u"</a>"_s);
    }
    ageType = ageClassOf(competition);

    skipPast(row, u"<td class=\"regular gp"_s);
    value = nextCell(row);
    regularGp = static_cast<qint16>(parseMoney(value));
    // A goalkeeper's row has an average in place of the skater's counts; the
    // playoff half is taken to be of the same kind.
    const bool isGoalkeeper
        = peekBetween(value, row, u"<td class=\"regular gaa"_s, u">"_s, u"</td>"_s);
    if (isGoalkeeper) {
        regularGaa = textToFloat(value);
        regularSvp = averageAfter(row, u"<td class=\"regular svp"_s);
    } else {
        readSkaterHalf(row, regularCells, regularGoals, regularAssists, regularPim,
                       regularPlusMinus);
    }

    // With its closing quote: the bare playoffs cell, not one of the statistics.
    skipPast(row, u"<td class=\"playoffs\""_s);
    skipPast(row, u"<a href="_s);
    takeBetween(playoffType, row, u">"_s, u"</a>"_s);
    skipPast(row, u"<td class=\"playoffs gp"_s);
    value = nextCell(row);
    playoffGp = static_cast<qint16>(parseMoney(value));
    if (isGoalkeeper) {
        playoffGaa = averageAfter(row, u"<td class=\"playoffs gaa"_s);
        playoffSvp = averageAfter(row, u"<td class=\"playoffs svp"_s);
    } else {
        readSkaterHalf(row, playoffCells, playoffGoals, playoffAssists, playoffPim,
                       playoffPlusMinus);
    }
}

void EP_PlayerHistory::writeAscii(QTextStream &stream, const QChar &separator)
{
    writeLines(stream, separator, true);
}

void EP_PlayerHistory::writeUtf(QTextStream &stream, const QChar &separator)
{
    writeLines(stream, separator, false);
}

void EP_PlayerHistory::writeLines(QTextStream &stream, const QChar &separator, bool ascii) const
{
    const auto name = [ascii](const QString &text) { return ascii ? toAsciiName(text) : text; };
    const QChar s = separator;
    // The owner's name and date as they stand now; a row made without an owner
    // has neither.
    const QString first = firstName ? *firstName : QString();
    const QString second = secondName ? *secondName : QString();
    // This file's own mark of an unknown date.
    const QString date = dateOfBirth && dateOfBirth->isValid()
        ? dateOfBirth->toString(u"dd.MM.yyyy"_s)
        : u"1.2.1900"_s;

    const auto line = [&](bool playoffs, qint16 gp, qint16 goals, qint16 assists, qint16 pim,
                          qint16 plusMinus, const QString &type, double gaa, double svp) {
        stream << name(first) << s << name(second) << s << date << s << boolToYN(onLoan) << s
               << boolToYN(playoffs) << s << year << s << name(club) << s << name(competition) << s
               << gp << s << goals << s << assists << s << pim << s << plusMinus << s;
        // Mins, GA, SO, W, L, T/OT and Saves: titled, never filled.
        stream << s << s << s << s << s << s << s;
        stream << digit(isCaptain) << s << digit(isAlternate) << s << type << s << ageType << s
               << digit(isInternational) << s << gaa << s << svp << '\n';
    };

    if (regularGp > 0) {
        line(false, regularGp, regularGoals, regularAssists, regularPim, regularPlusMinus,
             u"Reg. Season"_s, regularGaa, regularSvp);
    }
    if (playoffGp > 0) {
        line(true, playoffGp, playoffGoals, playoffAssists, playoffPim, playoffPlusMinus,
             playoffType, playoffGaa, playoffSvp);
    }
}

bool scanPlayerHistory(const QString *firstName, const QString *secondName,
                       const QDate *dateOfBirth, QList<EP_PlayerHistory> &rows, QString text)
{
    isolateBetween(text, u"Player Statistics"_s, u"</section>"_s);
    skipPast(text, u"<tbody>"_s);
    // "<tr" without its ">": the row's class attribute stays at its front.
    QString row;
    while (takeBetween(row, text, u"<tr"_s, u"</tr>"_s)) {
        EP_PlayerHistory history(firstName, secondName, dateOfBirth);
        history.parsePage(row);
        if (history.isValid)
            rows.append(history);
    }
    return !rows.isEmpty();
}

QString playerHistorySample(const QList<EP_PlayerHistory> &rows, const int &index)
{
    return teamRowSample(rows, index, u"History row #%1 does not exist"_s, sampleLine);
}
