#include "app/mainwindow.h"
#include "core/constants.h"
#include "core/sharedstate.h"
#include "core/website.h"
#include "proxy/proxy.h"
#include "tests/support/dialogs.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/harness.h"
#include "tests/support/harvestsite.h"
#include "tests/support/networkfaults.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"
#include "tests/support/windowsandbox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTcpServer>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

// Network faults in the middle of a Transfer Markt harvest, each on one page of
// one pass, with the real fetcher over real sockets: the pass writes its own
// error line (or, for a page that is odd but whole, takes it in), the run goes
// on to its last line, the records already harvested stay, and Save As writes
// them.
namespace {

enum class Pass { League, Team, Player };

QString site(const QString &path)
{
    return TFM_ROOT_URL + path;
}

const QString leagueAddress = HarvestSite::leagueAddress();
const QString faultyLeagueAddress = site(u"/faulty-liga/startseite/wettbewerb/FL1"_s);
const QString alphaPath = HarvestSite::alphaPath();
const QString edersonPath = HarvestSite::edersonProfilePath();

// The page of each pass that the fault hits, and the fixture it stands for.
QString faultyUrl(Pass pass)
{
    switch (pass) {
    case Pass::League:
        return faultyLeagueAddress + u"/plus/?saison_id=2023"_s;
    case Pass::Team:
        return site(alphaPath);
    case Pass::Player:
        return site(edersonPath);
    }
    return {};
}

QByteArray goodBody(Pass pass)
{
    switch (pass) {
    case Pass::League:
        return fixtureBytes(u"tfm/harvest_league.html"_s);
    case Pass::Team:
        return fixtureBytes(u"tfm/harvest_team_alpha.html"_s);
    case Pass::Player:
        return fixtureBytes(u"tfm/harvest_player_ederson.html"_s);
    }
    return {};
}

// The error line the pass writes for the faulty page; the player pass adds the
// reply's own error text behind it.
QString errorLine(Pass pass)
{
    switch (pass) {
    case Pass::League:
        return u"ERROR: Unable to access "_s + faultyUrl(pass) + u'.';
    case Pass::Team:
        return u"ERROR: Unable to access "_s + alphaPath;
    case Pass::Player:
        return u"ERROR: Unable to access "_s + edersonPath + u": "_s;
    }
    return {};
}

// Records of the whole run: leagues, teams, players.
struct Counts
{
    qsizetype leagues;
    qsizetype teams;
    qsizetype players;
};

// Fails: the reply errs, and the player loop tries the page ten times.
// FailsEmpty: the reply is good but holds no text, which fails the page at once.
// TakenIn: the page is scanned as any other; TakenInEmpty: scanned, nothing found.
enum class Outcome { Fails, FailsEmpty, TakenIn, TakenInEmpty };

Counts expectedCounts(Pass pass, Outcome outcome)
{
    // Without a fault: one league, FC Alpha with Smith and Ederson, FC Beta with Gomez.
    const bool fails = outcome == Outcome::Fails || outcome == Outcome::FailsEmpty;
    switch (pass) {
    case Pass::League:
        // A second league address; a page that is taken in adds a league record.
        return {fails ? 1 : 2, 2, 3};
    case Pass::Team:
        if (fails)
            return {1, 1, 1};
        return {1, 2, outcome == Outcome::TakenIn ? 3 : 1};
    case Pass::Player:
        return {1, 2, fails ? 2 : 3};
    }
    return {};
}

// How many requests the pass makes of a failing page: the player loop tries ten times.
int attemptsOf(Pass pass)
{
    return pass == Pass::Player ? 10 : 1;
}

// What becomes of the faulty page.
Outcome outcomeOf(NetworkFault fault)
{
    switch (fault) {
    case NetworkFault::FiftyMegabytes:
        return Outcome::TakenInEmpty;
    case NetworkFault::ZeroBytesOnly:
        return Outcome::FailsEmpty;
    case NetworkFault::InvalidUtf8:
    case NetworkFault::ByteOrderMark:
        return Outcome::TakenIn;
    default:
        return Outcome::Fails;
    }
}

} // namespace

Q_DECLARE_METATYPE(Pass)
Q_DECLARE_METATYPE(Outcome)

class TestFaults : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void faultyPage_data();
    void faultyPage();
    void proxyThatRefuses_data();
    void proxyThatRefuses();

private:
    static void prepare(MainWindow &window);

    WindowSandbox sandbox;
    FixtureWeb web;
    std::unique_ptr<FastWaits> fast;
};

void TestFaults::initTestCase()
{
    QVERIFY(startFixtureHarness(sandbox, web));
}

void TestFaults::init()
{
    HarvestSite::startAfresh(web);
    fast = std::make_unique<FastWaits>();
}

void TestFaults::cleanup()
{
    fast.reset();
    QCOMPARE(pendingDialogAnswers(), 0);
}

// A window set for a Transfer Markt harvest of the season 2023 with player data.
void TestFaults::prepare(MainWindow &window)
{
    window.websiteBox->setCurrentIndex(TransferMarkt);
    window.seasonBox->setValue(2023);
    window.downloadPlayerDetailsBox->setChecked(true);
    window.includePlayerDataBox->setChecked(true);
    window.includePlayerHistoryBox->setChecked(false);
    window.asciiButton->setChecked(true);
}

void TestFaults::faultyPage_data()
{
    QTest::addColumn<Pass>("pass");
    QTest::addColumn<FaultyAnswer>("fault");
    QTest::addColumn<Outcome>("outcome");

    const QList<QPair<Pass, const char *>> passes
        = {{Pass::League, "league"}, {Pass::Team, "team"}, {Pass::Player, "player"}};
    for (const auto &[pass, name] : passes) {
        for (const FaultyAnswer &fault : faultyAnswers(goodBody(pass), faultyUrl(pass))) {
            QTest::newRow(
                qPrintable(u"%1: %2"_s.arg(QLatin1StringView(name), QLatin1StringView(fault.name))))
                << pass << fault << outcomeOf(fault.fault);
        }
    }
}

void TestFaults::faultyPage()
{
    QFETCH(Pass, pass);
    QFETCH(FaultyAnswer, fault);
    QFETCH(Outcome, outcome);

    const QString faulty = faultyUrl(pass);
    // The page requested just before the faulty one.
    const QString before = pass == Pass::League ? QString()
        : pass == Pass::Team                    ? leagueAddress + u"/plus/?saison_id=2023"_s
                                                : site(HarvestSite::smithProfilePath());
    putFault(web, faulty, fault, attemptsOf(pass), before);

    MainWindow window;
    prepare(window);
    window.urlInput->setPlainText(pass == Pass::League ? faultyLeagueAddress + u'\n' + leagueAddress
                                                       : leagueAddress);
    QTest::mouseClick(window.downloadButton, Qt::LeftButton);

    const QStringList lines = logLines(window.logBox);
    QCOMPARE(lines.mid(lines.size() - 3),
             (QStringList{u"----- PROCESS COMPLETE -----"_s, QString(), QString()}));
    const QStringList errors = errorLines(lines);
    if (outcome == Outcome::FailsEmpty) {
        // No error text to add: the reply had none. Nor is the page tried again.
        QCOMPARE(errors, QStringList{errorLine(pass)});
        QCOMPARE(web.requestCount(faulty), 1);
    } else if (outcome == Outcome::Fails) {
        QCOMPARE(errors.size(), 1);
        if (pass == Pass::Player) {
            // The reply's own error text follows, whatever words the network used.
            QVERIFY2(errors.first().startsWith(errorLine(pass))
                         && errors.first().size() > errorLine(pass).size(),
                     qPrintable(errors.first()));
        } else {
            QCOMPARE(errors.first(), errorLine(pass));
        }
    } else {
        QVERIFY2(errors.isEmpty(), qPrintable(errors.join(u'\n')));
    }
    if (fault.untrusted) {
        // The handshake failed: the page was never asked for.
        QCOMPARE(web.requestCount(faulty), 0);
    } else if (outcome == Outcome::Fails && !fault.redirectLoop) {
        QVERIFY(web.requestCount(faulty) >= attemptsOf(pass));
    }

    const Counts expected = expectedCounts(pass, outcome);
    QCOMPARE(window.dataInterface.leagues.size(), expected.leagues);
    QCOMPARE(window.dataInterface.teams.size(), expected.teams);
    QCOMPARE(window.dataInterface.players.size(), expected.players);
    // Carlos Gómez of FC Beta is harvested after every faulty page.
    QVERIFY(window.logBox->toPlainText().contains(u"Carlos Gómez player data"_s));

    const QList<QByteArray> rows
        = saveThroughWindow(window, sandbox.filePath(u"drill.csv"_s)).split('\n');
    // The title row, one row a player, and the empty piece behind the last line feed.
    QCOMPARE(rows.size(), expected.players + 2);
    QVERIFY(rows.at(0).startsWith("\xef\xbb\xbfId,"));
    QVERIFY(rows.last().isEmpty());
    bool gomez = false;
    for (const QByteArray &row : rows)
        gomez = gomez || row.contains("Carlos");
    QVERIFY(gomez);
}

void TestFaults::proxyThatRefuses_data()
{
    QTest::addColumn<bool>("refuseLogins");
    QTest::newRow("refuses the connection") << false;
    QTest::newRow("refuses the credentials") << true;
}

// The proxy's test prints its own two lines; a run after it, through the
// refusing proxy, fails page by page and ends as any other; a proxy that works,
// tested anew, brings the harvest back.
void TestFaults::proxyThatRefuses()
{
    QFETCH(bool, refuseLogins);
    const QString echoed = u"203.0.113.7"_s;
    web.routeBody(IP_ECHO_URL, echoed.toUtf8());

    quint16 port = web.proxyPort();
    if (refuseLogins) {
        web.setProxyRefusesLogins(true);
    } else {
        // A port that nothing listens on any more.
        QTcpServer closed;
        QVERIFY(closed.listen(QHostAddress::LocalHost, 0));
        port = closed.serverPort();
    }

    MainWindow window;
    prepare(window);
    window.proxy->enabledBox->setChecked(true);
    window.proxy->hostEdit->setText(u"127.0.0.1"_s);
    window.proxy->portEdit->setText(QString::number(port));
    window.proxy->userEdit->setText(u"alice"_s);
    window.proxy->passwordEdit->setText(u"wrong"_s);
    QTest::mouseClick(window.proxy->testButton, Qt::LeftButton);

    const QString checking = u"Checking IP address using "_s + IP_ECHO_URL + u". Please wait..."_s;
    QCOMPARE(logLines(window.logBox),
             (QStringList{checking,
                          u"Error! Unable to check IP address. Either the IP address/proxy is "
                          u"invalid or "_s
                              + IP_ECHO_URL + u" is offline."_s}));
    QCOMPARE(web.requestCount(IP_ECHO_URL), 0);
    if (refuseLogins)
        QCOMPARE(web.proxyLogins(), (QList<QPair<QString, QString>>{{u"alice"_s, u"wrong"_s}}));

    window.urlInput->setPlainText(leagueAddress);
    QTest::mouseClick(window.downloadButton, Qt::LeftButton);
    QCOMPARE(logLines(window.logBox),
             (QStringList{
                 QString(),
                 u"Downloading 1 league page(s)"_s,
                 u"ERROR: Unable to access "_s + leagueAddress + u"/plus/?saison_id=2023."_s,
                 u"No duplicate teams were found."_s,
                 QString(),
                 u"Downloading 0 team page(s)"_s,
                 QString(),
                 u"Downloading 0 player data page(s) and 0 player history page(s). "
                 u"Total page(s): 0"_s,
                 QString(),
                 QString(),
                 u"----- PROCESS COMPLETE -----"_s,
                 QString(),
                 QString(),
             }));
    QVERIFY(web.requests().isEmpty());

    // The user mends the proxy and tests it again.
    web.setProxyRefusesLogins(false);
    window.proxy->portEdit->setText(QString::number(web.proxyPort()));
    QTest::ignoreMessage(
        QtWarningMsg,
        qPrintable(
            u"QString::arg: Argument missing: \"Your IP address: %1\" , %2"_s.arg(echoed).arg(
                echoed.size())));
    QTest::mouseClick(window.proxy->testButton, Qt::LeftButton);
    QCOMPARE(logLines(window.logBox).last(), u"Your IP address: "_s + echoed);

    // Download comes back after a Save As, here of no records at all.
    saveThroughWindow(window, sandbox.filePath(u"nothing.csv"_s));
    QTest::mouseClick(window.downloadButton, Qt::LeftButton);
    QCOMPARE(window.dataInterface.players.size(), 3);
    QVERIFY(!window.logBox->toPlainText().contains(u"ERROR"_s));
}

QM_TEST_MAIN(TestFaults)
#include "tst_faults.moc"
