#include "app/mainwindow.h"
#include "core/constants.h"
#include "core/datainterface.h"
#include "core/sharedstate.h"
#include "core/website.h"
#include "ep/epleague.h"
#include "ep/epplayer.h"
#include "ep/epteam.h"
#include "tests/support/dialogs.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"
#include "tests/support/windowharness.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString site(const QString &path)
{
    return EP_ROOT_URL + path;
}

// The five files beside the chosen name, in the order they are written.
const QStringList suffixes
    = {u"clubs"_s, u"club_histories"_s, u"retired_numbers"_s, u"players"_s, u"player_histories"_s};

// A league of two teams for the season 2023. The centre stands on both rosters,
// in another letter case on the second, and one player's page is gone.
const QStringList harvestLog = {
    QString(),
    u"Downloading 1 league page(s)"_s,
    u"     1.\tTest Liiga                              \t     2 teams"_s,
    u"No duplicate teams were found."_s,
    QString(),
    u"Downloading 2 team page(s)"_s,
    u"     1.\tKiekko Karhut                           \t     3 players"_s,
    u"     2.\tJ\u00e4\u00e4 Sudet                               \t     7 players"_s,
    u"2 duplicate players(s) have been removed from the downloads list."_s,
    QString(),
    u"Downloading 7 player(s)"_s,
    u"     1.\tMattias Ekstr\u00f6m Lindqvist\tKiekko Karhut"_s,
    u"ERROR: Unable to access https://www.eliteprospects.com/player/404/missing-player."_s,
    u"     4.\tHenrik Vesterinen\tJ\u00e4\u00e4 Sudet"_s,
    u"     6.\tOla Nordmann\tJ\u00e4\u00e4 Sudet"_s,
    u"     7.\tSidorenko \tJ\u00e4\u00e4 Sudet"_s,
    QString(),
    QString(),
    u"----- PROCESS COMPLETE -----"_s,
    QString(),
    QString(),
};

} // namespace

class TestEpHarvest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void harvest_data();
    void harvest();
    void saveWithoutRecords();

private:
    void routeSite();

    WindowHarness harness;
    FixtureWeb &web = harness.web;
};

void TestEpHarvest::initTestCase()
{
    QVERIFY(harness.start());
}

void TestEpHarvest::init()
{
    harness.startTest();
    routeSite();
}

void TestEpHarvest::cleanup()
{
    harness.endTest();
}

void TestEpHarvest::cleanupTestCase()
{
    harness.stop();
}

void TestEpHarvest::routeSite()
{
    web.routeFile(site(u"/league/test-liiga/2023-2024?team-history=complete#team-history"_s),
                  u"ep/harvest_league.html"_s);
    web.routeFile(site(u"/team/101/kiekko-karhut/2023-2024"_s), u"ep/harvest_team_karhut.html"_s);
    web.routeFile(site(u"/team/202/jaa-sudet/2023-2024"_s), u"ep/harvest_team_sudet.html"_s);
    web.routeFile(site(u"/player/8001/mattias-ekstrom-lindqvist"_s), u"ep/player_skater.html"_s);
    web.routeFile(site(u"/player/9102/jean-luc-tremblay"_s), u"ep/player_two_nations.html"_s);
    web.routeFile(site(u"/player/9102/JEAN-LUC-TREMBLAY"_s), u"ep/player_two_nations.html"_s);
    web.routeBody(site(u"/player/404/missing-player"_s), "<html>gone</html>", 404);
    web.routeFile(site(u"/player/5123/henrik-vesterinen"_s), u"ep/player_goalkeeper.html"_s);
    web.routeFile(site(u"/player/6006/ola-nordmann"_s), u"ep/player_no_statistics.html"_s);
    web.routeFile(site(u"/player/7007/sidorenko"_s), u"ep/player_one_name.html"_s);
}

void TestEpHarvest::harvest_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QString>("mode");

    QTest::newRow("ascii, English") << QLocale(QLocale::English) << false << u"ascii_point"_s;
    QTest::newRow("ascii, German") << QLocale(QLocale::German) << false << u"ascii_comma"_s;
    QTest::newRow("utf, German") << QLocale(QLocale::German) << true << u"utf"_s;
}

void TestEpHarvest::harvest()
{
    QFETCH(QLocale, locale);
    QFETCH(bool, utf);
    QFETCH(QString, mode);
    QLocale::setDefault(locale);

    QTemporaryDir outDir;
    QVERIFY(outDir.isValid());
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    window.urlInput->setPlainText(site(u"/league/test-liiga"_s));
    window.websiteBox->setCurrentIndex(window.websiteBox->findText(u"Elite Prospects"_s));
    QCOMPARE(window.websiteBox->currentIndex(), int(EliteProspects));
    window.seasonBox->setValue(2023);
    window.downloadPlayerDetailsBox->setChecked(true);
    (utf ? window.utfButton : window.asciiButton)->setChecked(true);

    QTest::mouseClick(window.downloadButton, Qt::LeftButton);
    QTRY_VERIFY(window.logBox->toPlainText().contains(u"----- PROCESS COMPLETE -----"_s));
    QCOMPARE(logLines(window.logBox), harvestLog);
    // The league, two teams and five players: no page for either row of the
    // player on two rosters.
    QCOMPARE(web.requests().size(), 8);
    QCOMPARE(web.requestCount(site(u"/player/9102/jean-luc-tremblay"_s)), 0);
    QCOMPARE(web.requestCount(site(u"/player/9102/JEAN-LUC-TREMBLAY"_s)), 0);
    QCOMPARE(window.dataInterface.players.size(), 7);
    QCOMPARE(window.dataInterface.teams.size(), 2);
    QCOMPARE(EP_Team::playerUrls().count(), 0);
    QVERIFY(window.saveButton->isEnabled());

    answerNextFileDialog(outDir.filePath(u"harvest.csv"_s));
    QTest::mouseClick(window.saveButton, Qt::LeftButton);
    QCOMPARE(pendingDialogAnswers(), 0);

    // Only the five files, not the chosen name itself.
    QStringList expectedNames;
    for (const QString &suffix : suffixes)
        expectedNames.append(u"harvest_"_s + suffix + u".csv"_s);
    QStringList sortedNames = expectedNames;
    sortedNames.sort();
    QCOMPARE(QDir(outDir.path()).entryList(QDir::Files, QDir::Name), sortedNames);

    for (const QString &suffix : suffixes) {
        const QByteArray written = fileBytes(outDir.filePath(u"harvest_"_s + suffix + u".csv"_s));
        const QByteArray expected
            = fixtureBytes(u"ep/expected/harvest_full_"_s + suffix + u'_' + mode + u".csv"_s);
        QVERIFY2(!expected.isEmpty(), qPrintable(suffix));
        QCOMPARE(written, expected);
    }
}

void TestEpHarvest::saveWithoutRecords()
{
    // Nothing harvested: all five files, each with its title line alone.
    QTemporaryDir outDir;
    DataInterface data;
    data.website = EliteProspects;
    QVERIFY(data.saveRecords(outDir.filePath(u"empty.csv"_s), false));
    for (const QString &suffix : suffixes) {
        const QByteArray written = fileBytes(outDir.filePath(u"empty_"_s + suffix + u".csv"_s));
        QVERIFY2(written.startsWith("\xef\xbb\xbf"), qPrintable(suffix));
        QCOMPARE(written.count('\n'), 1);
        QVERIFY(written.endsWith('\n'));
    }
    QCOMPARE(QDir(outDir.path()).entryList(QDir::Files).size(), 5);
}

QM_TEST_MAIN(TestEpHarvest)
#include "tst_epharvest.moc"
