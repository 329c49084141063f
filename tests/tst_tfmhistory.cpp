#include "core/constants.h"
#include "core/sharedstate.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"
#include "tfm/tfmhistory.h"
#include "tfm/tfmplayer.h"

#include <QLocale>
#include <QPlainTextEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// One row of a national team table as the profile page shows it.
QString careerRow(const QString &title, const QString &apps, const QString &goals)
{
    return u"<div class=\"national-career__row\">\n<div class=\"grid__cell\">1</div>\n"
           "<div class=\"grid__cell\"><a title=\"%1\" href=\"/team/startseite/verein/1\">"
           "<img src=\"/flag.png\" alt=\"%1\" />%1</a></div>\n"
           "<div class=\"grid__cell\">May 12, 2019</div>\n"
           "<div class=\"grid__cell\"><a href=\"/p/nationalmannschaft/spieler/1\">%2</a></div>\n"
           "<div class=\"grid__cell\"><a href=\"/p/nationalmannschaft/spieler/1/tore\">%3</a>"
           "</div>\n</div>\n"_s.arg(title, apps, goals);
}

const QString careerHeader = u"<div class=\"national-career__row national-career__row--header\">"
                             "<div>#</div><div>Team</div><div>Debut</div><div>Matches</div>"
                             "<div>Goals</div></div>\n"_s;

// One history row from behind the opening of its first cell's tag.
QString historyRow(const QString &season, const QString &club, const QString &apps,
                   const QString &goals)
{
    return u">%1</td>\n<td class=\"zentriert no-border-rechts\"><img src=\"/flag.png\" "
           "title=\"Serie A\" alt=\"Serie A\" class=\"flaggenrahmen\" /></td>\n"
           "<td class=\"hauptlink no-border-links\"><a href=\"/club\"><img src=\"/badge.png\" "
           "alt=\"%2\" /></a></td>\n<td class=\"zentriert\">%3</td>\n"
           "<td class=\"zentriert\">%4</td>\n"_s.arg(season, club, apps, goals);
}

TFM_History historyOf(const QString &club, const QString &season, quint32 apps, quint32 goals,
                      bool onLoan)
{
    TFM_History row;
    row.club = club;
    row.season = season;
    row.apps = apps;
    row.goals = goals;
    row.onLoan = onLoan;
    return row;
}

// club|season|apps|goals|loan for a whole list, so that a failure shows the rows.
QStringList rowTexts(const QList<TFM_History> &rows)
{
    QStringList texts;
    for (const TFM_History &row : rows)
        texts.append(u"%1|%2|%3|%4|%5"_s.arg(row.club, row.season)
                         .arg(row.apps)
                         .arg(row.goals)
                         .arg(row.onLoan ? 1 : 0));
    return texts;
}

const QString historyPath = u"/marco-dellavalle/detaillierteleistungsdaten/spieler/123456"_s;

} // namespace

// The career of a player: the national team sums of the profile page, the season
// years, the rows of the history page, their export cells and the history fetch.
class TestTfmHistory : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void nationalTeamSums_data();
    void nationalTeamSums();
    void nationalTeamSumsAddToWhatIsThere();

    void seasonYear_data();
    void seasonYear();

    void parseRow_data();
    void parseRow();

    void scanHistoryPage_data();
    void scanHistoryPage();
    void scanHistoryPageWithoutHeaderKeepsNameAndDate();

    void writeRow_data();
    void writeRow();

    void testReport_data();
    void testReport();
    void testReportWithoutLogOutputDoesNothing();

    void downloadHistoryScansThePage();
    void downloadHistoryFailureLeavesEverything();
};

void TestTfmHistory::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestTfmHistory::init()
{
    setLogOutput(nullptr);
    setIncludeOlympicStats(false);
}

void TestTfmHistory::cleanupTestCase()
{
    setLogOutput(nullptr);
    setIncludeOlympicStats(false);
}

void TestTfmHistory::nationalTeamSums_data()
{
    QTest::addColumn<QString>("career");
    QTest::addColumn<bool>("olympic");
    QTest::addColumn<quint32>("apps");
    QTest::addColumn<quint32>("goals");

    const QString senior = careerRow(u"Italy"_s, u"34"_s, u"9"_s);
    const QString olympicTeam = careerRow(u"Italy Olympic Team"_s, u"5"_s, u"2"_s);

    for (const bool olympic : {false, true}) {
        const char *option = olympic ? "Olympic on" : "Olympic off";
        QTest::addRow("%s: empty text", option) << QString() << olympic << 0u << 0u;
        QTest::addRow("%s: header row only", option) << careerHeader << olympic << 0u << 0u;
        QTest::addRow("%s: senior team", option) << careerHeader + senior << olympic << 34u << 9u;
        QTest::addRow("%s: senior and under-21 count the senior", option)
            << senior + careerRow(u"Italy U21"_s, u"17"_s, u"6"_s) << olympic << 34u << 9u;
        QTest::addRow("%s: under-21 before the senior", option)
            << careerRow(u"Italy U21"_s, u"17"_s, u"6"_s) + senior << olympic << 34u << 9u;
        QTest::addRow("%s: under-19 has a 1", option)
            << careerRow(u"Italy U19"_s, u"8"_s, u"1"_s) << olympic << 0u << 0u;
        QTest::addRow("%s: under-23 has a 2", option)
            << careerRow(u"Italy U23"_s, u"8"_s, u"1"_s) << olympic << 0u << 0u;
        QTest::addRow("%s: other digits count", option)
            << careerRow(u"Italy U30"_s, u"4"_s, u"0"_s) << olympic << 4u << 0u;
        QTest::addRow("%s: B team", option)
            << careerRow(u"Italy B"_s, u"3"_s, u"1"_s) + senior << olympic << 34u << 9u;
        QTest::addRow("%s: b team in small letters", option)
            << careerRow(u"Italy b"_s, u"3"_s, u"1"_s) << olympic << 0u << 0u;
        QTest::addRow("%s: C team", option)
            << careerRow(u"Italy C"_s, u"3"_s, u"1"_s) << olympic << 0u << 0u;
        QTest::addRow("%s: D team", option)
            << careerRow(u"Italy d"_s, u"3"_s, u"1"_s) << olympic << 0u << 0u;
        QTest::addRow("%s: E team counts", option)
            << careerRow(u"Italy E"_s, u"3"_s, u"1"_s) << olympic << 3u << 1u;
        QTest::addRow("%s: a B inside the name counts", option)
            << careerRow(u"Italy Blues"_s, u"3"_s, u"1"_s) << olympic << 3u << 1u;
        QTest::addRow("%s: two senior teams add up", option)
            << careerRow(u"Yugoslavia"_s, u"10"_s, u"3"_s) + careerRow(u"Serbia"_s, u"20"_s, u"4"_s)
            << olympic << 30u << 7u;
        QTest::addRow("%s: a dash counts 0", option)
            << careerRow(u"Italy"_s, u"-"_s, u"-"_s) << olympic << 0u << 0u;
        QTest::addRow("%s: Olympic team alone", option)
            << olympicTeam << olympic << (olympic ? 5u : 0u) << (olympic ? 2u : 0u);
        QTest::addRow("%s: Olympic word in capitals", option)
            << careerRow(u"ITALY OLYMPIA"_s, u"6"_s, u"3"_s) << olympic << (olympic ? 6u : 0u)
            << (olympic ? 3u : 0u);
        QTest::addRow("%s: senior, under-21, B and Olympic", option)
            << careerHeader + senior + careerRow(u"Italy U21"_s, u"17"_s, u"6"_s)
                + careerRow(u"Italy B"_s, u"3"_s, u"1"_s) + olympicTeam
            << olympic << (olympic ? 39u : 34u) << (olympic ? 11u : 9u);
        QTest::addRow("%s: Olympic under-23 has a 2", option)
            << careerRow(u"Italy Olympic U23"_s, u"6"_s, u"3"_s) << olympic << 0u << 0u;
    }

    // A row whose matches are no link takes the next links of the text: its own
    // goals and the matches of the row behind it, which then ends the loop.
    QTest::newRow("row without a link shifts the numbers")
        << u"<div class=\"national-career__row\"><div>1</div><div><a title=\"Italy\" "
           "href=\"/i\">Italy</a></div><div>2019</div><div>7</div><div><a href=\"/g\">2</a>"
           "</div></div>"_s
            + careerRow(u"Spain"_s, u"10"_s, u"3"_s)
        << false << 2u << 10u;
}

void TestTfmHistory::nationalTeamSums()
{
    QFETCH(QString, career);
    QFETCH(bool, olympic);
    QFETCH(quint32, apps);
    QFETCH(quint32, goals);

    setIncludeOlympicStats(olympic);
    TFM_Player player;
    player.addNationalTeamStats(career);
    QCOMPARE(player.internationalApps, apps);
    QCOMPARE(player.internationalGoals, goals);
}

void TestTfmHistory::nationalTeamSumsAddToWhatIsThere()
{
    TFM_Player player;
    player.internationalApps = 5;
    player.internationalGoals = 1;
    QString career = careerRow(u"Italy"_s, u"34"_s, u"9"_s);
    player.addNationalTeamStats(career);
    QCOMPARE(player.internationalApps, 39u);
    QCOMPARE(player.internationalGoals, 10u);
}

void TestTfmHistory::seasonYear_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("year");
    QTest::addColumn<QString>("left");

    QTest::newRow("19/20") << u"19/20"_s << u"2020"_s << u"20"_s;
    QTest::newRow("99/00") << u"99/00"_s << u"2000"_s << u"00"_s;
    QTest::newRow("98/99") << u"98/99"_s << u"1999"_s << u"99"_s;
    QTest::newRow("00/01") << u"00/01"_s << u"2001"_s << u"01"_s;
    QTest::newRow("50/51") << u"50/51"_s << u"1951"_s << u"51"_s;
    QTest::newRow("49/50 is decided by its second half") << u"49/50"_s << u"1950"_s << u"50"_s;
    QTest::newRow("48/49") << u"48/49"_s << u"2049"_s << u"49"_s;
    QTest::newRow("plain year stays") << u"2018"_s << u"2018"_s << u"2018"_s;
    QTest::newRow("four characters stay") << u"19/2"_s << u"19/2"_s << u"19/2"_s;
    QTest::newRow("empty") << QString() << QString() << QString();
    QTest::newRow("letters in place of digits") << u"ab/cd"_s << u"20cd"_s << u"cd"_s;
    QTest::newRow("one digit and a letter") << u"19/5x"_s << u"205x"_s << u"5x"_s;
    QTest::newRow("long season text") << u"1999/2000"_s << u"209/"_s << u"9/"_s;
}

void TestTfmHistory::seasonYear()
{
    QFETCH(QString, text);
    QFETCH(QString, year);
    QFETCH(QString, left);

    QCOMPARE(::seasonYear(text), year);
    // The text is taken out of the argument.
    QCOMPARE(text, left);
}

void TestTfmHistory::parseRow_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("season");
    QTest::addColumn<QString>("club");
    QTest::addColumn<quint32>("apps");
    QTest::addColumn<quint32>("goals");

    const QString appsLink = u"<a href=\"/apps\">12</a>"_s;
    QTest::newRow("19/20") << historyRow(u"19/20"_s, u"AC Pisa"_s, appsLink, u"3"_s) << u"2020"_s
                           << u"AC Pisa"_s << 12u << 3u;
    QTest::newRow("98/99") << historyRow(u"98/99"_s, u"AC Pisa"_s, appsLink, u"3"_s) << u"1999"_s
                           << u"AC Pisa"_s << 12u << 3u;
    QTest::newRow("00/01") << historyRow(u"00/01"_s, u"AC Pisa"_s, appsLink, u"3"_s) << u"2001"_s
                           << u"AC Pisa"_s << 12u << 3u;
    QTest::newRow("50/51") << historyRow(u"50/51"_s, u"AC Pisa"_s, appsLink, u"3"_s) << u"1951"_s
                           << u"AC Pisa"_s << 12u << 3u;
    QTest::newRow("49/50") << historyRow(u"49/50"_s, u"AC Pisa"_s, appsLink, u"3"_s) << u"1950"_s
                           << u"AC Pisa"_s << 12u << 3u;
    QTest::newRow("calendar year") << historyRow(u"2018"_s, u"Toronto FC"_s, appsLink, u"3"_s)
                                   << u"2018"_s << u"Toronto FC"_s << 12u << 3u;
    QTest::newRow("blanks around season and club")
        << historyRow(u" 19/20 "_s, u" AC Pisa "_s, appsLink, u" 3 "_s) << u"2020"_s << u"AC Pisa"_s
        << 12u << 3u;
    QTest::newRow("empty season cell") << historyRow(QString(), u"AC Pisa"_s, appsLink, u"3"_s)
                                       << QString() << u"AC Pisa"_s << 12u << 3u;
    QTest::newRow("goals cell holds a link")
        << historyRow(u"19/20"_s, u"AC Pisa"_s, appsLink, u"<a href=\"/goals\">4</a>"_s)
        << u"2020"_s << u"AC Pisa"_s << 12u << 0u;
    QTest::newRow("dashes") << historyRow(u"19/20"_s, u"AC Pisa"_s, u"<a href=\"/a\">-</a>"_s,
                                          u"-"_s)
                            << u"2020"_s << u"AC Pisa"_s << 0u << 0u;
    QTest::newRow("matches without a link") << historyRow(u"19/20"_s, u"AC Pisa"_s, u"12"_s, u"3"_s)
                                            << u"2020"_s << u"AC Pisa"_s << 0u << 3u;
    // The first text between tags is taken for the season, whatever it is.
    QTest::newRow("not a row") << u"<p>nothing</p>"_s << u"20hi"_s << QString() << 0u << 0u;
}

void TestTfmHistory::parseRow()
{
    QFETCH(QString, row);
    QFETCH(QString, season);
    QFETCH(QString, club);
    QFETCH(quint32, apps);
    QFETCH(quint32, goals);

    TFM_History history;
    history.onLoan = true;
    history.parsePage(row);
    QCOMPARE(history.season, season);
    QCOMPARE(history.club, club);
    QCOMPARE(history.apps, apps);
    QCOMPARE(history.goals, goals);
    QCOMPARE(history.onLoan, false);
}

void TestTfmHistory::scanHistoryPage_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("dateOfBirth");
    QTest::addColumn<QStringList>("rows");

    QTest::newRow("national leagues table")
        << u"history_leagues.html"_s << u"Marco Dellavalle"_s << u"17.04.1996"_s
        << QStringList{u"AC Pisa|1999|12|3|0"_s, u"AC Fiorentina|2001|25|0|0"_s,
                       u"AC Fiorentina|1950|30|11|0"_s, u"Toronto FC|2018|0|0|0"_s};
    QTest::newRow("no national leagues heading takes the first table")
        << u"history_no_leagues.html"_s << u"Ronald\u00e3o"_s << u"28.02.2001"_s
        << QStringList{u"Santos FC|2022|19|7|0"_s, u"S\u00e3o Paulo FC|2023|27|12|0"_s};
}

void TestTfmHistory::scanHistoryPage()
{
    QFETCH(QString, fixture);
    QFETCH(QString, name);
    QFETCH(QString, dateOfBirth);
    QFETCH(QStringList, rows);

    QString page = fixtureText(u"tfm/"_s + fixture);
    QVERIFY(!page.isEmpty());
    QList<TFM_History> found;
    QString foundName;
    QString foundDate;
    TFM_History::scanHistoryPage(found, page, foundName, foundDate);
    QCOMPARE(foundName, name);
    QCOMPARE(foundDate, dateOfBirth);
    QCOMPARE(rowTexts(found), rows);
}

void TestTfmHistory::scanHistoryPageWithoutHeaderKeepsNameAndDate()
{
    QString page = u"<table><tbody><tr class=\"odd\"><td class=\"zentriert\">19/20</td>"
                   "<td><img alt=\"Serie A\" /></td><td><img alt=\"AC Pisa\" /></td>"
                   "<td class=\"zentriert\"><a href=\"/a\">5</a></td>"
                   "<td class=\"zentriert\">1</td></tr></tbody></table>"_s;
    QList<TFM_History> rows{historyOf(u"Earlier"_s, u"2010"_s, 1, 1, false)};
    QString name = u" <strong>Ann</strong> Lee "_s;
    QString dateOfBirth = u"01.01.2000"_s;
    TFM_History::scanHistoryPage(rows, page, name, dateOfBirth);
    QCOMPARE(name, u"Ann Lee"_s);
    QCOMPARE(dateOfBirth, u"01.01.2000"_s);
    QCOMPARE(rowTexts(rows), (QStringList{u"Earlier|2010|1|1|0"_s, u"AC Pisa|2020|5|1|0"_s}));
}

void TestTfmHistory::writeRow_data()
{
    QTest::addColumn<TFM_History>("row");
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QString>("line");

    const TFM_History plain = historyOf(u"AC Pisa"_s, u"1999"_s, 12, 3, false);
    const TFM_History named = historyOf(u"S\u00e3o Paulo FC, SP;"_s, u"2023"_s, 27, 12, true);
    QTest::newRow("utf") << plain << true << u"AC Pisa\t1999\t12\t3\t0\t\n"_s;
    QTest::newRow("ascii") << plain << false << u"AC Pisa,1999,12,3,0,\n"_s;
    QTest::newRow("utf keeps the name")
        << named << true << u"S\u00e3o Paulo FC, SP;\t2023\t27\t12\t1\t\n"_s;
    QTest::newRow("ascii converts the name")
        << named << false << u"S\ufffdo Paulo FC SP,2023,27,12,1,\n"_s;
    QTest::newRow("empty row") << TFM_History() << true << u"\t\t0\t0\t0\t\n"_s;
}

void TestTfmHistory::writeRow()
{
    QFETCH(TFM_History, row);
    QFETCH(bool, utf);
    QFETCH(QString, line);

    QString written;
    QTextStream stream(&written);
    if (utf)
        row.writeUtf(stream, u'\t');
    else
        row.writeAscii(stream, u',');
    stream.flush();
    QCOMPARE(written, line);
}

void TestTfmHistory::testReport_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("national leagues table") << u"history_leagues.html"_s
                                            << QStringList{
                                                   u"--- TESTING HISTORY WEBPAGE ---"_s,
                                                   u"ASCII name: Marco Dellavalle"_s,
                                                   u"Name: Marco Dellavalle"_s,
                                                   u"Date of birth: 17.04.1996"_s,
                                                   u"Club: AC Pisa"_s,
                                                   u"qint32. appearances: 12"_s,
                                                   u"qint32. goals: 3"_s,
                                                   u"Year: 1999"_s,
                                                   u"Club: AC Fiorentina"_s,
                                                   u"qint32. appearances: 25"_s,
                                                   u"qint32. goals: 0"_s,
                                                   u"Year: 2001"_s,
                                                   u"Club: AC Fiorentina"_s,
                                                   u"qint32. appearances: 30"_s,
                                                   u"qint32. goals: 11"_s,
                                                   u"Year: 1950"_s,
                                                   u"Club: Toronto FC"_s,
                                                   u"qint32. appearances: 0"_s,
                                                   u"qint32. goals: 0"_s,
                                                   u"Year: 2018"_s,
                                                   u"--- COMPLETE ---"_s,
                                               };
    QTest::newRow("name with an accent") << u"history_no_leagues.html"_s
                                         << QStringList{
                                                u"--- TESTING HISTORY WEBPAGE ---"_s,
                                                u"ASCII name: Ronald\ufffdo"_s,
                                                u"Name: Ronald\u00e3o"_s,
                                                u"Date of birth: 28.02.2001"_s,
                                                u"Club: Santos FC"_s,
                                                u"qint32. appearances: 19"_s,
                                                u"qint32. goals: 7"_s,
                                                u"Year: 2022"_s,
                                                u"Club: S\u00e3o Paulo FC"_s,
                                                u"qint32. appearances: 27"_s,
                                                u"qint32. goals: 12"_s,
                                                u"Year: 2023"_s,
                                                u"--- COMPLETE ---"_s,
                                            };
}

void TestTfmHistory::testReport()
{
    QFETCH(QString, fixture);
    QFETCH(QStringList, lines);

    QPlainTextEdit log;
    setLogOutput(&log);
    QString text = fixtureText(u"tfm/"_s + fixture);
    TFM_History history;
    static_cast<DataWrapper &>(history).testReport(text);
    QCOMPARE(logLines(&log), lines);
    // The report works on a list of its own and leaves the record alone.
    QVERIFY(history.club.isEmpty());
    QVERIFY(history.season.isEmpty());
}

void TestTfmHistory::testReportWithoutLogOutputDoesNothing()
{
    QString text = fixtureText(u"tfm/history_leagues.html"_s);
    TFM_History history;
    history.testReport(text);
    QVERIFY(history.club.isEmpty());
    QCOMPARE(history.apps, 0u);
}

void TestTfmHistory::downloadHistoryScansThePage()
{
    FixtureWeb web;
    QVERIFY(web.start());
    FastWaits fast;
    web.routeFile(TFM_ROOT_URL + historyPath, u"tfm/history_leagues.html"_s);

    QPlainTextEdit log;
    setLogOutput(&log);
    QList<TFM_History> rows;
    QString name;
    QString dateOfBirth;
    QVERIFY(TFM_History::downloadHistory(rows, historyPath, name, dateOfBirth));
    QCOMPARE(name, u"Marco Dellavalle"_s);
    QCOMPARE(dateOfBirth, u"17.04.1996"_s);
    QCOMPARE(rowTexts(rows),
             (QStringList{u"AC Pisa|1999|12|3|0"_s, u"AC Fiorentina|2001|25|0|0"_s,
                          u"AC Fiorentina|1950|30|11|0"_s, u"Toronto FC|2018|0|0|0"_s}));
    QCOMPARE(web.requestCount(TFM_ROOT_URL + historyPath), 1);
    QVERIFY(log.toPlainText().isEmpty());
}

void TestTfmHistory::downloadHistoryFailureLeavesEverything()
{
    FixtureWeb web;
    QVERIFY(web.start());
    FastWaits fast;
    web.routeBody(TFM_ROOT_URL + historyPath, "<html>gone</html>"_ba, 404);

    QPlainTextEdit log;
    setLogOutput(&log);
    QList<TFM_History> rows{historyOf(u"Earlier"_s, u"2010"_s, 1, 1, false)};
    QString name = u"Kept name"_s;
    QString dateOfBirth = u"Kept date"_s;
    QVERIFY(!TFM_History::downloadHistory(rows, historyPath, name, dateOfBirth));
    QCOMPARE(log.toPlainText(), u"ERROR: Unable to access "_s + historyPath);
    QCOMPARE(rowTexts(rows), QStringList{u"Earlier|2010|1|1|0"_s});
    QCOMPARE(name, u"Kept name"_s);
    QCOMPARE(dateOfBirth, u"Kept date"_s);
    // One attempt only.
    QCOMPARE(web.requestCount(TFM_ROOT_URL + historyPath), 1);
}

QM_TEST_MAIN(TestTfmHistory)
#include "tst_tfmhistory.moc"
