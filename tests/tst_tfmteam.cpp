#include "core/sharedstate.h"
#include "tests/support/logcapture.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"
#include "tfm/tfmteam.h"

#include <QLocale>
#include <QTest>

using namespace Qt::StringLiterals;

// The squad page scanner: the two layouts, the three places of a club's league,
// the cut and the player cells, and the offline report.
class TestTfmTeam : public QObject
{
    Q_OBJECT

private:
    LogCapture log;

private slots:
    void initTestCase();
    void init();

    void fixturesExist_data();
    void fixturesExist();
    void parsePage_data();
    void parsePage();
    void parsePageOnAPageWithoutMarkers();
    void layouts_data();
    void layouts();
    void playerUrlsOnlyGrow();
    void testReport_data();
    void testReport();
    void testReportCountsWhatEarlierPagesLeft();
    void testReportWithoutLog();
};

void TestTfmTeam::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestTfmTeam::init()
{
    // The list lives as long as the process; each test starts from an empty one.
    TFM_Team::playerUrls() = PlayerPageList();
    log->clear();
}

void TestTfmTeam::fixturesExist_data()
{
    QTest::addColumn<QString>("fixture");
    for (const QString &name :
         {u"team_extended.html"_s, u"team_club_zusatz.html"_s, u"team_club_wettbewerb.html"_s,
          u"team_club_header.html"_s, u"team_club_nohref.html"_s,
          u"team_club_detailedbefore.html"_s, u"team_club_multi.html"_s,
          u"team_club_unquoted.html"_s, u"team_untitled.html"_s})
        QTest::newRow(qPrintable(name)) << name;
}

void TestTfmTeam::fixturesExist()
{
    QFETCH(QString, fixture);
    QVERIFY2(!fixtureText(u"tfm/"_s + fixture).isEmpty(), qPrintable(fixture));
}

void TestTfmTeam::parsePage_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QString>("teamName");
    QTest::addColumn<QString>("leagueName");
    QTest::addColumn<QStringList>("playerUrls");

    // The league box of the page is not looked at; the quoted cell is passed
    // over, and the table ends at its own "</tbody>".
    QTest::newRow("extended squad") << u"team_extended.html"_s << u"Brazil"_s << u"Brazil"_s
                                    << QStringList{
                                           u"/alisson/profil/spieler/105470"_s,
                                           u"/marquinhos/profil/spieler/181767"_s,
                                           u"/vinicius-junior/profil/spieler/371998"_s,
                                       };
    // The cut at "Detailed squad" keeps a table that stands between the squad
    // and that link.
    QTest::newRow("club, league image box")
        << u"team_club_zusatz.html"_s << u"Arsenal FC"_s << u"Premier League"_s
        << QStringList{
               u"/bernd-leno/profil/spieler/72476"_s,
               u"/bukayo-saka/profil/spieler/433177"_s,
               u"/pierre-emerick-aubameyang/profil/spieler/58864"_s,
               u"/pablo-mari/profil/spieler/271094"_s,
           };
    // The competition link is looked for before the big header box, although
    // the box stands first on the page.
    QTest::newRow("club, competition link")
        << u"team_club_wettbewerb.html"_s << u"Real Madrid"_s << u"LaLiga"_s
        << QStringList{
               u"/thibaut-courtois/profil/spieler/108390"_s,
               u"/jude-bellingham/profil/spieler/581678"_s,
           };
    // No "Detailed squad" on the page: its whole tail is scanned.
    QTest::newRow("club, big header box")
        << u"team_club_header.html"_s << u"FC Bayern München"_s << u"Bundesliga"_s
        << QStringList{
               u"/manuel-neuer/profil/spieler/17259"_s,
               u"/thomas-muller/profil/spieler/58358"_s,
               u"/bouna-sarr/profil/spieler/190685"_s,
           };
    QTest::newRow("cell without an address gives an empty entry")
        << u"team_club_nohref.html"_s << u"Chelsea FC"_s << u"Premier League"_s
        << QStringList{
               u"/kepa/profil/spieler/192279"_s,
               QString(),
               u"/christian-pulisic/profil/spieler/315779"_s,
           };
    QTest::newRow("detailed squad only before the table")
        << u"team_club_detailedbefore.html"_s << u"Everton FC"_s << u"Premier League"_s
        << QStringList();
    QTest::newRow("several cells in a row")
        << u"team_club_multi.html"_s << u"Arsenal FC"_s << u"Premier League"_s
        << QStringList{
               u"/bukayo-saka/profil/spieler/433177"_s,
               u"/bukayo-saka/marktwertverlauf/spieler/433177"_s,
               u"/martin-odegaard/profil/spieler/316264"_s,
               u"/martin-odegaard/marktwertverlauf/spieler/316264"_s,
           };
    QTest::newRow("club page with unquoted cells")
        << u"team_club_unquoted.html"_s << u"Aston Villa"_s << u"Premier League"_s << QStringList();
    QTest::newRow("title of neither layout")
        << u"team_untitled.html"_s << QString() << QString()
        << QStringList{u"/emiliano-martinez/profil/spieler/111873"_s};
}

void TestTfmTeam::parsePage()
{
    QFETCH(QString, fixture);
    QFETCH(QString, teamName);
    QFETCH(QString, leagueName);
    QFETCH(QStringList, playerUrls);

    TFM_Team team;
    QVERIFY(team.teamName.isNull());
    QVERIFY(team.leagueName.isNull());
    QString text = fixtureText(u"tfm/"_s + fixture);
    QVERIFY(!text.isEmpty());
    team.parsePage(text);

    QCOMPARE(team.teamName, teamName);
    QCOMPARE(team.leagueName, leagueName);
    QCOMPARE(TFM_Team::playerUrls().urls, playerUrls);
    QCOMPARE(TFM_Team::playerUrls().count(), playerUrls.size());
    QVERIFY(TFM_Team::playerUrls().entries.isEmpty());
    QVERIFY(log->toPlainText().isEmpty());
}

void TestTfmTeam::parsePageOnAPageWithoutMarkers()
{
    TFM_Team team;
    QString text = u"<html><body><p>Nothing here</p></body></html>"_s;
    team.parsePage(text);
    QVERIFY(team.teamName.isEmpty());
    QVERIFY(team.leagueName.isEmpty());
    QCOMPARE(TFM_Team::playerUrls().count(), 0);
}

void TestTfmTeam::layouts_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("teamName");
    QTest::addColumn<QString>("leagueName");
    QTest::addColumn<QStringList>("playerUrls");

    const QString quotedRow
        = u"<tr><td class=\"hauptlink\"><a href=\"/q/profil/spieler/1\">Q</a></td></tr>"_s;
    const QString bareRow
        = u"<tr><td class=hauptlink><a href=\"/b/profil/spieler/2\">B</a></td></tr>"_s;
    const auto table = [](const QString &rows) -> QString {
        return u"<table><thead><tr><th>P</th></tr></thead><tbody>"_s + rows + u"</tbody></table>"_s;
    };

    QTest::newRow("extended page takes only the bare cell")
        << QString(u"<title>Chile - Extended squad</title><h2>Extended Squad 2024</h2>"_s
                   + table(quotedRow + bareRow))
        << u"Chile"_s << u"Chile"_s << QStringList{u"/b/profil/spieler/2"_s};
    QTest::newRow("club page takes only the quoted cell") << QString(
        u"<title>Club A - Club profile</title><h2 class=\"content-box-headline\">S</h2>"_s
        + table(quotedRow + bareRow)) << u"Club A"_s << QString()
                                                          << QStringList{u"/q/profil/spieler/1"_s};
    QTest::newRow("extended page ignores every league box")
        << QString(u"<title>Chile - Extended squad</title>"
                   u"<div class=\"dataZusatzImage\"><img alt=\"Copa\" class=\"x\"></div>"
                   u"<div class=\"wettbewerbLink\"><a title=\"Copa\" class=\"x\"></a></div>"
                   u"<h2>Extended Squad 2024</h2>"_s
                   + table(bareRow))
        << u"Chile"_s << u"Chile"_s << QStringList{u"/b/profil/spieler/2"_s};
    QTest::newRow("extended page is cut at the end of its table")
        << QString(u"<title>Chile - Extended squad</title><h2>Extended Squad 2024</h2>"_s
                   + table(bareRow) + table(bareRow))
        << u"Chile"_s << u"Chile"_s << QStringList{u"/b/profil/spieler/2"_s};
    QTest::newRow("club page is not cut at the end of its table")
        << QString(
               u"<title>Club A - Club profile</title><h2 class=\"content-box-headline\">S</h2>"_s
               + table(quotedRow) + table(quotedRow))
        << u"Club A"_s << QString()
        << QStringList{u"/q/profil/spieler/1"_s, u"/q/profil/spieler/1"_s};
    QTest::newRow("first league layout wins over the second")
        << QString(u"<title>Club A - Club profile</title>"
                   u"<div class=\"wettbewerbLink\"><a title=\"Second\" class=\"x\"></a></div>"
                   u"<div class=\"dataZusatzImage\"><img alt=\"First\" class=\"x\"></div>"
                   u"<h2 class=\"content-box-headline\">S</h2>"_s
                   + table(quotedRow))
        << u"Club A"_s << u"First"_s << QStringList{u"/q/profil/spieler/1"_s};
    QTest::newRow("league box found but its value missing")
        << QString(u"<title>Club A - Club profile</title>"
                   u"<div class=\"dataZusatzImage\"><img title=\"First\"></div>"
                   u"<div class=\"wettbewerbLink\"><a title=\"Second\" class=\"x\"></a></div>"
                   u"<h2 class=\"content-box-headline\">S</h2>"_s
                   + table(quotedRow))
        << u"Club A"_s << QString() << QStringList{u"/q/profil/spieler/1"_s};
    QTest::newRow("extended title wins over club title")
        << QString(u"<title>Chile - Club - Extended squad</title><h2>Extended Squad 2024</h2>"_s
                   + table(bareRow))
        << u"Chile - Club"_s << u"Chile - Club"_s << QStringList{u"/b/profil/spieler/2"_s};
    QTest::newRow("markers in capitals")
        << u"<TITLE>Club A - CLUB PROFILE</TITLE><H2 CLASS=\"CONTENT-BOX-HEADLINE\">S</H2>"
           u"<TABLE><THEAD></THEAD><TBODY><TR><TD CLASS=\"HAUPTLINK\"><A "
           u"HREF=\"/c/profil/spieler/3\">C</A>"
           u"</TD></TR></TBODY></TABLE>"_s
        << u"Club A"_s << QString() << QStringList{u"/c/profil/spieler/3"_s};
    QTest::newRow("cell with a link of another shape")
        << QString(
               u"<title>Club A - Club profile</title><h2 class=\"content-box-headline\">S</h2>"_s
               + table(u"<tr><td class=\"hauptlink\"><a href=\"/x/profil/spieler/4\" "
                       u"class=\"y\">X</a></td></tr>"_s))
        << u"Club A"_s << QString() << QStringList{u"/x/profil/spieler/4\" class=\"y"_s};
}

void TestTfmTeam::layouts()
{
    QFETCH(QString, page);
    QFETCH(QString, teamName);
    QFETCH(QString, leagueName);
    QFETCH(QStringList, playerUrls);

    TFM_Team team;
    team.parsePage(page);
    QCOMPARE(team.teamName, teamName);
    QCOMPARE(team.leagueName, leagueName);
    QCOMPARE(TFM_Team::playerUrls().urls, playerUrls);
}

void TestTfmTeam::playerUrlsOnlyGrow()
{
    QCOMPARE(&TFM_Team::playerUrls(), &TFM_Team::playerUrls());
    TFM_Team first;
    QString multi = fixtureText(u"tfm/team_club_multi.html"_s);
    first.parsePage(multi);
    TFM_Team second;
    QString again = fixtureText(u"tfm/team_club_multi.html"_s);
    second.parsePage(again);
    // No duplicate check: the same page twice gives every address twice.
    QCOMPARE(TFM_Team::playerUrls().count(), 8);
    QCOMPARE(TFM_Team::playerUrls().urls.mid(4), TFM_Team::playerUrls().urls.mid(0, 4));
}

void TestTfmTeam::testReport_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("extended squad") << u"team_extended.html"_s
                                    << QStringList{
                                           u"--- TESTING TEAM ROSTER WEBPAGE ---"_s,
                                           u"ASCII name: Brazil"_s,
                                           u"UTF name: Brazil"_s,
                                           u"League: Brazil"_s,
                                           u"Player entries: 3"_s,
                                       };
    // The Ascii line is read back as UTF-8 from its Latin-1 bytes, so the lone
    // accented letter becomes a replacement character.
    QTest::newRow("club with an accented name") << u"team_club_header.html"_s
                                                << QStringList{
                                                       u"--- TESTING TEAM ROSTER WEBPAGE ---"_s,
                                                       u"ASCII name: FC Bayern M\uFFFDnchen"_s,
                                                       u"UTF name: FC Bayern München"_s,
                                                       u"League: Bundesliga"_s,
                                                       u"Player entries: 3"_s,
                                                   };
    QTest::newRow("untitled page") << u"team_untitled.html"_s
                                   << QStringList{
                                          u"--- TESTING TEAM ROSTER WEBPAGE ---"_s,
                                          u"ASCII name: "_s,
                                          u"UTF name: "_s,
                                          u"League: "_s,
                                          u"Player entries: 1"_s,
                                      };
}

void TestTfmTeam::testReport()
{
    QFETCH(QString, fixture);
    QFETCH(QStringList, lines);

    TFM_Team team;
    QString text = fixtureText(u"tfm/"_s + fixture);
    team.testReport(text);
    QCOMPARE(log.lines(), lines);
}

void TestTfmTeam::testReportCountsWhatEarlierPagesLeft()
{
    TFM_Team::playerUrls().append(u"/earlier/profil/spieler/1"_s);
    TFM_Team team;
    QString text = u"<title>Oslo, Norway; FK - Club profile</title>"_s;
    team.testReport(text);
    QCOMPARE(log.lines(),
             (QStringList{
                 u"--- TESTING TEAM ROSTER WEBPAGE ---"_s,
                 u"ASCII name: Oslo Norway FK"_s,
                 u"UTF name: Oslo, Norway; FK"_s,
                 u"League: "_s,
                 u"Player entries: 1"_s,
             }));
}

void TestTfmTeam::testReportWithoutLog()
{
    setLogOutput(nullptr);
    TFM_Team team;
    QString text = fixtureText(u"tfm/team_extended.html"_s);
    team.testReport(text);
    setLogOutput(log.box());
    QCOMPARE(team.teamName, u"Brazil"_s);
    QCOMPARE(TFM_Team::playerUrls().count(), 3);
    QVERIFY(log->toPlainText().isEmpty());
}

QM_TEST_MAIN(TestTfmTeam)
#include "tst_tfmteam.moc"
