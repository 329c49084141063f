#include "app/mainwindow.h"
#include "core/constants.h"
#include "core/fetch.h"
#include "core/fetchtesting.h"
#include "core/sharedstate.h"
#include "status/statusdisplay.h"
#include "tests/support/dialogs.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/harness.h"
#include "tests/support/testmain.h"
#include "tests/support/windowsandbox.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;

using Answer = FixtureWeb::Answer;

namespace {

Answer answerOf(int status, const QByteArray &body)
{
    Answer answer;
    answer.status = status;
    answer.body = body;
    return answer;
}

QList<int> repeated(const QList<int> &pattern, int times)
{
    QList<int> all;
    for (int i = 0; i < times; ++i)
        all += pattern;
    return all;
}

} // namespace

class TestFetch : public QObject
{
    Q_OBJECT

private:
    WindowSandbox sandbox;
    FixtureWeb web;
    std::unique_ptr<FastWaits> fast;
    std::unique_ptr<StatusDisplay> panel;

    QString page(const QString &path) const { return TFM_ROOT_URL + path; }

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void successShowsAddressAndCounts();
    void resultRule_data();
    void resultRule();
    void siteHostsAnswerOverTls_data();
    void siteHostsAnswerOverTls();
    void plainOriginAnswers();
    void oneAttemptSendsOneRequestAndPauses();
    void pausesInOrder_data();
    void pausesInOrder();
    void tenAttemptsAgainstAFailingPage();
    void failureThenSuccessKeepsTheOldError();
    void errorLineShowsTheErrorString();
    void zeroByteCutsTextAndTraffic();
    void invalidUtf8IsReplaced_data();
    void invalidUtf8IsReplaced();
    void bodyIsUtf8WhateverTheHeaderSays();
    void exactlyTheTwoHeaders();
    void noCookieCarriesOver();
    void redirectsAreFollowed_data();
    void redirectsAreFollowed();
    void closedConnectionIsAFailure();
    void sitePageIsBasePlusPath_data();
    void sitePageIsBasePlusPath();
    void shortFormIsOneQuietAttempt();
    void addExpectedPageAnnouncesOne();
    void waitSecondsRecordsEachWait();
    void noStatusDisplayIsSafe();
    void windowTakesInputDuringTheWait();
};

void TestFetch::initTestCase()
{
    QVERIFY(startFixtureHarness(sandbox, web));
}

void TestFetch::init()
{
    resetFixtureWeb(web);
    fast = std::make_unique<FastWaits>();
    panel = std::make_unique<StatusDisplay>();
    setStatusDisplay(panel.get());
}

void TestFetch::cleanup()
{
    setStatusDisplay(nullptr);
    panel.reset();
    fast.reset();
}

void TestFetch::successShowsAddressAndCounts()
{
    const QString url = page(u"/premier-league/startseite/wettbewerb/GB1"_s);
    web.routeBody(url, "<html>league</html>");
    panel->incrementPageCountTotal(4);

    QString text = u"earlier"_s;
    QVERIFY(fetchPage(text, url, false, nullptr, 0, 1));

    QCOMPARE(text, u"<html>league</html>"_s);
    QCOMPARE(panel->statusEdit->text(), u"SUCCESS: "_s + url);
    QCOMPARE(panel->pageCount, 1u);
    QCOMPARE(panel->pagesEdit->text(), u"1 of 4"_s);
    QCOMPARE(web.requestCount(url), 1);
    QCOMPARE(web.requests().size(), 1);
    QCOMPARE(web.requests().first().method, "GET"_ba);
}

void TestFetch::resultRule_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("statusPrefix");

    QTest::newRow("a page with text")
        << 200 << "<p>x</p>"_ba << true << u"<p>x</p>"_s << u"SUCCESS: "_s;
    QTest::newRow("an empty page") << 200 << QByteArray() << false << QString() << u"SUCCESS: "_s;
    QTest::newRow("a page that starts with a zero byte")
        << 200 << QByteArray("\0abc", 4) << false << QString() << u"SUCCESS: "_s;
    QTest::newRow("an error page with a body")
        << 404 << "<h1>gone</h1>"_ba << false << u"<h1>gone</h1>"_s << u"ERROR: "_s;
    QTest::newRow("an error page without a body")
        << 500 << QByteArray() << false << QString() << u"ERROR: "_s;
}

void TestFetch::resultRule()
{
    QFETCH(int, status);
    QFETCH(QByteArray, body);
    QFETCH(bool, result);
    QFETCH(QString, text);
    QFETCH(QString, statusPrefix);

    const QString url = page(u"/result"_s);
    web.routeBody(url, body, status);

    QString received = u"earlier"_s;
    QCOMPARE(fetchPage(received, url, false, nullptr, 0, 1), result);
    QCOMPARE(received, text);
    QCOMPARE(panel->pageCount, 1u);
    QVERIFY2(panel->statusEdit->text().startsWith(statusPrefix),
             qPrintable(panel->statusEdit->text()));
}

void TestFetch::siteHostsAnswerOverTls_data()
{
    QTest::addColumn<QString>("url");
    QTest::newRow("Transfer Markt") << TFM_ROOT_URL + u"/x/startseite/verein/3"_s;
    QTest::newRow("Elite Prospects") << EP_ROOT_URL + u"/league/nhl"_s;
    QTest::newRow("FMDataba") << FMD_ROOT_URL + u"/19/l/4/premier-league/best-players/"_s;
    QTest::newRow("IP echo") << IP_ECHO_URL;
}

void TestFetch::siteHostsAnswerOverTls()
{
    QFETCH(QString, url);
    web.routeBody(url, "here");

    QString text;
    QString error;
    QVERIFY2(fetchPage(text, url, false, &error, 0, 1), qPrintable(error));
    QCOMPARE(text, u"here"_s);
    QCOMPARE(web.requests().size(), 1);
    QCOMPARE(web.requests().first().url, FixtureWeb::canonicalUrl(url));
    QVERIFY(web.requests().first().url.startsWith(u"https://"_s));
    // The proxy was asked for the host by name, and for the TLS port.
    const QString host = QUrl(url).host();
    QCOMPARE(web.proxyTargets(), QStringList{host + u":443"_s});
}

void TestFetch::plainOriginAnswers()
{
    const QString url = web.plainUrl(u"/plain/page?x=1"_s);
    web.routeBody(url, "plain");

    QString text;
    QVERIFY(fetchPage(text, url, false, nullptr, 0, 1));
    QCOMPARE(text, u"plain"_s);
    QCOMPARE(web.requestCount(url), 1);
    // Loopback addresses never go through the application proxy.
    QVERIFY(web.proxyTargets().isEmpty());
}

void TestFetch::oneAttemptSendsOneRequestAndPauses()
{
    const QString url = page(u"/fails"_s);
    web.routeBody(url, QByteArray(), 503);

    QString text;
    QVERIFY(!fetchPage(text, url, false, nullptr, 0, 1));
    QCOMPARE(web.requestCount(url), 1);
    // The 30-second pause is taken after the only failure too.
    QCOMPARE(FetchTesting::waitsSeen(), QList<int>{30});
    QCOMPARE(panel->pageCount, 1u);
}

void TestFetch::pausesInOrder_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("delay");
    QTest::addColumn<int>("attempts");
    QTest::addColumn<QList<int>>("waits");

    QTest::newRow("success without delay: no timer loop at all") << 200 << 0 << 1 << QList<int>{};
    QTest::newRow("success with delay") << 200 << 7 << 10 << QList<int>{7};
    QTest::newRow("failure without delay") << 500 << 0 << 1 << QList<int>{30};
    QTest::newRow("failure with delay: the delay comes first")
        << 500 << 7 << 1 << QList<int>{7, 30};
    QTest::newRow("three failing attempts with delay") << 500 << 7 << 3 << repeated({7, 30}, 3);
}

void TestFetch::pausesInOrder()
{
    QFETCH(int, status);
    QFETCH(int, delay);
    QFETCH(int, attempts);
    QFETCH(QList<int>, waits);

    const QString url = page(u"/paced"_s);
    web.routeBody(url, "body", status);

    QString text;
    fetchPage(text, url, false, nullptr, delay, attempts);
    QCOMPARE(FetchTesting::waitsSeen(), waits);
}

void TestFetch::tenAttemptsAgainstAFailingPage()
{
    const QString url = page(u"/always/fails"_s);
    // Two kinds of failure by turns, so that the panel's error line changes at
    // every attempt.
    QList<Answer> answers;
    for (int i = 1; i <= 10; ++i)
        answers.append(answerOf(i % 2 ? 500 : 503, "failure "_ba + QByteArray::number(i)));
    web.routeSequence(url, answers);
    panel->incrementPageCountTotal(1);

    QSignalSpy statusChanges(panel->statusEdit, &QLineEdit::textChanged);
    QString text;
    QString error;
    QVERIFY(!fetchPage(text, url, false, &error, 7, 10));

    QCOMPARE(web.requestCount(url), 10);
    QCOMPARE(statusChanges.size(), 10);
    for (const QList<QVariant> &change : std::as_const(statusChanges))
        QVERIFY(change.first().toString().startsWith(u"ERROR: "_s));
    QCOMPARE(panel->pageCount, 1u);
    QCOMPARE(panel->pagesEdit->text(), u"1 of 1"_s);
    QCOMPARE(text, u"failure 10"_s);
    QVERIFY(error.contains(u"Service Unavailable"_s));
    QCOMPARE(FetchTesting::waitsSeen(), repeated({7, 30}, 10));
}

void TestFetch::failureThenSuccessKeepsTheOldError()
{
    const QString url = page(u"/flaky"_s);
    web.routeSequence(url, {answerOf(500, "broken"), answerOf(200, "<html>fine</html>")});

    QString text;
    QString error;
    QVERIFY(fetchPage(text, url, false, &error, 0, 10));
    QCOMPARE(text, u"<html>fine</html>"_s);
    QVERIFY2(error.contains(u"Internal Server Error"_s), qPrintable(error));
    QCOMPARE(web.requestCount(url), 2);
    QCOMPARE(panel->pageCount, 1u);
    QCOMPARE(panel->statusEdit->text(), u"SUCCESS: "_s + url);
    QCOMPARE(FetchTesting::waitsSeen(), QList<int>{30});
}

void TestFetch::errorLineShowsTheErrorString()
{
    const QString url = page(u"/missing"_s);

    QString text;
    QString error = u"untouched"_s;
    QVERIFY(!fetchPage(text, url, false, &error, 0, 1));
    // Unrouted: 404 with an empty body.
    QVERIFY2(error.contains(u"Not Found"_s), qPrintable(error));
    QCOMPARE(panel->statusEdit->text(), u"ERROR: "_s + error);
    QVERIFY(text.isEmpty());
}

void TestFetch::zeroByteCutsTextAndTraffic()
{
    const QString url = page(u"/zero"_s);
    const QByteArray kept(2048, 'a');
    web.routeBody(url, kept + '\0' + QByteArray(4096, 'b'));

    QString text;
    QVERIFY(fetchPage(text, url, false, nullptr, 0, 1));
    QCOMPARE(text, QString::fromLatin1(kept));
    // 2 kb counted, not the 6 kb that came over the wire.
    QCOMPARE(panel->downloadedKb, 2u);
    QCOMPARE(panel->downloadedEdit->text(), u"2 kb"_s);
}

void TestFetch::invalidUtf8IsReplaced_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("text");

    QTest::newRow("stray bytes") << "ab\xff\xfe"
                                    "cd"_ba
                                 << u"ab\uFFFD\uFFFDcd"_s;
    QTest::newRow("a sequence cut short at the end") << "caf\xc3"_ba << u"caf\uFFFD"_s;
    QTest::newRow("valid two-byte letters") << "M\xc3\xbcller"_ba << u"M\u00FCller"_s;
}

void TestFetch::invalidUtf8IsReplaced()
{
    QFETCH(QByteArray, body);
    QFETCH(QString, text);

    const QString url = page(u"/bytes"_s);
    web.routeBody(url, body);

    QString received;
    QVERIFY(fetchPage(received, url, false, nullptr, 0, 1));
    QCOMPARE(received, text);
}

void TestFetch::bodyIsUtf8WhateverTheHeaderSays()
{
    const QString url = page(u"/latin1"_s);
    Answer answer = answerOf(200, "<meta charset=\"iso-8859-1\">M\xfcller"_ba);
    answer.contentType = "text/html; charset=iso-8859-1";
    web.route(url, answer);

    QString text;
    QVERIFY(fetchPage(text, url, false, nullptr, 0, 1));
    QCOMPARE(text, u"<meta charset=\"iso-8859-1\">M\uFFFDller"_s);
}

void TestFetch::exactlyTheTwoHeaders()
{
    const QString url = page(u"/headers"_s);
    web.routeBody(url, "ok");

    QString text;
    QVERIFY(fetchPage(text, url, false, nullptr, 0, 1));
    QCOMPARE(web.requests().size(), 1);
    const FixtureWeb::Request request = web.requests().first();

    QCOMPARE(request.header("User-Agent"_ba), "Mozilla/5.0 (Windows NT 10.0; Win64; x64)"_ba);
    QCOMPARE(request.header("Referer"_ba), PLACEHOLDER_REFERER.toUtf8());
    // Besides the two, only what the HTTP client adds of itself, once each.
    QStringList names;
    for (const auto &[name, value] : request.headers)
        names.append(QString::fromLatin1(name).toLower());
    names.sort();
    QCOMPARE(names,
             (QStringList{u"accept-encoding"_s, u"accept-language"_s, u"connection"_s, u"host"_s,
                          u"referer"_s, u"user-agent"_s}));
}

void TestFetch::noCookieCarriesOver()
{
    // Each call and each retry has a manager of its own, and with it a cookie
    // jar of its own.
    const QString first = page(u"/sets/cookie"_s);
    Answer withCookie = answerOf(200, "one");
    withCookie.headers = {{"Set-Cookie"_ba, "session=1; Path=/"_ba}};
    web.route(first, withCookie);
    const QString second = page(u"/after"_s);
    Answer failingWithCookie = answerOf(500, "no");
    failingWithCookie.headers = withCookie.headers;
    web.routeSequence(second, {failingWithCookie, answerOf(200, "two")});

    QString text;
    QVERIFY(fetchPage(text, first, false, nullptr, 0, 1));
    QVERIFY(fetchPage(text, second, false, nullptr, 0, 2));
    QCOMPARE(web.requests().size(), 3);
    for (const FixtureWeb::Request &request : web.requests())
        QVERIFY2(request.header("Cookie"_ba).isEmpty(), qPrintable(request.url));
}

void TestFetch::redirectsAreFollowed_data()
{
    QTest::addColumn<bool>("followRedirects");
    QTest::addColumn<int>("status");
    QTest::newRow("asked to follow, 302") << true << 302;
    QTest::newRow("not asked, 302: followed all the same") << false << 302;
    QTest::newRow("not asked, 301: followed all the same") << false << 301;
}

void TestFetch::redirectsAreFollowed()
{
    QFETCH(bool, followRedirects);
    QFETCH(int, status);

    const QString from = page(u"/spieler/12345"_s);
    const QString to = page(u"/name/profil/spieler/12345"_s);
    web.routeRedirect(from, to, status);
    web.routeBody(to, "<html>profile</html>");

    QString text;
    QVERIFY(fetchPage(text, from, followRedirects, nullptr, 0, 1));
    QCOMPARE(text, u"<html>profile</html>"_s);
    QCOMPARE(web.requestCount(from), 1);
    QCOMPARE(web.requestCount(to), 1);
    QCOMPARE(panel->pageCount, 1u);
    // The panel names the address that was asked for.
    QCOMPARE(panel->statusEdit->text(), u"SUCCESS: "_s + from);
}

void TestFetch::closedConnectionIsAFailure()
{
    const QString url = page(u"/hangs/up"_s);
    Answer hangUp;
    hangUp.closeConnection = true;
    web.route(url, hangUp);

    QString text;
    QString error;
    QVERIFY(!fetchPage(text, url, false, &error, 0, 1));
    QVERIFY(!error.isEmpty());
    QVERIFY(text.isEmpty());
    QCOMPARE(panel->statusEdit->text(), u"ERROR: "_s + error);
    QCOMPARE(FetchTesting::waitsSeen(), QList<int>{30});
    // However often the HTTP client tried the connection again by itself, the
    // call counts one page and pauses once.
    QVERIFY(web.requestCount(url) >= 1);
    QCOMPARE(panel->pageCount, 1u);
}

void TestFetch::sitePageIsBasePlusPath_data()
{
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("url");

    QTest::newRow("root and path") << TFM_ROOT_URL << u"/a-b/profil/spieler/7?x=1"_s
                                   << TFM_ROOT_URL + u"/a-b/profil/spieler/7?x=1"_s;
    QTest::newRow("empty base and a full address")
        << QString() << FMD_ROOT_URL + u"/19/p/1/some-player/"_s
        << FMD_ROOT_URL + u"/19/p/1/some-player/"_s;
    QTest::newRow("a path with a percent escape")
        << TFM_ROOT_URL << u"/m%C3%BCller/profil/spieler/8"_s
        << TFM_ROOT_URL + u"/m%C3%BCller/profil/spieler/8"_s;
}

void TestFetch::sitePageIsBasePlusPath()
{
    QFETCH(QString, base);
    QFETCH(QString, path);
    QFETCH(QString, url);

    web.routeBody(url, "site");
    QString text;
    QVERIFY(fetchSitePage(text, base, path, false, nullptr, 0, 1));
    QCOMPARE(text, u"site"_s);
    QCOMPARE(web.requestCount(url), 1);
    QCOMPARE(web.requests().size(), 1);
}

void TestFetch::shortFormIsOneQuietAttempt()
{
    const QString url = page(u"/short"_s);
    web.routeBody(url, "err", 500);

    QString text;
    QVERIFY(!fetchPage(text, url));
    QCOMPARE(web.requestCount(url), 1);
    QCOMPARE(FetchTesting::waitsSeen(), QList<int>{30});
    QCOMPARE(text, u"err"_s);

    web.routeBody(url, "fine");
    QVERIFY(fetchPage(text, url));
    QCOMPARE(text, u"fine"_s);
}

void TestFetch::addExpectedPageAnnouncesOne()
{
    addExpectedPage();
    addExpectedPage();
    QCOMPARE(panel->pageCountTotal, 2u);
    QCOMPARE(panel->pageCount, 0u);
}

void TestFetch::waitSecondsRecordsEachWait()
{
    bool ranInside = false;
    // Events go on while the wait lasts.
    QTimer::singleShot(0, this, [&ranInside] { ranInside = true; });
    waitSeconds(3);
    QVERIFY(ranInside);
    QCOMPARE(FetchTesting::waitsSeen(), QList<int>{3});
    FetchTesting::clearWaitsSeen();
    waitSeconds(2);
    waitSeconds(5);
    QCOMPARE(FetchTesting::waitsSeen(), (QList<int>{2, 5}));
    QCOMPARE(FetchTesting::millisecondsPerSecond(), 1);
}

void TestFetch::noStatusDisplayIsSafe()
{
    setStatusDisplay(nullptr);
    const QString good = page(u"/good"_s);
    const QString bad = page(u"/bad"_s);
    web.routeBody(good, "good");
    web.routeBody(bad, "bad", 500);

    QString text;
    QVERIFY(fetchPage(text, good, false, nullptr, 0, 1));
    QCOMPARE(text, u"good"_s);
    QVERIFY(!fetchPage(text, bad, false, nullptr, 0, 2));
    QCOMPARE(text, u"bad"_s);
    addExpectedPage();
    QCOMPARE(panel->pageCount, 0u);
    QCOMPARE(panel->pageCountTotal, 0u);
}

void TestFetch::windowTakesInputDuringTheWait()
{
    QTemporaryDir pages;
    QVERIFY(pages.isValid());
    const QString offline = pages.filePath(u"league.html"_s);
    {
        QFile file(offline);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<html><body>an offline league page</body></html>");
    }

    auto window = std::make_unique<MainWindow>();
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    // As during a run: the test slot puts these back on its way out.
    window->downloadButton->setEnabled(false);
    window->saveButton->setEnabled(false);

    // The page stays unanswered until the click is done, so that the click
    // lands in the fetch's wait however fast the machine is.
    const QString url = page(u"/slow/league"_s);
    Answer slow = answerOf(200, "<html>slow</html>");
    slow.hold = true;
    web.route(url, slow);

    bool fetchReturned = false;
    bool clickedDuringFetch = false;
    QString title;
    bool downloadBack = false;
    web.whenRequested(url, window.get(), [&] {
        answerNextFileDialog(offline);
        QTest::mouseClick(window->testLeagueButton, Qt::LeftButton);
        clickedDuringFetch = !fetchReturned;
        title = lastDialogTitle();
        downloadBack = window->downloadButton->isEnabled() && window->saveButton->isEnabled();
        web.releaseHeld();
    });

    QString text;
    QVERIFY(fetchPage(text, url, false, nullptr, 0, 1));
    fetchReturned = true;

    QVERIFY(clickedDuringFetch);
    QCOMPARE(title, u"Open Offline League Webpage"_s);
    QVERIFY(downloadBack);
    QCOMPARE(QSettings().value(u"import_path"_s).toString(), pages.path() + u'/');
    QCOMPARE(text, u"<html>slow</html>"_s);

    window.reset();
    // The window had taken the fetcher's panel for its own.
    setStatusDisplay(panel.get());
}

QM_TEST_MAIN(TestFetch)
#include "tst_fetch.moc"
