#include "app/mainwindow.h"
#include "core/constants.h"
#include "core/sharedstate.h"
#include "core/website.h"
#include "tests/support/dialogs.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"
#include "tests/support/windowharness.h"
#include "tfm/tfmleague.h"
#include "tfm/tfmteam.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString site(const QString &path)
{
    return TFM_ROOT_URL + path;
}

// The title row as it stands, then the other rows in sorted order.
QList<QByteArray> titleAndSortedRows(const QByteArray &bytes)
{
    QList<QByteArray> rows = bytes.split('\n');
    if (rows.isEmpty())
        return rows;
    const QByteArray title = rows.takeFirst();
    std::sort(rows.begin(), rows.end());
    rows.prepend(title);
    return rows;
}

} // namespace

class TestTfmHarvest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void harvest_data();
    void harvest();

private:
    void routeSite();

    WindowHarness harness;
    FixtureWeb &web = harness.web;
};

void TestTfmHarvest::initTestCase()
{
    QVERIFY(harness.start());
}

void TestTfmHarvest::init()
{
    harness.startTest();
    routeSite();
}

void TestTfmHarvest::cleanup()
{
    harness.endTest();
}

void TestTfmHarvest::cleanupTestCase()
{
    harness.stop();
}

// One league of two clubs, two national teams and three players, as the site
// shows them for the season 2023.
void TestTfmHarvest::routeSite()
{
    web.routeFile(site(u"/testland-premier-liga/startseite/wettbewerb/TL1/plus/?saison_id=2023"_s),
                  u"tfm/harvest_league.html"_s);
    web.routeFile(site(u"/fc-alpha/leistungsdaten/verein/101/saison_id/2023"_s),
                  u"tfm/harvest_team_alpha.html"_s);
    web.routeFile(site(u"/fc-beta/leistungsdaten/verein/202/saison_id/2023"_s),
                  u"tfm/harvest_team_beta.html"_s);
    web.routeFile(site(u"/testland/erweiterterkader/verein/900"_s),
                  u"tfm/harvest_national_testland.html"_s);
    web.routeFile(site(u"/otherland/erweiterterkader/verein/950"_s),
                  u"tfm/harvest_national_otherland.html"_s);

    const QList<QPair<QString, QString>> players = {
        {u"/jan-smith/%1/spieler/12345"_s, u"smith"_s},
        {u"/ederson/%1/spieler/4711"_s, u"ederson"_s},
        {u"/carlos-gomez/%1/spieler/777"_s, u"gomez"_s},
    };
    for (const auto &[path, name] : players) {
        web.routeFile(site(path.arg(u"profil"_s)), u"tfm/harvest_player_%1.html"_s.arg(name));
        web.routeFile(site(path.arg(u"detaillierteleistungsdaten"_s)),
                      u"tfm/harvest_history_%1.html"_s.arg(name));
    }
    // An id alone: the site sends the filler name on to the real address.
    web.routeRedirect(site(u"/name/profil/spieler/12345"_s),
                      site(u"/jan-smith/profil/spieler/12345"_s), 301);
    web.routeRedirect(site(u"/name/detaillierteleistungsdaten/spieler/12345"_s),
                      site(u"/jan-smith/detaillierteleistungsdaten/spieler/12345"_s), 301);
}

void TestTfmHarvest::harvest_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<bool>("shuffled");
    QTest::addColumn<int>("requests");
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QString>("mode");

    const QString league = site(u"/testland-premier-liga/startseite/wettbewerb/TL1"_s);
    const QString nationals = site(u"/testland/erweiterterkader/verein/900\n"_s)
        + site(u"/otherland/erweiterterkader/verein/950"_s);
    const QString playerList = site(u"/jan-smith/profil/spieler/12345\n"_s)
        + site(u"/ederson/profil/spieler/4711\n"_s) + site(u"/carlos-gomez/profil/spieler/777"_s);

    struct Kind
    {
        const char *name;
        QString input;
        QString expected;
        bool shuffled;
        int requests;
    };
    // A player list is shuffled by the planner, seeded with the time: its rows are
    // the league's three players in an order that can't be known, so that kind is
    // compared with the league's files row by row after sorting.
    const Kind kinds[] = {
        {"league address", league, u"league"_s, false, 1 + 2 + 6},
        {"national team list", nationals, u"national"_s, false, 2 + 6},
        {"player list", playerList, u"league"_s, true, 6},
        {"id interval", u"12345-12345"_s, u"interval"_s, false, 4},
    };
    struct Mode
    {
        const char *name;
        QLocale locale;
        bool utf;
        QString file;
    };
    const Mode modes[] = {
        {"ascii, decimal point", QLocale::c(), false, u"ascii_point"_s},
        {"ascii, decimal comma", QLocale(QLocale::German), false, u"ascii_comma"_s},
        {"utf", QLocale(QLocale::German), true, u"utf"_s},
    };
    for (const Kind &kind : kinds) {
        for (const Mode &mode : modes) {
            QTest::addRow("%s, %s", kind.name, mode.name)
                << kind.input << kind.expected << kind.shuffled << kind.requests << mode.locale
                << mode.utf << mode.file;
        }
    }
}

void TestTfmHarvest::harvest()
{
    QFETCH(QString, input);
    QFETCH(QString, expected);
    QFETCH(bool, shuffled);
    QFETCH(int, requests);
    QFETCH(QLocale, locale);
    QFETCH(bool, utf);
    QFETCH(QString, mode);
    QLocale::setDefault(locale);

    QTemporaryDir outDir;
    QVERIFY(outDir.isValid());
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    window.urlInput->setPlainText(input);
    window.websiteBox->setCurrentIndex(window.websiteBox->findText(u"Transfer Markt"_s));
    QCOMPARE(window.websiteBox->currentIndex(), int(TransferMarkt));
    window.seasonBox->setValue(2023);
    window.downloadPlayerDetailsBox->setChecked(true);
    window.includeOlympicStatsBox->setChecked(false);
    window.includePlayerDataBox->setChecked(true);
    window.includePlayerHistoryBox->setChecked(true);
    (utf ? window.utfButton : window.asciiButton)->setChecked(true);

    QTest::mouseClick(window.downloadButton, Qt::LeftButton);
    QTRY_VERIFY(window.logBox->toPlainText().contains(u"----- PROCESS COMPLETE -----"_s));
    const QString log = window.logBox->toPlainText();
    QVERIFY2(!log.contains(u"ERROR"_s), qPrintable(log));
    QCOMPARE(web.requests().size(), requests);
    QVERIFY(window.saveButton->isEnabled());

    const QString chosen = outDir.filePath(u"harvest.csv"_s);
    answerNextFileDialog(chosen);
    QTest::mouseClick(window.saveButton, Qt::LeftButton);
    QTRY_VERIFY(QFile::exists(outDir.filePath(u"harvestHISTORY.csv"_s)));

    QCOMPARE(QDir(outDir.path()).entryList(QDir::Files, QDir::Name),
             QStringList({u"harvest.csv"_s, u"harvestHISTORY.csv"_s}));
    const QString prefix = u"tfm/expected/harvest_"_s + expected;
    const QByteArray main = fileBytes(outDir.filePath(u"harvest.csv"_s));
    const QByteArray history = fileBytes(outDir.filePath(u"harvestHISTORY.csv"_s));
    const QByteArray expectedMain = fixtureBytes(prefix + u"_main_"_s + mode + u".csv"_s);
    const QByteArray expectedHistory = fixtureBytes(prefix + u"_history_"_s + mode + u".csv"_s);
    QVERIFY(!expectedMain.isEmpty());
    QVERIFY(!expectedHistory.isEmpty());
    if (shuffled) {
        QCOMPARE(titleAndSortedRows(main), titleAndSortedRows(expectedMain));
        QCOMPARE(titleAndSortedRows(history), titleAndSortedRows(expectedHistory));
    } else {
        QCOMPARE(main, expectedMain);
        QCOMPARE(history, expectedHistory);
    }
}

QM_TEST_MAIN(TestTfmHarvest)

#include "tst_tfmharvest.moc"
