#include "app/mainwindow.h"
#include "core/website.h"
#include "fmd/fmdleague.h"
#include "status/statusdisplay.h"
#include "tests/support/dialogs.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/fmdsite.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"
#include "tests/support/windowharness.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

void selectFmdataba(MainWindow &window)
{
    window.websiteBox->setCurrentIndex(window.websiteBox->findText(u"FMDataba"_s));
    QCOMPARE(window.websiteBox->currentIndex(), int(FMDataba));
}

} // namespace

// The FMDataba harvest as the user runs it: the address pasted into the real
// window, Download, Save As, and the file compared byte for byte; the two test
// buttons on saved pages; a league test pressed while the player pass waits.
class TestFmdHarvest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void harvest_data();
    void harvest();
    void testLeaguePage();
    void testPlayerProfile();
    void testLeaguePageDuringThePlayerPass();

private:
    WindowHarness harness;
    FixtureWeb &web = harness.web;
};

void TestFmdHarvest::initTestCase()
{
    QVERIFY(harness.start());
}

void TestFmdHarvest::init()
{
    harness.startTest();
    FmdSite::route(web);
}

void TestFmdHarvest::cleanup()
{
    harness.endTest();
    QCOMPARE(pendingDialogAnswers(), 0);
}

void TestFmdHarvest::cleanupTestCase()
{
    harness.stop();
}

void TestFmdHarvest::harvest_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QString>("expected");

    // A decimal comma makes the Ascii separator a semicolon; Utf files always
    // take the tab.
    QTest::newRow("ascii, decimal point") << QLocale::c() << false << u"ascii_point"_s;
    QTest::newRow("ascii, decimal comma") << QLocale(QLocale::German) << false << u"ascii_comma"_s;
    QTest::newRow("utf") << QLocale(QLocale::German) << true << u"utf"_s;
}

void TestFmdHarvest::harvest()
{
    QFETCH(QLocale, locale);
    QFETCH(bool, utf);
    QFETCH(QString, expected);
    QLocale::setDefault(locale);

    QTemporaryDir outDir;
    QVERIFY(outDir.isValid());
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    window.urlInput->setPlainText(FmdSite::listUrl(u"best-players"_s));
    selectFmdataba(window);
    window.downloadPlayerDetailsBox->setChecked(true);
    (utf ? window.utfButton : window.asciiButton)->setChecked(true);

    QTest::mouseClick(window.downloadButton, Qt::LeftButton);
    QTRY_VERIFY(window.logBox->toPlainText().contains(u"----- PROCESS COMPLETE -----"_s));
    const QStringList lines = logLines(window.logBox);
    QVERIFY(lines.contains(u"Downloading 15 league page(s)"_s));
    QVERIFY(lines.contains(u"Downloading 7 unique player page(s)"_s));
    QVERIFY(lines.contains(u"     6.\tLukas Brandt"_s));
    // Five list pages, thirteen lists that are gone, seven players.
    QCOMPARE(web.requests().size(), 5 + 13 + 7);
    QCOMPARE(window.statusPanel->pagesEdit->text(), u"25 of 25"_s);
    QVERIFY(window.saveButton->isEnabled());

    const QString chosen = outDir.filePath(u"players.csv"_s);
    answerNextFileDialog(chosen);
    QTest::mouseClick(window.saveButton, Qt::LeftButton);
    QTRY_VERIFY(QFile::exists(chosen));

    // One file only: the lists are not exported.
    QCOMPARE(QDir(outDir.path()).entryList(QDir::Files), QStringList{u"players.csv"_s});
    const QByteArray written = fileBytes(chosen);
    const QByteArray wanted = fixtureBytes(u"fmd/expected/harvest_"_s + expected + u".csv"_s);
    QVERIFY(!wanted.isEmpty());
    QCOMPARE(written, wanted);
}

void TestFmdHarvest::testLeaguePage()
{
    MainWindow window;
    selectFmdataba(window);
    answerNextFileDialog(fixturePath(u"fmd/list_first.html"_s));
    QTest::mouseClick(window.testLeagueButton, Qt::LeftButton);

    QCOMPARE(lastDialogTitle(), u"Open Offline League Webpage"_s);
    QCOMPARE(logLines(window.logBox),
             (QStringList{
                 u"--- TESTING LEAGUE WEBPAGE ---"_s,
                 u"League: "_s,
                 u"Players: 3"_s,
                 u"Player 1: https://fmdataba.com/19/p/1001/jan-smith/"_s,
                 u"Player 2: https://fmdataba.com/19/p/1002/tom-keeper/"_s,
                 u"Player 3: https://fmdataba.com/19/p/1003/ederzito/"_s,
             }));
    QVERIFY(web.requests().isEmpty());
}

void TestFmdHarvest::testPlayerProfile()
{
    MainWindow window;
    selectFmdataba(window);
    answerNextFileDialog(fixturePath(u"fmd/profile_field.html"_s));
    QTest::mouseClick(window.testPlayerButton, Qt::LeftButton);

    QCOMPARE(lastDialogTitle(), u"Open Offline Player Profile Webpage"_s);
    QStringList expected = {
        u"--- TESTING PLAYER PROFILE WEBPAGE ---"_s,
        u"ASCII name: Jan Smith Jan Smith : Jan Smith"_s,
        u"Forename: Jan"_s,
        u"Surname: Smith"_s,
        u"Common name: Jan Smith"_s,
        u"Complete name: Jan Smith"_s,
        u"Date of birth: Sun Mar 5 1995"_s,
        u"Nationality 1: Testland"_s,
        u"Height (m): 1.85"_s,
        u"Current club: FC Alpha"_s,
        u"Contract end: Thu Jun 30 2022"_s,
        u"Transfer value: 1500000"_s,
        u"qint32. appearances: 23"_s,
        u"qint32. goals: 4"_s,
        u"Positions: AM (RLC), ST (C)"_s,
        u"Foot: Left"_s,
        u"Pos  (GK): 1"_s,
        u"Pos  (WB): 1"_s,
        u"Pos  (SW): 1"_s,
        u"Pos (DEF): 1"_s,
        u"Pos  (DM): 1"_s,
        u"Pos (MID): 1"_s,
        u"Pos  (AM): 20"_s,
        u"Pos  (FR): 20"_s,
        u"Side  (L): 20"_s,
        u"Side  (C): 20"_s,
        u"Side  (R): 20"_s,
        u"Attacking: 81"_s,
        u"Defending: 42"_s,
        u"Goalkeeping: 0"_s,
        u"Mental: 70"_s,
        u"Overall: 78"_s,
        u"Physical: 73"_s,
        u"Technical: 76"_s,
    };
    // The attributes in key order, as the page gives them.
    const QList<QPair<const char *, int>> attributes = {
        {"Acceleration", 7},
        {"Aerial Reach", 3},
        {"Aggression", 5},
        {"Agility", 10},
        {"Anticipation", 8},
        {"Balance", 13},
        {"Bravery", 11},
        {"Command Of Area", 6},
        {"Communication", 9},
        {"Composure", 14},
        {"Concentration", 17},
        {"Corners", 4},
        {"Crossing", 7},
        {"Decisions", 20},
        {"Determination", 5},
        {"Dribbling", 10},
        {"Eccentricity", 12},
        {"Finishing", 13},
        {"First Touch", 14},
        {"Flair", 8},
        {"Free Kick", 19},
        {"Handling", 15},
        {"Heading", 4},
        {"Jumping Reach", 16},
        {"Kicking", 18},
        {"Leadership", 11},
        {"Long Shots", 7},
        {"Long Throws", 10},
        {"Marking", 13},
        {"Natural Fitness", 19},
        {"Off The Ball", 14},
        {"One On Ones", 3},
        {"Pace", 4},
        {"Passing", 16},
        {"Penalty Taking", 19},
        {"Positioning", 17},
        {"Reflexes", 6},
        {"Rushing Out", 9},
        {"Stamina", 7},
        {"Strength", 10},
        {"Tackling", 4},
        {"Teamwork", 20},
        {"Technique", 9},
        {"Tendency To Punch", 12},
        {"Throwing", 15},
        {"Vision", 5},
        {"Work Rate", 8},
    };
    for (const auto &[name, value] : attributes)
        expected.append(QString::fromLatin1(name) + u": "_s + QString::number(value));
    expected += QStringList{u"CA: 0"_s, u"PA: 0"_s, u"--- COMPLETE ---"_s};
    QCOMPARE(logLines(window.logBox), expected);
    QVERIFY(web.requests().isEmpty());
}

void TestFmdHarvest::testLeaguePageDuringThePlayerPass()
{
    // Tom Keeper's page stays unanswered until the click is done: the click comes
    // as soon as the request is in, and falls into the wait for it whatever the
    // machine's load. Only the first request waits, so that the test can't hang
    // on a second one.
    const QString keeper = FmdSite::playerUrl(1002, u"tom-keeper"_s);
    FixtureWeb::Answer answer;
    answer.body = fixtureBytes(u"fmd/profile_goalkeeper.html"_s);
    FixtureWeb::Answer held = answer;
    held.hold = true;
    web.routeSequence(keeper, {held, answer});

    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    selectFmdataba(window);
    window.urlInput->setPlainText(FmdSite::listUrl(u"best-goalkeepers"_s));
    window.downloadPlayerDetailsBox->setChecked(true);
    window.asciiButton->setChecked(true);

    bool clicked = false;
    bool enabledDuringTheWait = false;
    web.whenRequested(keeper, &window, [&] {
        clicked = true;
        enabledDuringTheWait = window.testLeagueButton->isEnabled();
        answerNextFileDialog(fixturePath(u"fmd/list_middle.html"_s));
        window.testLeagueButton->click();
        web.releaseHeld();
    });
    QTest::mouseClick(window.downloadButton, Qt::LeftButton);

    QVERIFY(clicked);
    QVERIFY(enabledDuringTheWait);
    const QStringList lines = logLines(window.logBox);
    QCOMPARE(lines.mid(lines.size() - 3),
             (QStringList{u"----- PROCESS COMPLETE -----"_s, QString(), QString()}));
    // The report counts the pass's two players and the page's two; the pass walks
    // on through what the test added.
    QVERIFY(lines.contains(u"--- TESTING LEAGUE WEBPAGE ---"_s));
    QVERIFY(lines.contains(u"Players: 4"_s));
    QVERIFY(lines.contains(u"     1.\tTom Keeper"_s));
    QVERIFY(lines.contains(u"     2.\tCarlos G\u00f3mez"_s));
    QVERIFY(lines.contains(u"     3.\tJan Smith"_s));
    QCOMPARE(FMD_League::playerUrls().size(), 4);
    QCOMPARE(web.requestCount(FmdSite::playerUrl(1004, u"carlos-gomez"_s)), 1);
    QCOMPARE(web.requestCount(FmdSite::playerUrl(1001, u"jan-smith"_s)), 1);

    // The three players fetched after the test cleared the records are the file's.
    QTemporaryDir outDir;
    QVERIFY(outDir.isValid());
    const QString chosen = outDir.filePath(u"players.csv"_s);
    answerNextFileDialog(chosen);
    QTest::mouseClick(window.saveButton, Qt::LeftButton);
    QTRY_VERIFY(QFile::exists(chosen));
    const QList<QByteArray> rows = fileBytes(chosen).split('\n');
    QCOMPARE(rows.size(), 1 + 3 + 1);
    QVERIFY(rows.at(1).startsWith("1002,tom-keeper,Tom,Keeper,"));
    QVERIFY(rows.at(2).startsWith("1004,carlos-gomez,Carlos,G"));
    QVERIFY(rows.at(3).startsWith("1001,jan-smith,Jan,Smith,"));
}

QM_TEST_MAIN(TestFmdHarvest)

#include "tst_fmdharvest.moc"
