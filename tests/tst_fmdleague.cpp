#include "core/sharedstate.h"
#include "fmd/fmdleague.h"
#include "tests/support/logcapture.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"

#include <QLocale>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString player(const QString &path)
{
    return u"https://fmdataba.com/19/p/"_s + path;
}

} // namespace

// The player list page scanner, the two page number rules of the list walk and
// the offline report.
class TestFmdLeague : public QObject
{
    Q_OBJECT

private:
    LogCapture log;

private slots:
    void initTestCase();
    void init();

    void freshRecord();
    void parsePage_data();
    void parsePage();
    void parsePageLeavesTheTextBehindPrevious();
    void parsePageOnAnotherLayout();
    void parsePageKeepsTheRecordAsItIs();
    void listGrowsAcrossPages();
    void pageOfAddress_data();
    void pageOfAddress();
    void lastPageOfHeading_data();
    void lastPageOfHeading();
    void testReport();
    void testReportCountsWhatEarlierPagesLeft();
    void testReportWithoutLog();
    void teamUrlsStayEmpty();
};

void TestFmdLeague::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestFmdLeague::init()
{
    // The list lives as long as the process; each test starts from an empty one.
    FMD_League::playerUrls().clear();
    log->clear();
}

void TestFmdLeague::freshRecord()
{
    FMD_League league;
    QVERIFY(league.leagueName.isNull());
    QVERIFY(league.nation.isNull());
}

void TestFmdLeague::parsePage_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QStringList>("playerUrls");

    QTest::newRow("first page") << u"fmd/list_first.html"_s
                                << QStringList{
                                       player(u"1001/jan-smith/"_s),
                                       player(u"1002/tom-keeper/"_s),
                                       player(u"1003/ederzito/"_s),
                                   };
    QTest::newRow("middle page") << u"fmd/list_middle.html"_s
                                 << QStringList{
                                        player(u"1004/carlos-gomez/"_s),
                                        player(u"1001/jan-smith/"_s),
                                    };
    QTest::newRow("last page") << u"fmd/list_last.html"_s
                               << QStringList{
                                      player(u"1005/mary-jane-watson/"_s),
                                      player(u"1006/lukas-brandt/"_s),
                                  };
    // Markers in capitals match; a duplicate inside a page stays; addresses
    // differing in case are two; a row without a title leaves an empty address,
    // and one without a link what the cut leaves of it. The link in front of the
    // table's heading row is not a row.
    QTest::newRow("odd rows") << u"fmd/list_oddrows.html"_s
                              << QStringList{
                                     player(u"2001/ola-berg/"_s),
                                     player(u"2001/Ola-Berg/"_s),
                                     player(u"2001/ola-berg/"_s),
                                     QString(),
                                     u"a=\"x"_s,
                                 };
    QTest::newRow("another layout") << u"fmd/list_otherlayout.html"_s << QStringList();
}

void TestFmdLeague::parsePage()
{
    QFETCH(QString, fixture);
    QFETCH(QStringList, playerUrls);

    QString text = fixtureText(fixture);
    QVERIFY(!text.isEmpty());
    FMD_League league;
    league.parsePage(text);
    QCOMPARE(FMD_League::playerUrls(), playerUrls);
    QCOMPARE(FMD_League::playerUrls().size(), playerUrls.size());
}

void TestFmdLeague::parsePageLeavesTheTextBehindPrevious()
{
    QString text = fixtureText(u"fmd/list_first.html"_s);
    FMD_League league;
    league.parsePage(text);
    // The cut at the end of the bar keeps the "<" of its closing tag; the first
    // page's "Previous" is no link.
    QCOMPARE(text,
             u"</span></li>\n"
             "<li class=\"page-item active\"><span class=\"page-link\">1</span></li>\n"
             "<li class=\"page-item\"><a class=\"page-link\" "
             "href=\"https://fmdataba.com/19/l/7/testland-premier-league/best-players/1\" "
             "title=\"Next page\">Next</a></li>\n"
             "</ul>\n<"_s);

    text = fixtureText(u"fmd/list_last.html"_s);
    league.parsePage(text);
    QVERIFY2(!text.contains(u"title="_s), qPrintable(text));
    QVERIFY(text.endsWith(u"</ul>\n<"_s));
}

void TestFmdLeague::parsePageOnAnotherLayout()
{
    // Every step finds nothing and leaves the page as it was.
    const QString page = fixtureText(u"fmd/list_otherlayout.html"_s);
    QString text = page;
    FMD_League league;
    league.parsePage(text);
    QCOMPARE(text, page);
    QVERIFY(FMD_League::playerUrls().isEmpty());
}

void TestFmdLeague::parsePageKeepsTheRecordAsItIs()
{
    QString text = fixtureText(u"fmd/list_first.html"_s);
    FMD_League league;
    league.parsePage(text);
    // The name comes from the league pass alone.
    QVERIFY(league.leagueName.isNull());
    QVERIFY(league.nation.isNull());
}

void TestFmdLeague::listGrowsAcrossPages()
{
    // No duplicate check while scanning: that is the pass's, once a list has ended.
    for (const QString &fixture : {u"fmd/list_first.html"_s, u"fmd/list_middle.html"_s}) {
        QString text = fixtureText(fixture);
        FMD_League().parsePage(text);
    }
    QCOMPARE(FMD_League::playerUrls(),
             (QStringList{
                 player(u"1001/jan-smith/"_s),
                 player(u"1002/tom-keeper/"_s),
                 player(u"1003/ederzito/"_s),
                 player(u"1004/carlos-gomez/"_s),
                 player(u"1001/jan-smith/"_s),
             }));
}

void TestFmdLeague::pageOfAddress_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<qint32>("page");

    const QString list = u"https://fmdataba.com/19/l/7/testland-premier-league/best-players"_s;
    QTest::newRow("first page, no number") << list << 0;
    QTest::newRow("page 3") << QString(list + u"/3"_s) << 3;
    QTest::newRow("trailing slash") << QString(list + u"/"_s) << 0;
    QTest::newRow("slash and digits only") << u"/12"_s << 12;
    QTest::newRow("no slash at all, a number") << u"42"_s << 42;
    QTest::newRow("no slash at all, a word") << u"page"_s << 0;
    QTest::newRow("number beyond 32 bits") << QString(list + u"/99999999999"_s) << 0;
    QTest::newRow("number with a letter") << QString(list + u"/3a"_s) << 0;
    QTest::newRow("negative number") << QString(list + u"/-2"_s) << -2;
    // A backslash is no slash.
    QTest::newRow("backslash") << u"list\\7"_s << 0;
}

void TestFmdLeague::pageOfAddress()
{
    QFETCH(QString, url);
    QFETCH(qint32, page);
    QCOMPARE(FMD_League::pageOfAddress(url), page);
}

void TestFmdLeague::lastPageOfHeading_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<qint32>("last");
    QTest::addColumn<QString>("rest");

    QTest::newRow("page clause") << u"Players Profiles, page 3</h1></div>tail"_s << 3
                                 << u"</div>tail"_s;
    QTest::newRow("no page clause") << u"Players Profiles</h1></div>tail"_s << 1 << u"</div>tail"_s;
    QTest::newRow("page 0 counts as 1") << u"Profiles, page 0</h1>"_s << 1 << QString();
    QTest::newRow("page clause in capitals") << u"PROFILES, PAGE 12</H1>"_s << 12 << QString();
    QTest::newRow("not a number") << u"Profiles, page three</h1>"_s << 1 << QString();
    QTest::newRow("beyond 32 bits") << u"Profiles, page 99999999999</h1>"_s << 1 << QString();
    QTest::newRow("no heading") << u"<p>nothing here</p>"_s << 1 << u"<p>nothing here</p>"_s;
    QTest::newRow("other words before the bracket")
        << u"Profiles of the week</h1>x"_s << 1 << u"x"_s;
}

void TestFmdLeague::lastPageOfHeading()
{
    QFETCH(QString, page);
    QFETCH(qint32, last);
    QFETCH(QString, rest);
    QCOMPARE(FMD_League::lastPageOfHeading(page), last);
    QCOMPARE(page, rest);
}

void TestFmdLeague::testReport()
{
    QString text = fixtureText(u"fmd/list_middle.html"_s);
    FMD_League league;
    league.testReport(text);
    QCOMPARE(log.lines(),
             (QStringList{
                 u"--- TESTING LEAGUE WEBPAGE ---"_s,
                 u"League: "_s,
                 u"Players: 2"_s,
                 u"Player 1: https://fmdataba.com/19/p/1004/carlos-gomez/"_s,
                 u"Player 2: https://fmdataba.com/19/p/1001/jan-smith/"_s,
             }));
}

void TestFmdLeague::testReportCountsWhatEarlierPagesLeft()
{
    QString first = fixtureText(u"fmd/list_first.html"_s);
    FMD_League().testReport(first);
    log->clear();
    QString middle = fixtureText(u"fmd/list_middle.html"_s);
    FMD_League league;
    league.leagueName = u"Primera Divisi\u00f3n, Sur"_s;
    league.testReport(middle);
    // Neither cleared nor made unique; the name goes through the Ascii rule.
    QCOMPARE(log.lines(),
             (QStringList{
                 u"--- TESTING LEAGUE WEBPAGE ---"_s,
                 u"League: Primera Divisi\uFFFDn Sur"_s,
                 u"Players: 5"_s,
                 u"Player 1: https://fmdataba.com/19/p/1001/jan-smith/"_s,
                 u"Player 2: https://fmdataba.com/19/p/1002/tom-keeper/"_s,
                 u"Player 3: https://fmdataba.com/19/p/1003/ederzito/"_s,
                 u"Player 4: https://fmdataba.com/19/p/1004/carlos-gomez/"_s,
                 u"Player 5: https://fmdataba.com/19/p/1001/jan-smith/"_s,
             }));
}

void TestFmdLeague::testReportWithoutLog()
{
    setLogOutput(nullptr);
    QString text = fixtureText(u"fmd/list_first.html"_s);
    FMD_League().testReport(text);
    setLogOutput(log.box());
    QCOMPARE(FMD_League::playerUrls().size(), 3);
}

void TestFmdLeague::teamUrlsStayEmpty()
{
    QString text = fixtureText(u"fmd/list_first.html"_s);
    FMD_League().testReport(text);
    QVERIFY(FMD_League::teamUrls().isEmpty());
    QCOMPARE(&FMD_League::teamUrls(), &FMD_League::teamUrls());
    QVERIFY(&FMD_League::teamUrls() != &FMD_League::playerUrls());
}

QM_TEST_MAIN(TestFmdLeague)

#include "tst_fmdleague.moc"
