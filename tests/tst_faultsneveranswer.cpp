#include "app/mainwindow.h"
#include "core/constants.h"
#include "core/website.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/fmdsite.h"
#include "tests/support/harness.h"
#include "tests/support/harvestsite.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"
#include "tests/support/windowsandbox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <memory>

using namespace Qt::StringLiterals;

// A server that takes the connection and the request and never answers. The
// fetcher sets no time-out by design, so the pass waits for as long as the user
// lets it; closing the window is the way out. It ends the application's event
// loop, every wait returns at once, the run unwinds to its last line and the
// window is destroyed as at any other end, with its settings and "log.txt".
// Each row runs the application's event loop anew.
namespace {

QString site(const QString &path)
{
    return TFM_ROOT_URL + path;
}

const QString leagueAddress = HarvestSite::leagueAddress();
const QString leagueUrl = HarvestSite::leagueUrl();

} // namespace

class TestFaultsNeverAnswer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void closeTheWindowWhileAPassWaitsForever_data();
    void closeTheWindowWhileAPassWaitsForever();

private:
    WindowSandbox sandbox;
    FixtureWeb web;
    std::unique_ptr<FastWaits> fast;
};

void TestFaultsNeverAnswer::initTestCase()
{
    QVERIFY(startFixtureHarness(sandbox, web));
    fast = std::make_unique<FastWaits>();
}

void TestFaultsNeverAnswer::closeTheWindowWhileAPassWaitsForever_data()
{
    QTest::addColumn<int>("website");
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("silentPage");
    QTest::addColumn<bool>("history");
    // The line that the pass wrote last before the page that never came.
    QTest::addColumn<QString>("lastLine");

    const int tfm = TransferMarkt;
    QTest::newRow("Transfer Markt league pass")
        << tfm << leagueAddress << leagueUrl << false << u"Downloading 1 league page(s)"_s;
    QTest::newRow("Transfer Markt team pass")
        << tfm << leagueAddress << site(HarvestSite::betaPath()) << false << u"FC Alpha"_s;
    QTest::newRow("Transfer Markt player pass")
        << tfm << leagueAddress << site(HarvestSite::edersonProfilePath()) << false
        << u"Jan Smith player data"_s;
    QTest::newRow("Transfer Markt history pass")
        << tfm << leagueAddress << site(HarvestSite::smithHistoryPath()) << true
        << u"Jan Smith player data"_s;

    const int ep = EliteProspects;
    const QString epLeague = EpHarvestSite::leagueAddress();
    QTest::newRow("Elite Prospects league pass") << ep << epLeague << EpHarvestSite::leagueUrl()
                                                 << false << u"Downloading 1 league page(s)"_s;
    QTest::newRow("Elite Prospects team pass")
        << ep << epLeague << QString(EP_ROOT_URL + u"/team/202/jaa-sudet/2023-2024"_s) << false
        << u"Kiekko Karhut"_s;
    QTest::newRow("Elite Prospects player pass")
        << ep << epLeague << QString(EP_ROOT_URL + u"/player/5123/henrik-vesterinen"_s) << false
        << u"Mattias Ekstr\u00f6m Lindqvist"_s;

    const int fmd = FMDataba;
    const QString fmdList = FmdSite::listUrl(u"best-players"_s);
    QTest::newRow("FMDataba list walk") << fmd << fmdList << FmdSite::listUrl(u"best-players/1"_s)
                                        << false << u"Downloading 15 league page(s)"_s;
    QTest::newRow("FMDataba player pass")
        << fmd << fmdList << FmdSite::playerUrl(1002, u"tom-keeper"_s) << false << u"Jan Smith"_s;
}

void TestFaultsNeverAnswer::closeTheWindowWhileAPassWaitsForever()
{
    QFETCH(int, website);
    QFETCH(QString, input);
    QFETCH(QString, silentPage);
    QFETCH(bool, history);
    QFETCH(QString, lastLine);

    HarvestSite::startAfresh(web);
    EpHarvestSite::route(web);
    FmdSite::route(web);
    FixtureWeb::Answer silent;
    silent.hold = true;
    web.route(silentPage, silent);
    QFile::remove(u"log.txt"_s);

    auto window = std::make_unique<MainWindow>();
    window->websiteBox->setCurrentIndex(website);
    window->seasonBox->setValue(2023);
    window->downloadPlayerDetailsBox->setChecked(true);
    window->includePlayerDataBox->setChecked(true);
    window->includePlayerHistoryBox->setChecked(history);
    window->urlInput->setPlainText(input);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));

    // The user gives up on the silent page and closes the window, through the
    // wait's own event loop as a click on the title bar's button would.
    web.whenRequested(silentPage, window.get(), [&] { window->windowHandle()->close(); });
    bool runReturned = false;
    QTimer::singleShot(0, window.get(), [&] {
        window->downloadButton->click();
        runReturned = true;
    });

    QCOMPARE(QCoreApplication::exec(), 0);

    QVERIFY(runReturned);
    QCOMPARE(web.requestCount(silentPage), 1);
    QVERIFY(!window->isVisible());
    const QStringList lines = logLines(window->logBox);
    QCOMPARE(lines.mid(lines.size() - 3),
             (QStringList{u"----- PROCESS COMPLETE -----"_s, QString(), QString()}));
    QVERIFY2(window->logBox->toPlainText().contains(lastLine), qPrintable(lines.join(u'\n')));

    window.reset();

    QFile log(u"log.txt"_s);
    QVERIFY(log.open(QIODevice::ReadOnly));
    const QByteArray written = log.readAll();
    QVERIFY(written.contains(lastLine.toLatin1()));
    QVERIFY(written.trimmed().endsWith("----- PROCESS COMPLETE -----"));
    QCOMPARE(QSettings().value(u"website"_s).toInt(), website);
    QCOMPARE(QSettings().value(u"include_player_history"_s).toBool(), history);
}

QM_TEST_MAIN(TestFaultsNeverAnswer)
#include "tst_faultsneveranswer.moc"
