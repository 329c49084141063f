#include "ep/epteamhistory.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"

#include <QLocale>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

struct Figures
{
    qint16 gp, wins, ties, losses, otWins, otLosses, goalsFor, goalsAgainst, points, standing;
};

// A row text as the history scan hands it over: from behind the season cell's
// tag to the row's end.
QString rowText(const QString &season, const QString &league, const QStringList &cells,
                const QString &postSeason)
{
    static const QStringList classes = {u"gp"_s,  u"w"_s,  u"t"_s,  u"l"_s,  u"otw"_s,
                                        u"otl"_s, u"gf"_s, u"ga"_s, u"tp"_s, u"rank "_s};
    QString row = u"<a href=\"https://www.eliteprospects.com/team/1/a/x\">"_s + season
        + u"</a></td>\n<td class=\"league\"><a href=\"https://www.eliteprospects.com/league/b\">"_s
        + league + u"</a></td>\n"_s;
    for (qsizetype i = 0; i < cells.size() && i < classes.size(); ++i)
        row += u"<td class=\""_s + classes.at(i) + u"\">"_s + cells.at(i) + u"</td>"_s;
    return row + u"\n<td class=\"postseason\">"_s + postSeason + u"</td>\n"_s;
}

QStringList plainCells()
{
    return {u"52"_s, u"30"_s, u"2"_s, u"15"_s, u"3"_s, u"2"_s, u"170"_s, u"130"_s, u"97"_s, u"2"_s};
}

Figures figuresOf(const EP_TeamHistory &row)
{
    return {row.gp,       row.wins,     row.ties,         row.losses, row.otWins,
            row.otLosses, row.goalsFor, row.goalsAgainst, row.points, row.standing};
}

QString figuresText(const Figures &f)
{
    return u"%1 %2 %3 %4 %5 %6 %7 %8 %9 %10"_s.arg(f.gp)
        .arg(f.wins)
        .arg(f.ties)
        .arg(f.losses)
        .arg(f.otWins)
        .arg(f.otLosses)
        .arg(f.goalsFor)
        .arg(f.goalsAgainst)
        .arg(f.points)
        .arg(f.standing);
}

// What the team scanner leaves of a fixture page for the history scan: all
// behind the roster's foot.
QString behindRoster(const QString &fixture)
{
    QString text = fixtureText(u"ep/"_s + fixture);
    const qsizetype at = text.indexOf(u"<tfoot>"_s);
    return at < 0 ? text : text.mid(at + 7);
}

EP_TeamHistory historyRow(qint16 season, const QString &league, const Figures &f,
                          const QString &postSeason)
{
    EP_TeamHistory row;
    row.team = u"Oslo Hawks"_s;
    row.league = league;
    row.season = season;
    row.gp = f.gp;
    row.wins = f.wins;
    row.ties = f.ties;
    row.losses = f.losses;
    row.otWins = f.otWins;
    row.otLosses = f.otLosses;
    row.goalsFor = f.goalsFor;
    row.goalsAgainst = f.goalsAgainst;
    row.points = f.points;
    row.standing = f.standing;
    row.postSeason = postSeason;
    return row;
}

} // namespace

// The season rows of a team page: the table cut, each row's cells, the season
// rule with its carried-over season, and the sample line of the report.
class TestEpTeamHistory : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void freshRow();
    void parsePage_data();
    void parsePage();
    void seasonRule_data();
    void seasonRule();
    void seasonCarriesOverToTheNextTeam();
    void scanFixture_data();
    void scanFixture();
    void scanLeavesTheTailOfTheSection();
    void scanWithoutTheSection_data();
    void scanWithoutTheSection();
    void endMarkerInAnyLetterCase();
    void rowsAreAppended();
    void sample_data();
    void sample();
};

void TestEpTeamHistory::initTestCase()
{
    // Before any row has been read in this process.
    QCOMPARE(EP_TeamHistory::lastSeason, qint16(0));
    QLocale::setDefault(QLocale::c());
}

void TestEpTeamHistory::init()
{
    EP_TeamHistory::lastSeason = 0;
}

void TestEpTeamHistory::freshRow()
{
    const EP_TeamHistory row;
    QVERIFY(row.team.isNull());
    QVERIFY(row.actualName.isNull());
    QVERIFY(row.league.isNull());
    QVERIFY(row.postSeason.isNull());
    QCOMPARE(figuresText(figuresOf(row)), u"0 0 0 0 0 0 0 0 0 0"_s);
    QCOMPARE(row.season, qint16(0));
}

void TestEpTeamHistory::parsePage_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("league");
    QTest::addColumn<QString>("figures");
    QTest::addColumn<QString>("postSeason");

    QTest::newRow("plain row") << rowText(u"2019-20"_s, u"THL"_s, plainCells(), u"Won Final"_s)
                               << u"THL"_s << u"52 30 2 15 3 2 170 130 97 2"_s << u"Won Final"_s;
    // The ties come before the losses on the page, in the wins-ties-losses order.
    QTest::newRow("cells in their page order") << rowText(
        u"2019-20"_s, u"L"_s,
        {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s, u"9"_s, u"10"_s}, u"x"_s)
                                               << u"L"_s << u"1 2 3 4 5 6 7 8 9 10"_s << u"x"_s;
    // The cells go through the money reading: a thousands comma becomes a point
    // and fails, and a value beyond 16 bits wraps.
    QTest::newRow("cells read as amounts")
        << rowText(u"2019-20"_s, u"L"_s,
                   {u"-"_s, u"-5"_s, u"&nbsp;"_s, u"4-"_s, u"- 3"_s, u"2"_s, u"1,201"_s, u"1.5"_s,
                    u"12 K"_s, u"40000"_s},
                   u"-"_s)
        << u"L"_s << u"0 5 0 4 3 2 0 0 12000 -25536"_s << u"-"_s;
    QTest::newRow("missing cells give 0")
        << rowText(u"2019-20"_s, u"L"_s, {u"52"_s, u"30"_s}, u"x"_s) << u"L"_s
        << u"52 30 0 0 0 0 0 0 0 0"_s << u"x"_s;
    QTest::newRow("outcome of several lines is dropped")
        << rowText(u"2017-18"_s, u"L"_s, plainCells(), u"Lost in\nQuarter-final"_s) << u"L"_s
        << u"52 30 2 15 3 2 170 130 97 2"_s << u""_s;
    QTest::newRow("outcome with a comma stays")
        << rowText(u"2017-18"_s, u"L"_s, plainCells(), u" Lost, Semi-final "_s) << u"L"_s
        << u"52 30 2 15 3 2 170 130 97 2"_s << u"Lost, Semi-final"_s;
    QTest::newRow("empty outcome stays null")
        << QString(rowText(u"2017-18"_s, u"L"_s, plainCells(), QString())
                   + u"<td class=\"x\">More</td>"_s)
        << u"L"_s << u"52 30 2 15 3 2 170 130 97 2"_s << QString();
    QTest::newRow("league with a Utf name")
        << rowText(u"2019-20"_s, u"Eliteserien Ñ"_s, plainCells(), u"x"_s) << u"Eliteserien Ñ"_s
        << u"52 30 2 15 3 2 170 130 97 2"_s << u"x"_s;
    // "<td class=\"rank\">" without the site's trailing blank is not the standing:
    // the outcome is then read from the league cell's end tag on.
    QTest::newRow("standing cell without the blank")
        << QString(u"<a>2019-20</a></td><td class=\"league\"><a>L</a></td>"
                   u"<td class=\"rank\">5</td><td class=\"post\">P</td>"_s)
        << u"L"_s << u"0 0 0 0 0 0 0 0 0 0"_s << u"<td class=\"rank\">5"_s;
}

void TestEpTeamHistory::parsePage()
{
    QFETCH(QString, row);
    QFETCH(QString, league);
    QFETCH(QString, figures);
    QFETCH(QString, postSeason);

    EP_TeamHistory history;
    history.parsePage(row);
    QCOMPARE(history.league, league);
    QCOMPARE(figuresText(figuresOf(history)), figures);
    QCOMPARE(history.postSeason, postSeason);
    QCOMPARE(history.postSeason.isNull(), postSeason.isNull());
    QVERIFY(history.actualName.isNull());
    QVERIFY(history.team.isNull());
}

void TestEpTeamHistory::seasonRule_data()
{
    QTest::addColumn<QString>("seasonCell");
    QTest::addColumn<qint16>("lastBefore");
    QTest::addColumn<qint16>("season");

    QTest::newRow("named by its end year") << u"2018-19"_s << qint16(0) << qint16(2019);
    QTest::newRow("a year replaces the last season")
        << u"2018-19"_s << qint16(2025) << qint16(2019);
    QTest::newRow("no year takes the last season") << u"-"_s << qint16(2019) << qint16(2019);
    QTest::newRow("no year first in the process") << u"-"_s << qint16(0) << qint16(0);
    QTest::newRow("no dash in the cell") << u"2018"_s << qint16(1990) << qint16(1990);
    QTest::newRow("blanks around the year") << u" 2018 -19"_s << qint16(0) << qint16(2019);
    QTest::newRow("1000 is a season") << u"999-00"_s << qint16(5) << qint16(1000);
    QTest::newRow("999 is not") << u"998-99"_s << qint16(1980) << qint16(1980);
    QTest::newRow("text that is no number") << u"Total-"_s << qint16(2001) << qint16(2001);
    QTest::newRow("16 bits wrap below the limit") << u"40000-01"_s << qint16(2001) << qint16(2001);
    QTest::newRow("16 bits wrap to a year") << u"67535-"_s << qint16(0) << qint16(2000);
    QTest::newRow("the largest 32-bit year") << u"2147483647-"_s << qint16(7) << qint16(7);
}

void TestEpTeamHistory::seasonRule()
{
    QFETCH(QString, seasonCell);
    QFETCH(qint16, lastBefore);
    QFETCH(qint16, season);

    EP_TeamHistory::lastSeason = lastBefore;
    EP_TeamHistory row;
    QString text = rowText(seasonCell, u"L"_s, plainCells(), u"x"_s);
    row.parsePage(text);
    QCOMPARE(row.season, season);
    // A row with a year leaves it for the rows below; one without leaves it alone.
    QCOMPARE(EP_TeamHistory::lastSeason, season);
    QCOMPARE(row.league, u"L"_s);
}

void TestEpTeamHistory::seasonCarriesOverToTheNextTeam()
{
    QList<EP_TeamHistory> first;
    QString full = behindRoster(u"team_full.html"_s);
    scanTeamHistory(first, full, u"Oslo Hawks"_s);
    QCOMPARE(EP_TeamHistory::lastSeason, qint16(2018));

    // The next team's first row has no year: it takes the last one of the team before.
    QList<EP_TeamHistory> second;
    QString noFacts = behindRoster(u"team_nofacts.html"_s);
    scanTeamHistory(second, noFacts, u"Narvik Nordics"_s);
    QCOMPARE(second.size(), 1);
    QCOMPARE(second.first().season, qint16(2018));
    QCOMPARE(second.first().league, u"NDL"_s);
}

void TestEpTeamHistory::scanFixture_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QString>("team");
    QTest::addColumn<QList<EP_TeamHistory>>("rows");

    // The current season's cell has a second class: that row is not read. The
    // row without a year takes the season of the row above it.
    QTest::newRow("several seasons, one without a year")
        << u"team_full.html"_s << u"Oslo Hawks"_s
        << QList<EP_TeamHistory>{
               historyRow(2020, u"THL"_s, {52, 30, 2, 15, 3, 2, 170, 130, 97, 2}, u"Won Final"_s),
               historyRow(2020, u"Norway Cup"_s, {4, 3, 0, 1, 0, 1, 14, 9, 9, 1},
                          u"Champions, Cup"_s),
               historyRow(2018, u"Testland Hockey League"_s, {48, 20, 0, 22, 4, 2, 0, 140, 66, 7},
                          u""_s),
           };
    QTest::newRow("table ended by the capitalised marker")
        << u"team_plaintown.html"_s << u"Bergen Bears"_s
        << QList<EP_TeamHistory>{
               historyRow(2020, u"THL"_s, {52, 28, 1, 19, 2, 2, 160, 150, 90, 3},
                          u"Lost in Semi-final"_s),
               historyRow(2019, u"First Division"_s, {40, 31, 0, 6, 2, 1, 180, 90, 98, 1},
                          u"Promoted"_s),
           };
    QTest::newRow("no history section")
        << u"team_nohistory.html"_s << u"Drammen Dragons"_s << QList<EP_TeamHistory>();
}

void TestEpTeamHistory::scanFixture()
{
    QFETCH(QString, fixture);
    QFETCH(QString, team);
    QFETCH(QList<EP_TeamHistory>, rows);

    QList<EP_TeamHistory> scanned;
    QString text = behindRoster(fixture);
    QCOMPARE(scanTeamHistory(scanned, text, team), !rows.isEmpty());
    QCOMPARE(scanned.size(), rows.size());
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const EP_TeamHistory &got = scanned.at(i);
        const EP_TeamHistory &want = rows.at(i);
        QCOMPARE(got.team, team);
        QCOMPARE(got.league, want.league);
        QCOMPARE(got.season, want.season);
        QCOMPARE(figuresText(figuresOf(got)), figuresText(figuresOf(want)));
        QCOMPARE(got.postSeason, want.postSeason);
        QVERIFY(got.actualName.isNull());
    }
}

void TestEpTeamHistory::scanLeavesTheTailOfTheSection()
{
    QList<EP_TeamHistory> rows;
    QString text = u"<h2>Team History and Standings</h2><table>"
                   u"<tr><td class=\"season\"><a>2019-20</a></td></tr>"
                   u"<tr><td class=\"season\"><a>2018-19</a></td></tr>"
                   u"</table><p>tail</p>Where are they now<p>alumni</p>"_s;
    QVERIFY(scanTeamHistory(rows, text, u"T"_s));
    QCOMPARE(rows.size(), 2);
    QCOMPARE(text, u"</table><p>tail</p>"_s);
}

void TestEpTeamHistory::scanWithoutTheSection_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("left");

    // 25 characters go from the front, one short of the missing marker.
    QTest::newRow("end marker present")
        << u"0123456789012345678901234<ul>kept</ul>Where are they now, later"_s
        << u"<ul>kept</ul>"_s;
    QTest::newRow("end marker missing too") << u"<p>short page</p>"_s << QString();
}

void TestEpTeamHistory::scanWithoutTheSection()
{
    QFETCH(QString, text);
    QFETCH(QString, left);

    QList<EP_TeamHistory> rows;
    QVERIFY(!scanTeamHistory(rows, text, u"T"_s));
    QVERIFY(rows.isEmpty());
    QCOMPARE(text, left.isNull() ? u""_s : left);
    QVERIFY(text.isEmpty() == left.isEmpty());
}

void TestEpTeamHistory::endMarkerInAnyLetterCase()
{
    QList<EP_TeamHistory> rows;
    QString text = u"team history AND standings<tr><td class=\"SEASON\"><a>2019-20</a></td></tr>"
                   u"wHeRe ArE tHeY nOw<tr><td class=\"season\"><a>2001-02</a></td></tr>"_s;
    QVERIFY(scanTeamHistory(rows, text, u"T"_s));
    QCOMPARE(rows.size(), 1);
    QCOMPARE(rows.first().season, qint16(2020));
}

void TestEpTeamHistory::rowsAreAppended()
{
    QList<EP_TeamHistory> rows{historyRow(1999, u"Old"_s, {}, u"x"_s)};
    QString text = u"Team History and Standings<td class=\"season\"><a>2019-20</a></tr>"
                   u"Where are they now"_s;
    QVERIFY(scanTeamHistory(rows, text, u"New"_s));
    QCOMPARE(rows.size(), 2);
    QCOMPARE(rows.at(0).league, u"Old"_s);
    QCOMPARE(rows.at(1).team, u"New"_s);
}

void TestEpTeamHistory::sample_data()
{
    QTest::addColumn<QList<EP_TeamHistory>>("rows");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("line");

    const EP_TeamHistory first
        = historyRow(2020, u"THL"_s, {52, 30, 2, 15, 3, 2, 170, 130, 97, 2}, u"Won Final"_s);
    const EP_TeamHistory second = historyRow(2018, u"Testland Hockey League"_s,
                                             {48, 20, 0, 22, 4, 1, 0, 140, 66, 7}, u""_s);
    EP_TeamHistory named = first;
    named.actualName = u"Hawks"_s;
    // One arg() after the other: a place marker inside a name is filled by a later value.
    EP_TeamHistory marked = first;
    marked.league = u"League %13"_s;

    QTest::newRow("no rows") << QList<EP_TeamHistory>() << 0 << u"n/a"_s;
    QTest::newRow("no rows, any index") << QList<EP_TeamHistory>() << 7 << u"n/a"_s;
    // The empty name leaves two blanks between the season and the league.
    QTest::newRow("first row") << QList<EP_TeamHistory>{first, second} << 0
                               << u"2020  THL 52 30-2-15 3:2 170:130 97 2 Won Final"_s;
    QTest::newRow("second row, empty outcome")
        << QList<EP_TeamHistory>{first, second} << 1
        << u"2018  Testland Hockey League 48 20-0-22 4:1 0:140 66 7 "_s;
    QTest::newRow("index at the end")
        << QList<EP_TeamHistory>{first, second} << 2 << u"History row #2 does not exist"_s;
    QTest::newRow("index beyond the end")
        << QList<EP_TeamHistory>{first} << 9 << u"History row #9 does not exist"_s;
    QTest::newRow("index below 0")
        << QList<EP_TeamHistory>{first} << -1 << u"History row #-1 does not exist"_s;
    QTest::newRow("a set name shows") << QList<EP_TeamHistory>{named} << 0
                                      << u"2020 Hawks THL 52 30-2-15 3:2 170:130 97 2 Won Final"_s;
    QTest::newRow("place marker in a name")
        << QList<EP_TeamHistory>{marked} << 0
        << u"2020  League 2 52 30-2-15 3:2 170:130 97 2 Won Final"_s;
}

void TestEpTeamHistory::sample()
{
    QFETCH(QList<EP_TeamHistory>, rows);
    QFETCH(int, index);
    QFETCH(QString, line);
    QCOMPARE(teamHistorySample(rows, index), line);
}

QM_TEST_MAIN(TestEpTeamHistory)
#include "tst_epteamhistory.moc"
