#include "ep/epplayerhistory.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"

#include <QLocale>
#include <QTest>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

// A row of the career table as the scan hands it on: from behind "<tr" up to its
// "</tr>". Each part can be replaced by a test's own. The plus/minus cells hold
// no dash, so that a row without a season finds none to stop at.
QString careerRow(const QList<QPair<QString, QString>> &replacements = {})
{
    const QList<QPair<QString, QString>> parts = {
        {u"class"_s, u" class=\"team-continent-EU\">"_s},
        {u"season"_s, u"<td class=\"season sorted\">2018-19</td>"_s},
        {u"team"_s,
         u"<td class=\"team\"><a href=\"https://www.eliteprospects.com/team/64/frolunda\">"
         u"Frolunda HC</a></td>"_s},
        {u"league"_s,
         u"<td class=\"league\"><a href=\"https://www.eliteprospects.com/league/shl\">SHL</a>"
         u"</td>"_s},
        {u"regular"_s,
         u"<td class=\"regular gp\">52</td><td class=\"regular g\">7</td>"
         u"<td class=\"regular a\">21</td><td class=\"regular tp\">28</td>"
         u"<td class=\"regular pim\">30</td><td class=\"regular pm\">12</td>"_s},
        {u"playoffs"_s,
         u"<td class=\"separator\"></td><td class=\"playoffs\">"
         u"<a href=\"https://www.eliteprospects.com/league/shl/playoffs\">Playoffs</a></td>"_s},
        {u"playoffStats"_s,
         u"<td class=\"playoffs gp\">16</td><td class=\"playoffs g\">2</td>"
         u"<td class=\"playoffs a\">6</td><td class=\"playoffs tp\">8</td>"
         u"<td class=\"playoffs pim\">10</td><td class=\"playoffs pm\">3</td>"_s},
    };
    QString row;
    for (const auto &[name, html] : parts) {
        QString part = html;
        for (const auto &[replaced, replacement] : replacements) {
            if (replaced == name)
                part = replacement;
        }
        row += part;
    }
    return row;
}

QString teamCell(const QString &inside)
{
    return u"<td class=\"team\">"_s + inside + u"</td>"_s;
}

const QString clubLink = u"<a href=\"https://www.eliteprospects.com/team/64/frolunda\">"
                         u"Frolunda HC</a>"_s;

const QString goalkeeperRegular
    = u"<td class=\"regular gp\">30</td><td class=\"regular gaa\">2.45</td>"
      u"<td class=\"regular svp\">.915</td>"_s;
const QString goalkeeperPlayoffs
    = u"<td class=\"playoffs gp\">4</td><td class=\"playoffs gaa\">1.98</td>"
      u"<td class=\"playoffs svp\">.931</td>"_s;

EP_PlayerHistory parsed(const QString &text)
{
    EP_PlayerHistory row;
    QString copy = text;
    row.parsePage(copy);
    return row;
}

// The lines that a row writes, with its owner's fields.
QString written(EP_PlayerHistory &row, bool utf, QChar separator)
{
    QString text;
    QTextStream stream(&text);
    if (utf)
        row.writeUtf(stream, separator);
    else
        row.writeAscii(stream, separator);
    stream.flush();
    return text;
}

// A row with games in both halves and every field set.
EP_PlayerHistory fullRow(const QString *first, const QString *second, const QDate *date)
{
    EP_PlayerHistory row(first, second, date);
    row.year = 2018;
    row.club = u"Fr\u00f6lunda HC, J20"_s;
    row.competition = u"J20; Nationell"_s;
    row.regularGp = 40;
    row.regularGoals = 8;
    row.regularAssists = 15;
    row.regularPim = 18;
    row.regularPlusMinus = 4;
    row.regularGaa = double(2.45f);
    row.regularSvp = double(0.915f);
    row.playoffType = u"Playoffs, J\u00e4"_s;
    row.playoffGp = 6;
    row.playoffGoals = 1;
    row.playoffAssists = 2;
    row.playoffPim = 4;
    row.playoffPlusMinus = 2;
    row.playoffGaa = double(1.98f);
    row.playoffSvp = double(0.931f);
    row.isAlternate = true;
    row.isCaptain = false;
    row.ageType = 20;
    row.isInternational = true;
    row.onLoan = true;
    return row;
}

} // namespace

class TestEpPlayerHistory : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void defaults();
    void fullRowOfASkater();
    void goalkeeperRow();
    void seasonYear_data();
    void seasonYear();
    void lastYearCarriesOverToTheNextPlayer();
    void ageClass_data();
    void ageClass();
    void captaincy_data();
    void captaincy();
    void loanFlag_data();
    void loanFlag();
    void internationalRow_data();
    void internationalRow();
    void droppedRows_data();
    void droppedRows();
    void statisticsCells_data();
    void statisticsCells();
    void regularSeasonOnly();
    void scanWithoutTheSection();
    void scanResult();
    void sample_data();
    void sample();
    void sampleWithAPlaceMarkerInTheClub();
    void writerLines_data();
    void writerLines();
    void writerReadsTheOwnerWhenWriting();
    void writerWithoutOwner();
    void writerKeepsThePointInAGermanLocale();
};

void TestEpPlayerHistory::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestEpPlayerHistory::init()
{
    QLocale::setDefault(QLocale::c());
    EP_PlayerHistory::lastYear = 0;
}

void TestEpPlayerHistory::defaults()
{
    EP_PlayerHistory row;
    QCOMPARE(row.firstName, nullptr);
    QCOMPARE(row.secondName, nullptr);
    QCOMPARE(row.dateOfBirth, nullptr);
    QCOMPARE(row.year, qint16(0));
    QVERIFY(row.club.isNull());
    QVERIFY(row.competition.isNull());
    QVERIFY(row.playoffType.isNull());
    QCOMPARE(row.regularGp, qint16(0));
    QCOMPARE(row.regularGaa, 0.0);
    QCOMPARE(row.ageType, qint16(-1));
    QCOMPARE(row.isValid, true);
    QCOMPARE(row.isCaptain, false);
    QCOMPARE(row.isAlternate, false);
    QCOMPARE(row.isInternational, false);
    QCOMPARE(row.onLoan, false);
    QCOMPARE(notAvailable, u"n/a"_s);

    const QString first = u"A"_s;
    const QString second = u"B"_s;
    const QDate date(2000, 1, 1);
    const EP_PlayerHistory owned(&first, &second, &date);
    QCOMPARE(owned.firstName, &first);
    QCOMPARE(owned.secondName, &second);
    QCOMPARE(owned.dateOfBirth, &date);
}

void TestEpPlayerHistory::fullRowOfASkater()
{
    const EP_PlayerHistory row = parsed(careerRow());
    QCOMPARE(row.year, qint16(2018));
    QCOMPARE(row.club, u"Frolunda HC"_s);
    QCOMPARE(row.competition, u"SHL"_s);
    QCOMPARE(row.regularGp, qint16(52));
    QCOMPARE(row.regularGoals, qint16(7));
    QCOMPARE(row.regularAssists, qint16(21));
    QCOMPARE(row.regularPim, qint16(30));
    QCOMPARE(row.regularPlusMinus, qint16(12));
    QCOMPARE(row.regularGaa, 0.0);
    QCOMPARE(row.regularSvp, 0.0);
    QCOMPARE(row.playoffType, u"Playoffs"_s);
    QCOMPARE(row.playoffGp, qint16(16));
    QCOMPARE(row.playoffGoals, qint16(2));
    QCOMPARE(row.playoffAssists, qint16(6));
    QCOMPARE(row.playoffPim, qint16(10));
    QCOMPARE(row.playoffPlusMinus, qint16(3));
    QCOMPARE(row.playoffGaa, 0.0);
    QCOMPARE(row.playoffSvp, 0.0);
    QCOMPARE(row.ageType, qint16(-1));
    QVERIFY(row.isValid);
    QVERIFY(!row.isCaptain);
    QVERIFY(!row.isAlternate);
    QVERIFY(!row.isInternational);
    QVERIFY(!row.onLoan);
    QCOMPARE(EP_PlayerHistory::lastYear, qint16(2018));
}

void TestEpPlayerHistory::goalkeeperRow()
{
    const EP_PlayerHistory row = parsed(
        careerRow({{u"regular"_s, goalkeeperRegular}, {u"playoffStats"_s, goalkeeperPlayoffs}}));
    QCOMPARE(row.regularGp, qint16(30));
    // Single precision, widened.
    QCOMPARE(row.regularGaa, double(2.45f));
    QCOMPARE(row.regularSvp, double(0.915f));
    QCOMPARE(row.playoffGp, qint16(4));
    QCOMPARE(row.playoffGaa, double(1.98f));
    QCOMPARE(row.playoffSvp, double(0.931f));
    // The skater's counts stay at 0.
    QCOMPARE(row.regularGoals, qint16(0));
    QCOMPARE(row.regularAssists, qint16(0));
    QCOMPARE(row.regularPim, qint16(0));
    QCOMPARE(row.regularPlusMinus, qint16(0));
    QCOMPARE(row.playoffGoals, qint16(0));
    QCOMPARE(row.playoffPlusMinus, qint16(0));

    // Dashes in a goalkeeper's cells read as 0.
    const EP_PlayerHistory dashes
        = parsed(careerRow({{u"regular"_s,
                             u"<td class=\"regular gp\">-</td><td class=\"regular gaa\">-</td>"
                             u"<td class=\"regular svp\">-</td>"_s},
                            {u"playoffStats"_s, goalkeeperPlayoffs}}));
    QCOMPARE(dashes.regularGp, qint16(0));
    QCOMPARE(dashes.regularGaa, 0.0);
    QCOMPARE(dashes.regularSvp, 0.0);
    QCOMPARE(dashes.playoffGaa, double(1.98f));
}

void TestEpPlayerHistory::seasonYear_data()
{
    QTest::addColumn<QString>("season");
    QTest::addColumn<int>("lastYearBefore");
    QTest::addColumn<int>("year");
    QTest::addColumn<int>("lastYearAfter");

    QTest::newRow("two years") << u"<td class=\"season sorted\">2018-19</td>"_s << 0 << 2018
                               << 2018;
    QTest::newRow("four-digit halves")
        << u"<td class=\"season\">2018-2019</td>"_s << 2001 << 2018 << 2018;
    QTest::newRow("empty cell takes the last year")
        << u"<td class=\"season sorted\"></td>"_s << 2018 << 2018 << 2018;
    QTest::newRow("empty cell at the start of the process")
        << u"<td class=\"season sorted\"></td>"_s << 0 << 0 << 0;
    QTest::newRow("three digits are no year")
        << u"<td class=\"season\">999-00</td>"_s << 2010 << 2010 << 2010;
    QTest::newRow("1000 is a year")
        << u"<td class=\"season\">1000-01</td>"_s << 2010 << 1000 << 1000;
    // Without a hyphen anywhere behind it the cell gives nothing.
    QTest::newRow("year without hyphen")
        << u"<td class=\"season\">2018</td>"_s << 2015 << 2015 << 2015;
    QTest::newRow("dash alone") << u"<td class=\"season\">-</td>"_s << 2012 << 2012 << 2012;
    // The first number is read whole, a digit or five.
    QTest::newRow("a later year than any")
        << u"<td class=\"season\">30000-01</td>"_s << 2012 << 30000 << 30000;
}

void TestEpPlayerHistory::seasonYear()
{
    QFETCH(QString, season);
    QFETCH(int, lastYearBefore);
    QFETCH(int, year);
    QFETCH(int, lastYearAfter);

    EP_PlayerHistory::lastYear = qint16(lastYearBefore);
    const EP_PlayerHistory row = parsed(careerRow({{u"season"_s, season}}));
    QCOMPARE(row.year, qint16(year));
    QCOMPARE(EP_PlayerHistory::lastYear, qint16(lastYearAfter));
    // The club is read all the same.
    QCOMPARE(row.club, u"Frolunda HC"_s);
}

void TestEpPlayerHistory::lastYearCarriesOverToTheNextPlayer()
{
    // Nothing resets the year between players: a first row without a season
    // takes the last year of the player before.
    const QString first = u"A"_s;
    const QDate date;
    QList<EP_PlayerHistory> earlier;
    scanPlayerHistory(&first, &first, &date, earlier,
                      u"<h2>Player Statistics</h2><tbody><tr"_s + careerRow()
                          + u"</tr></section>"_s);
    QCOMPARE(earlier.size(), 1);

    QList<EP_PlayerHistory> later;
    scanPlayerHistory(&first, &first, &date, later,
                      u"<h2>Player Statistics</h2><tbody><tr"_s
                          + careerRow({{u"season"_s, u"<td class=\"season\"></td>"_s}})
                          + u"</tr></section>"_s);
    QCOMPARE(later.size(), 1);
    QCOMPARE(later.first().year, qint16(2018));
}

void TestEpPlayerHistory::ageClass_data()
{
    QTest::addColumn<QString>("league");
    QTest::addColumn<QString>("competition");
    QTest::addColumn<int>("ageType");

    const auto link = [](const QString &name) -> QString {
        return u"<td class=\"league\"><a href=\"https://www.eliteprospects.com/league/x\">"_s + name
            + u"</a></td>"_s;
    };
    QTest::newRow("plain league") << link(u"SHL"_s) << u"SHL"_s << -1;
    QTest::newRow("J20") << link(u"J20 Nationell"_s) << u"J20 Nationell"_s << 20;
    QTest::newRow("18 and 20: the higher") << link(u"U18 to 20 Cup"_s) << u"U18 to 20 Cup"_s << 20;
    QTest::newRow("23") << link(u"U23 Liga"_s) << u"U23 Liga"_s << 23;
    QTest::newRow("11") << link(u"U11 Cup"_s) << u"U11 Cup"_s << 11;
    QTest::newRow("10 is none") << link(u"U10 Cup"_s) << u"U10 Cup"_s << -1;
    QTest::newRow("24 is none") << link(u"Liga 24"_s) << u"Liga 24"_s << -1;
    // No boundary: any 20 counts, part of a year too, and 123 holds 23.
    QTest::newRow("a year") << link(u"Spengler Cup 2024"_s) << u"Spengler Cup 2024"_s << 20;
    QTest::newRow("inside a number") << link(u"Division 123"_s) << u"Division 123"_s << 23;
    QTest::newRow("empty link text") << link(QString()) << QString() << -1;
}

void TestEpPlayerHistory::ageClass()
{
    QFETCH(QString, league);
    QFETCH(QString, competition);
    QFETCH(int, ageType);

    const EP_PlayerHistory row = parsed(careerRow({{u"league"_s, league}}));
    QCOMPARE(row.competition, competition);
    QCOMPARE(row.ageType, qint16(ageType));
}

void TestEpPlayerHistory::captaincy_data()
{
    QTest::addColumn<QString>("team");
    QTest::addColumn<bool>("captain");
    QTest::addColumn<bool>("alternate");

    const auto letter = [](const QString &text) {
        return teamCell(clubLink + u" <a href=\"https://www.eliteprospects.com/team/64/x?tab=c\">"_s
                        + text + u"</a>"_s);
    };
    QTest::newRow("captain") << letter(u"&ldquo;C&rdquo;"_s) << true << false;
    QTest::newRow("alternate") << letter(u"&ldquo;A&rdquo;"_s) << false << true;
    QTest::newRow("any letter case") << letter(u"&LDQUO;c&RDQUO;"_s) << true << false;
    QTest::newRow("no letter") << teamCell(clubLink) << false << false;
}

void TestEpPlayerHistory::captaincy()
{
    QFETCH(QString, team);
    QFETCH(bool, captain);
    QFETCH(bool, alternate);

    const EP_PlayerHistory row = parsed(careerRow({{u"team"_s, team}}));
    QCOMPARE(row.isCaptain, captain);
    QCOMPARE(row.isAlternate, alternate);
    // Club first, then the letter, then the league.
    QCOMPARE(row.club, u"Frolunda HC"_s);
    QCOMPARE(row.competition, u"SHL"_s);
    QCOMPARE(row.regularGp, qint16(52));
}

void TestEpPlayerHistory::loanFlag_data()
{
    QTest::addColumn<QString>("team");
    QTest::addColumn<QString>("playoffs");
    QTest::addColumn<bool>("onLoan");

    const QString playoffs = u"<td class=\"separator\"></td><td class=\"playoffs\">"
                             u"<a href=\"https://www.eliteprospects.com/league/shl/p\">Playoffs</a>"
                             u"</td>"_s;
    QTest::newRow("loan icon behind the club")
        << teamCell(clubLink + u" <i class=\"ep-icon--loan\" title=\"On loan\"></i>"_s) << playoffs
        << true;
    QTest::newRow("no icon") << teamCell(clubLink) << playoffs << false;
    // Any icon with a class counts, wherever it stands behind the club.
    QTest::newRow("another icon further on")
        << teamCell(clubLink)
        << u"<td class=\"playoffs\"><i class=\"fa fa-star\"></i>"
           u"<a href=\"https://www.eliteprospects.com/league/shl/p\">Playoffs</a></td>"_s
        << true;
    QTest::newRow("capitals") << teamCell(clubLink + u"<I CLASS=\"LOAN\"></I>"_s) << playoffs
                              << true;
    QTest::newRow("icon without a class") << teamCell(clubLink + u"<i></i>"_s) << playoffs << false;
    QTest::newRow("icon without its end")
        << teamCell(clubLink + u"<i class=\"loan\">"_s) << playoffs << false;
    QTest::newRow("icon in front of the club")
        << teamCell(u"<i class=\"loan\"></i>"_s + clubLink) << playoffs << false;
}

void TestEpPlayerHistory::loanFlag()
{
    QFETCH(QString, team);
    QFETCH(QString, playoffs);
    QFETCH(bool, onLoan);

    const EP_PlayerHistory row = parsed(careerRow({{u"team"_s, team}, {u"playoffs"_s, playoffs}}));
    QCOMPARE(row.onLoan, onLoan);
    QCOMPARE(row.club, u"Frolunda HC"_s);
    QCOMPARE(row.playoffType, u"Playoffs"_s);
}

void TestEpPlayerHistory::internationalRow_data()
{
    QTest::addColumn<QString>("classText");
    QTest::addColumn<bool>("international");

    QTest::newRow("INT") << u" class=\"team-continent-INT\">"_s << true;
    QTest::newRow("small letters") << u" class=\"team-int\">"_s << true;
    QTest::newRow("Europe") << u" class=\"team-continent-EU\">"_s << false;
    QTest::newRow("no team class") << u" class=\"odd\">"_s << false;
}

void TestEpPlayerHistory::internationalRow()
{
    QFETCH(QString, classText);
    QFETCH(bool, international);

    const EP_PlayerHistory row = parsed(careerRow({{u"class"_s, classText}}));
    QCOMPARE(row.isInternational, international);
    QCOMPARE(row.year, qint16(2018));
}

void TestEpPlayerHistory::droppedRows_data()
{
    QTest::addColumn<QString>("team");
    QTest::addColumn<QString>("league");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<QString>("club");

    const QString league = u"<td class=\"league\"><a href=\"/league/shl\">SHL</a></td>"_s;
    const QString noLinks = u"<td class=\"league\">SHL</td>"_s;
    QTest::newRow("club link") << teamCell(clubLink) << league << true << u"Frolunda HC"_s;
    QTest::newRow("no link anywhere")
        << teamCell(u"Did not play"_s) << noLinks << false << QString();
    QTest::newRow("empty link") << teamCell(u"<a href=\"/team/1\"></a>"_s) << noLinks << false
                                << QString();
    // Without a club link the next link with text is taken for the club.
    QTest::newRow("no club link, a league link")
        << teamCell(u"Did not play"_s) << league << true << u"SHL"_s;
}

void TestEpPlayerHistory::droppedRows()
{
    QFETCH(QString, team);
    QFETCH(QString, league);
    QFETCH(bool, valid);
    QFETCH(QString, club);

    const QString noPlayoffLink = u"<td class=\"playoffs\"></td>"_s;
    const QString text
        = careerRow({{u"team"_s, team}, {u"league"_s, league}, {u"playoffs"_s, noPlayoffLink}});
    const EP_PlayerHistory row = parsed(text);
    QCOMPARE(row.isValid, valid);
    QCOMPARE(row.club, club);
    if (!valid) {
        // The scan of the row ends there: nothing behind the club is read.
        QVERIFY(row.competition.isNull());
        QCOMPARE(row.regularGp, qint16(0));
        QCOMPARE(row.ageType, qint16(-1));
    }

    const QString name = u"A"_s;
    const QDate date;
    QList<EP_PlayerHistory> rows;
    scanPlayerHistory(&name, &name, &date, rows,
                      u"Player Statistics<tbody><tr"_s + text + u"</tr></section>"_s);
    QCOMPARE(rows.size(), valid ? 1 : 0);
}

void TestEpPlayerHistory::statisticsCells_data()
{
    QTest::addColumn<QString>("regular");
    QTest::addColumn<QList<int>>("counts");

    QTest::newRow("plain") << u"<td class=\"regular gp\">52</td><td class=\"regular g\">7</td>"
                              u"<td class=\"regular a\">21</td><td class=\"regular tp\">28</td>"
                              u"<td class=\"regular pim\">30</td><td class=\"regular pm\">12</td>"_s
                           << QList<int>{52, 7, 21, 30, 12};
    // The sign of a negative plus/minus is lost on purpose.
    QTest::newRow("negative plus/minus")
        << u"<td class=\"regular gp\">52</td><td class=\"regular g\">7</td>"
           u"<td class=\"regular a\">21</td><td class=\"regular tp\">28</td>"
           u"<td class=\"regular pim\">30</td><td class=\"regular pm\">-12</td>"_s
        << QList<int>{52, 7, 21, 30, 12};
    QTest::newRow("dashes") << u"<td class=\"regular gp\">-</td><td class=\"regular g\">-</td>"
                               u"<td class=\"regular a\">-</td><td class=\"regular tp\">-</td>"
                               u"<td class=\"regular pim\">-</td><td class=\"regular pm\">-</td>"_s
                            << QList<int>{0, 0, 0, 0, 0};
    QTest::newRow("more classes")
        << u"<td class=\"regular gp sorted\">5</td><td class=\"regular g x\">1</td>"
           u"<td class=\"regular a x\">2</td><td class=\"regular tp\">3</td>"
           u"<td class=\"regular pim x\">4</td><td class=\"regular pm x\">6</td>"_s
        << QList<int>{5, 1, 2, 4, 6};
}

void TestEpPlayerHistory::statisticsCells()
{
    QFETCH(QString, regular);
    QFETCH(QList<int>, counts);

    const EP_PlayerHistory row = parsed(careerRow({{u"regular"_s, regular}}));
    const QList<int> read{row.regularGp, row.regularGoals, row.regularAssists, row.regularPim,
                          row.regularPlusMinus};
    QCOMPARE(read, counts);
    // The playoff half is read behind it all the same.
    QCOMPARE(row.playoffGp, qint16(16));
    QCOMPARE(row.playoffPlusMinus, qint16(3));
}

void TestEpPlayerHistory::regularSeasonOnly()
{
    const EP_PlayerHistory row = parsed(
        careerRow({{u"playoffs"_s, u"<td class=\"separator\"></td><td class=\"playoffs\"></td>"_s},
                   {u"playoffStats"_s,
                    u"<td class=\"playoffs gp\"></td><td class=\"playoffs g\"></td>"
                    u"<td class=\"playoffs a\"></td><td class=\"playoffs tp\"></td>"
                    u"<td class=\"playoffs pim\"></td><td class=\"playoffs pm\"></td>"_s}}));
    QVERIFY(row.playoffType.isNull());
    QCOMPARE(row.playoffGp, qint16(0));
    QCOMPARE(row.playoffGoals, qint16(0));
    QCOMPARE(row.regularGp, qint16(52));
}

void TestEpPlayerHistory::scanWithoutTheSection()
{
    const QString name = u"A"_s;
    const QDate date;
    // Without its heading the table is looked for from the top: 16 characters
    // go, and the text ends at the first "</section>".
    QList<EP_PlayerHistory> rows;
    QVERIFY(scanPlayerHistory(&name, &name, &date, rows,
                              u"<section class=\"x\"><tbody><tr"_s + careerRow()
                                  + u"</tr></tbody></section><tr"_s + careerRow() + u"</tr>"_s));
    QCOMPARE(rows.size(), 1);

    // Without any "</section>" the text empties.
    rows.clear();
    QVERIFY(!scanPlayerHistory(&name, &name, &date, rows,
                               u"Player Statistics<tbody><tr"_s + careerRow() + u"</tr>"_s));
    QVERIFY(rows.isEmpty());

    // The marker is found in any letter case; rows above "<tbody>" are not read.
    QVERIFY(scanPlayerHistory(&name, &name, &date, rows,
                              u"<tr"_s + careerRow() + u"</tr>PLAYER STATISTICS<tr"_s + careerRow()
                                  + u"</tr><tbody><tr"_s + careerRow() + u"</tr></SECTION>"_s));
    QCOMPARE(rows.size(), 1);
}

void TestEpPlayerHistory::scanResult()
{
    const QString name = u"A"_s;
    const QDate date;
    // Rows that were there before count for the result too.
    QList<EP_PlayerHistory> rows{EP_PlayerHistory()};
    QVERIFY(scanPlayerHistory(&name, &name, &date, rows, u"nothing"_s));
    QCOMPARE(rows.size(), 1);

    rows.clear();
    QVERIFY(!scanPlayerHistory(&name, &name, &date, rows,
                               u"Player Statistics<tbody><tr"_s
                                   + careerRow({{u"team"_s, teamCell(u"Did not play"_s)},
                                                {u"league"_s, u"<td>SHL</td>"_s},
                                                {u"playoffs"_s, u"<td class=\"playoffs\"></td>"_s}})
                                   + u"</tr></section>"_s));
    QVERIFY(rows.isEmpty());
}

void TestEpPlayerHistory::sample_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("sample");

    QTest::newRow("skater") << careerRow() << 1 << 0
                            << u"2018 Frolunda HC SHL 52 7 21 12 30 (0 0) : Playoffs 16 2 6 3 10 "
                               u"(0 0) : -1 0 0 0 0"_s;
    QTest::newRow("goalkeeper")
        << careerRow({{u"regular"_s, goalkeeperRegular}, {u"playoffStats"_s, goalkeeperPlayoffs}})
        << 1 << 0
        << u"2018 Frolunda HC SHL 30 0 0 0 0 (2.45 0.915) : Playoffs 4 0 0 0 0 (1.98 0.931) : "
           u"-1 0 0 0 0"_s;
    QTest::newRow("flags")
        << careerRow({{u"class"_s, u" class=\"team-INT\">"_s},
                      {u"team"_s,
                       teamCell(clubLink
                                + u"<i class=\"loan\"></i><a href=\"/c\">&ldquo;C&rdquo;</a>"_s)},
                      {u"league"_s, u"<td class=\"league\"><a href=\"/l\">WJC-20</a></td>"_s}})
        << 1 << 0
        << u"2018 Frolunda HC WJC-20 52 7 21 12 30 (0 0) : Playoffs 16 2 6 3 10 (0 0) : "
           u"20 1 1 0 1"_s;
    QTest::newRow("second of three") << careerRow() << 3 << 1
                                     << u"2018 Frolunda HC SHL 52 7 21 12 30 (0 0) : Playoffs 16 2 "
                                        u"6 3 10 (0 0) : -1 0 0 0 0"_s;
    QTest::newRow("index at the end")
        << careerRow() << 20 << 20 << u"History row #20 does not exist"_s;
    QTest::newRow("index beyond the end")
        << careerRow() << 2 << 7 << u"History row #7 does not exist"_s;
    QTest::newRow("negative index")
        << careerRow() << 2 << -1 << u"History row #-1 does not exist"_s;
    QTest::newRow("no rows") << careerRow() << 0 << 0 << u"n/a"_s;
    QTest::newRow("no rows, index 20") << careerRow() << 0 << 20 << u"n/a"_s;
}

void TestEpPlayerHistory::sample()
{
    QFETCH(QString, row);
    QFETCH(int, count);
    QFETCH(int, index);
    QFETCH(QString, sample);

    QList<EP_PlayerHistory> rows;
    for (int i = 0; i < count; ++i)
        rows.append(parsed(row));
    QCOMPARE(playerHistorySample(rows, index), sample);
}

void TestEpPlayerHistory::sampleWithAPlaceMarkerInTheClub()
{
    // The values go in one arg() call after the other: a place marker in a club's
    // name is filled by a later call, together with the format's own.
    EP_PlayerHistory row;
    row.year = 2018;
    row.club = u"Club %3"_s;
    row.competition = u"SHL"_s;
    row.regularGp = 5;
    QCOMPARE(playerHistorySample({row}, 0),
             u"2018 Club SHL SHL 5 0 0 0 0 (0 0) :  0 0 0 0 0 (0 0) : -1 0 0 0 0"_s);
}

void TestEpPlayerHistory::writerLines_data()
{
    QTest::addColumn<int>("regularGp");
    QTest::addColumn<int>("playoffGp");
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<QString>("lines");

    const QString regularUtf
        = u"Mattias\tEkstr\u00f6m\t29.02.1996\tY\tN\t2018\tFr\u00f6lunda HC, J20\tJ20; Nationell"
          u"\t40\t8\t15\t18\t4\t\t\t\t\t\t\t\t0\t1\tReg. Season\t20\t1\t2.45\t0.915\n"_s;
    const QString playoffUtf
        = u"Mattias\tEkstr\u00f6m\t29.02.1996\tY\tY\t2018\tFr\u00f6lunda HC, J20\tJ20; Nationell"
          u"\t6\t1\t2\t4\t2\t\t\t\t\t\t\t\t0\t1\tPlayoffs, J\u00e4\t20\t1\t1.98\t0.931\n"_s;
    QTest::newRow("both halves, utf") << 40 << 6 << true << u"\t"_s << regularUtf + playoffUtf;
    QTest::newRow("regular season only") << 40 << 0 << true << u"\t"_s << regularUtf;
    QTest::newRow("playoffs only") << 0 << 6 << true << u"\t"_s << playoffUtf;
    QTest::newRow("no games") << 0 << 0 << true << u"\t"_s << QString();
    QTest::newRow("negative games count as none") << -3 << 0 << true << u"\t"_s << QString();

    // Ascii: the names, the club and the competition lose their commas and
    // semicolons and a lone umlaut turns into the replacement character; the
    // playoff type is written as it stands.
    const QString regularAscii
        = u"Mattias,Ekstr\ufffdm,29.02.1996,Y,N,2018,Fr\ufffdlunda HC J20,J20 Nationell"
          u",40,8,15,18,4,,,,,,,,0,1,Reg. Season,20,1,2.45,0.915\n"_s;
    const QString playoffAscii
        = u"Mattias,Ekstr\ufffdm,29.02.1996,Y,Y,2018,Fr\ufffdlunda HC J20,J20 Nationell"
          u",6,1,2,4,2,,,,,,,,0,1,Playoffs, J\u00e4,20,1,1.98,0.931\n"_s;
    QTest::newRow("both halves, ascii with commas")
        << 40 << 6 << false << u","_s << regularAscii + playoffAscii;
    QTest::newRow("both halves, ascii with semicolons")
        << 40 << 6 << false << u";"_s
        << QString(regularAscii + playoffAscii)
               .replace(u',', u';')
               .replace(u"Playoffs; J\u00e4"_s, u"Playoffs, J\u00e4"_s);
}

void TestEpPlayerHistory::writerLines()
{
    QFETCH(int, regularGp);
    QFETCH(int, playoffGp);
    QFETCH(bool, utf);
    QFETCH(QString, separator);
    QFETCH(QString, lines);

    const QString first = u"Mattias"_s;
    const QString second = u"Ekstr\u00f6m"_s;
    const QDate date(1996, 2, 29);
    EP_PlayerHistory row = fullRow(&first, &second, &date);
    row.regularGp = qint16(regularGp);
    row.playoffGp = qint16(playoffGp);
    QCOMPARE(written(row, utf, separator.at(0)), lines);
}

void TestEpPlayerHistory::writerReadsTheOwnerWhenWriting()
{
    QString first = u"Jan"_s;
    QString second = u"Smith"_s;
    QDate date;
    EP_PlayerHistory row(&first, &second, &date);
    row.year = 2020;
    row.club = u"AIK"_s;
    row.competition = u"Allsvenskan"_s;
    row.regularGp = 3;
    row.isCaptain = true;

    // An unknown date has a mark of its own in this file.
    QCOMPARE(written(row, true, u'\t'),
             u"Jan\tSmith\t1.2.1900\tN\tN\t2020\tAIK\tAllsvenskan\t3\t0\t0\t0\t0"
             u"\t\t\t\t\t\t\t\t1\t0\tReg. Season\t-1\t0\t0\t0\n"_s);

    // Names and date are the owner's at the time of writing.
    first = u"Johan"_s;
    second = u"Smed"_s;
    date = QDate(2001, 5, 9);
    QCOMPARE(written(row, true, u'\t'),
             u"Johan\tSmed\t09.05.2001\tN\tN\t2020\tAIK\tAllsvenskan\t3\t0\t0\t0\t0"
             u"\t\t\t\t\t\t\t\t1\t0\tReg. Season\t-1\t0\t0\t0\n"_s);
}

void TestEpPlayerHistory::writerWithoutOwner()
{
    EP_PlayerHistory row;
    row.year = 2020;
    row.club = u"AIK"_s;
    row.playoffGp = 2;
    row.playoffType = u"Playoffs"_s;
    QCOMPARE(written(row, false, u','),
             u",,1.2.1900,N,Y,2020,AIK,,2,0,0,0,0,,,,,,,,0,0,Playoffs,-1,0,0,0\n"_s);
}

void TestEpPlayerHistory::writerKeepsThePointInAGermanLocale()
{
    // The stream keeps its own C locale for numbers, whatever the default.
    QLocale::setDefault(QLocale(QLocale::German));
    const QString first = u"A"_s;
    const QDate date(2000, 1, 1);
    EP_PlayerHistory row = fullRow(&first, &first, &date);
    row.playoffGp = 0;
    const QString line = written(row, false, u';');
    QVERIFY2(line.endsWith(u";2.45;0.915\n"_s), qPrintable(line));
    QCOMPARE(line.count(u';'), 26);
}

QM_TEST_MAIN(TestEpPlayerHistory)
#include "tst_epplayerhistory.moc"
