#include "app/mainwindow.h"
#include "core/constants.h"
#include "core/fetchtesting.h"
#include "core/sharedstate.h"
#include "proxy/proxy.h"
#include "status/statusdisplay.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/harness.h"
#include "tests/support/testmain.h"
#include "tests/support/windowsandbox.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QNetworkProxy>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString echoAnswer = u"203.0.113.7"_s;

QString checkingLine()
{
    return u"Checking IP address using "_s + IP_ECHO_URL + u". Please wait..."_s;
}

QString offlineLine()
{
    return u"Error! Unable to check IP address. Either the IP address/proxy is invalid or "_s
        + IP_ECHO_URL + u" is offline."_s;
}

// The address line takes a second arg with the answer's length, which finds no
// marker left: Qt says so, and the warning proves the call was made.
void expectSecondArg(const QString &answer)
{
    const QString warning
        = u"QString::arg: Argument missing: \"Your IP address: %1\" , %2"_s.arg(answer).arg(
            answer.size());
    QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
}

QString patternOf(const QLineEdit *edit)
{
    const auto *validator = qobject_cast<const QRegularExpressionValidator *>(edit->validator());
    return validator ? validator->regularExpression().pattern() : QString();
}

} // namespace

class TestProxy : public QObject
{
    Q_OBJECT

private:
    WindowSandbox sandbox;
    FixtureWeb web;
    std::unique_ptr<FastWaits> fast;
    std::unique_ptr<MainWindow> window;

    void openWindow();
    void closeWindow();
    Proxy *proxy() const { return window->proxy; }
    QString log() const { return window->logBox->toPlainText(); }
    // Checks the box and points the row at the fixture proxy.
    void useFixtureProxy();
    void pressTest();
    // Presses "Test" when the echo answers with answer.
    void pressTestAnswered(const QString &answer = echoAnswer);

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void cleanStoreShowsDefaults();
    void rowHoldsItsWidgetsInOrder();
    void validatorsTakeThePatternsAsTheyStand();
    void validatorsJudgeTyping_data();
    void validatorsJudgeTyping();
    void boxEnablesTheFields();
    void storedProxyIsShownButNotUsed();
    void settingsRoundTrip();
    void testGoesThroughTheProxy();
    void echoFailureIsReported();
    void errorBodyCountsAsTheAnswer();
    void markerInTheAnswerTakesTheLength();
    void doneResetsThePanelCounters();
    void portIsCutTo16Bits_data();
    void portIsCutTo16Bits();
    void cutPortStillReachesTheProxy();
    void halfCredentialsKeepEarlierOnes();
    void uncheckedTestTakesTheProxyOff();
};

void TestProxy::initTestCase()
{
    QVERIFY(startFixtureHarness(sandbox, web));
}

void TestProxy::init()
{
    QSettings().clear();
    resetFixtureWeb(web);
    web.routeBody(IP_ECHO_URL, echoAnswer.toUtf8());
    fast = std::make_unique<FastWaits>();
}

void TestProxy::cleanup()
{
    closeWindow();
    fast.reset();
}

void TestProxy::openWindow()
{
    window = std::make_unique<MainWindow>();
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
}

void TestProxy::closeWindow()
{
    window.reset();
}

void TestProxy::useFixtureProxy()
{
    proxy()->enabledBox->setChecked(true);
    proxy()->hostEdit->setText(u"127.0.0.1"_s);
    proxy()->portEdit->setText(QString::number(web.proxyPort()));
}

void TestProxy::pressTest()
{
    QTest::mouseClick(proxy()->testButton, Qt::LeftButton);
}

void TestProxy::pressTestAnswered(const QString &answer)
{
    expectSecondArg(answer);
    pressTest();
}

void TestProxy::cleanStoreShowsDefaults()
{
    const QNetworkProxy before = QNetworkProxy::applicationProxy();
    openWindow();

    QVERIFY(!proxy()->enabledBox->isChecked());
    QCOMPARE(proxy()->hostEdit->text(), u"0.0.0.0"_s);
    QCOMPARE(proxy()->portEdit->text(), u"80"_s);
    QVERIFY(proxy()->userEdit->text().isEmpty());
    QVERIFY(proxy()->passwordEdit->text().isEmpty());
    QVERIFY(!proxy()->hostEdit->isEnabled());
    QVERIFY(!proxy()->portEdit->isEnabled());
    QVERIFY(!proxy()->userEdit->isEnabled());
    QVERIFY(!proxy()->passwordEdit->isEnabled());
    QVERIFY(proxy()->testButton->isEnabled());
    // The password is shown in clear.
    QCOMPARE(proxy()->passwordEdit->echoMode(), QLineEdit::Normal);
    QCOMPARE(proxy()->ipEchoUrl, IP_ECHO_URL);
    // Nothing goes out at start, and the proxy in force is left alone.
    QVERIFY(web.requests().isEmpty());
    QVERIFY(web.proxyTargets().isEmpty());
    QCOMPARE(QNetworkProxy::applicationProxy(), before);
}

void TestProxy::rowHoldsItsWidgetsInOrder()
{
    openWindow();
    auto *group = qobject_cast<QGroupBox *>(proxy()->parentWidget());
    QVERIFY(group);
    QCOMPARE(group->title(), u"Proxy Settings"_s);

    QLayout *layout = proxy()->layout();
    QVERIFY(qobject_cast<QHBoxLayout *>(layout));
    QStringList seen;
    for (int i = 0; i < layout->count(); ++i) {
        QWidget *widget = layout->itemAt(i)->widget();
        QVERIFY(widget);
        if (auto *label = qobject_cast<QLabel *>(widget))
            seen.append(u"label "_s + label->text());
        else if (widget == proxy()->enabledBox)
            seen.append(u"enabledBox"_s);
        else if (widget == proxy()->hostEdit)
            seen.append(u"hostEdit"_s);
        else if (widget == proxy()->portEdit)
            seen.append(u"portEdit"_s);
        else if (widget == proxy()->userEdit)
            seen.append(u"userEdit"_s);
        else if (widget == proxy()->passwordEdit)
            seen.append(u"passwordEdit"_s);
        else if (widget == proxy()->testButton)
            seen.append(u"testButton"_s);
        else
            seen.append(u"something else"_s);
    }
    QCOMPARE(seen,
             (QStringList{u"enabledBox"_s, u"label IP Address:"_s, u"hostEdit"_s, u"label Port:"_s,
                          u"portEdit"_s, u"label Username (optional):"_s, u"userEdit"_s,
                          u"label Password (optional):"_s, u"passwordEdit"_s, u"testButton"_s}));
    QVERIFY(proxy()->enabledBox->text().isEmpty());
    QCOMPARE(proxy()->testButton->text(), u"Test"_s);
}

void TestProxy::validatorsTakeThePatternsAsTheyStand()
{
    openWindow();
    QCOMPARE(
        patternOf(proxy()->hostEdit),
        u"^((25[0-5]|2[0-4][0-9]|[01]?[0-9][0-9]?).){3}(25[0-5]|2[0-4][0-9]|[01]?[0-9][0-9]?)$"_s);
    QCOMPARE(patternOf(proxy()->portEdit), u"([0-9]){10}"_s);
    QVERIFY(patternOf(proxy()->userEdit).isEmpty());
    QVERIFY(patternOf(proxy()->passwordEdit).isEmpty());
}

void TestProxy::validatorsJudgeTyping_data()
{
    QTest::addColumn<bool>("port");
    QTest::addColumn<QString>("input");
    QTest::addColumn<int>("state");

    QTest::newRow("an address") << false << u"127.0.0.1"_s << int(QValidator::Acceptable);
    QTest::newRow("any character separates the parts")
        << false << u"10x0-0:1"_s << int(QValidator::Acceptable);
    QTest::newRow("an address half typed") << false << u"127.0."_s << int(QValidator::Intermediate);
    QTest::newRow("letters for an address") << false << u"proxy"_s << int(QValidator::Invalid);
    QTest::newRow("a usual port stays intermediate")
        << true << u"1080"_s << int(QValidator::Intermediate);
    QTest::newRow("ten digits") << true << u"1234567890"_s << int(QValidator::Acceptable);
    QTest::newRow("an eleventh digit") << true << u"12345678901"_s << int(QValidator::Invalid);
    QTest::newRow("a letter in the port") << true << u"80a"_s << int(QValidator::Invalid);
}

void TestProxy::validatorsJudgeTyping()
{
    QFETCH(bool, port);
    QFETCH(QString, input);
    QFETCH(int, state);

    openWindow();
    QLineEdit *edit = port ? proxy()->portEdit : proxy()->hostEdit;
    int position = 0;
    QCOMPARE(int(edit->validator()->validate(input, position)), state);
}

void TestProxy::boxEnablesTheFields()
{
    openWindow();
    const QList<QLineEdit *> fields{proxy()->hostEdit, proxy()->portEdit, proxy()->userEdit,
                                    proxy()->passwordEdit};
    QTest::mouseClick(proxy()->enabledBox, Qt::LeftButton);
    QVERIFY(proxy()->enabledBox->isChecked());
    for (QLineEdit *field : fields)
        QVERIFY(field->isEnabled());
    QVERIFY(proxy()->testButton->isEnabled());

    QTest::mouseClick(proxy()->enabledBox, Qt::LeftButton);
    QVERIFY(!proxy()->enabledBox->isChecked());
    for (QLineEdit *field : fields)
        QVERIFY(!field->isEnabled());
    QVERIFY(proxy()->testButton->isEnabled());
}

void TestProxy::storedProxyIsShownButNotUsed()
{
    {
        QSettings settings;
        settings.setValue(u"proxy_enabled"_s, true);
        settings.setValue(u"proxy_host_name"_s, u"127.0.0.1"_s);
        settings.setValue(u"proxy_port"_s, u"1080"_s);
        settings.setValue(u"proxy_username"_s, u"user"_s);
        settings.setValue(u"proxy_password"_s, u"word"_s);
    }
    const QNetworkProxy before = QNetworkProxy::applicationProxy();
    openWindow();

    QVERIFY(proxy()->enabledBox->isChecked());
    QVERIFY(proxy()->hostEdit->isEnabled());
    QVERIFY(proxy()->portEdit->isEnabled());
    QVERIFY(proxy()->userEdit->isEnabled());
    QVERIFY(proxy()->passwordEdit->isEnabled());
    QCOMPARE(proxy()->hostEdit->text(), u"127.0.0.1"_s);
    QCOMPARE(proxy()->portEdit->text(), u"1080"_s);
    QCOMPARE(proxy()->userEdit->text(), u"user"_s);
    QCOMPARE(proxy()->passwordEdit->text(), u"word"_s);
    // Shown, but not in force until "Test" is pressed.
    QCOMPARE(QNetworkProxy::applicationProxy(), before);
    QCOMPARE(proxy()->networkProxy, QNetworkProxy());
    QVERIFY(web.requests().isEmpty());
    QVERIFY(web.proxyTargets().isEmpty());
}

void TestProxy::settingsRoundTrip()
{
    openWindow();
    proxy()->enabledBox->setChecked(true);
    proxy()->hostEdit->setText(u"10.1.2.3"_s);
    proxy()->portEdit->clear();
    QTest::keyClicks(proxy()->portEdit, u"9050"_s);
    QCOMPARE(proxy()->portEdit->text(), u"9050"_s);
    proxy()->userEdit->setText(u"someone"_s);
    proxy()->passwordEdit->setText(u"in clear"_s);
    closeWindow();

    {
        QSettings settings;
        QCOMPARE(settings.value(u"proxy_enabled"_s).toBool(), true);
        QCOMPARE(settings.value(u"proxy_host_name"_s).toString(), u"10.1.2.3"_s);
        // The port is written as the field's text.
        QCOMPARE(settings.value(u"proxy_port"_s).typeId(), int(QMetaType::QString));
        QCOMPARE(settings.value(u"proxy_port"_s).toString(), u"9050"_s);
        QCOMPARE(settings.value(u"proxy_username"_s).toString(), u"someone"_s);
        QCOMPARE(settings.value(u"proxy_password"_s).toString(), u"in clear"_s);
    }

    openWindow();
    QVERIFY(proxy()->enabledBox->isChecked());
    QVERIFY(proxy()->hostEdit->isEnabled());
    QCOMPARE(proxy()->hostEdit->text(), u"10.1.2.3"_s);
    QCOMPARE(proxy()->portEdit->text(), u"9050"_s);
    QCOMPARE(proxy()->userEdit->text(), u"someone"_s);
    QCOMPARE(proxy()->passwordEdit->text(), u"in clear"_s);

    proxy()->enabledBox->setChecked(false);
    closeWindow();
    QCOMPARE(QSettings().value(u"proxy_enabled"_s).toBool(), false);
    QCOMPARE(QSettings().value(u"proxy_host_name"_s).toString(), u"10.1.2.3"_s);
}

void TestProxy::testGoesThroughTheProxy()
{
    openWindow();
    useFixtureProxy();
    QSignalSpy done(proxy(), &Proxy::done);
    QSignalSpy output(proxy(), &Proxy::output);

    pressTestAnswered();

    QCOMPARE(done.size(), 1);
    QCOMPARE(output.size(), 2);
    QCOMPARE(log(), checkingLine() + u'\n' + u"Your IP address: "_s + echoAnswer);
    QCOMPARE(web.proxyTargets(), QStringList{u"api.ipify.org:443"_s});
    QCOMPARE(web.requestCount(IP_ECHO_URL), 1);
    QCOMPARE(web.requests().size(), 1);

    const QNetworkProxy inForce = QNetworkProxy::applicationProxy();
    QCOMPARE(inForce.type(), QNetworkProxy::Socks5Proxy);
    QCOMPARE(inForce.hostName(), u"127.0.0.1"_s);
    QCOMPARE(inForce.port(), web.proxyPort());
    QVERIFY(inForce.user().isEmpty());
    QCOMPARE(proxy()->networkProxy, inForce);
    QCOMPARE(window->statusPanel->statusEdit->text(), u"SUCCESS: "_s + IP_ECHO_URL);
}

void TestProxy::echoFailureIsReported()
{
    web.routeBody(IP_ECHO_URL, QByteArray(), 503);
    openWindow();
    useFixtureProxy();
    QSignalSpy done(proxy(), &Proxy::done);

    pressTest();

    QCOMPARE(log(), checkingLine() + u'\n' + offlineLine());
    QCOMPARE(done.size(), 1);
    QCOMPARE(web.requestCount(IP_ECHO_URL), 1);
    // The failure took the fetcher's pause.
    QCOMPARE(FetchTesting::waitsSeen(), QList<int>{30});
    QVERIFY(window->statusPanel->statusEdit->text().startsWith(u"ERROR: "_s));
}

void TestProxy::errorBodyCountsAsTheAnswer()
{
    web.routeBody(IP_ECHO_URL, "<html>oops</html>", 500);
    openWindow();
    useFixtureProxy();

    pressTestAnswered(u"<html>oops</html>"_s);

    QCOMPARE(log(), checkingLine() + u"\nYour IP address: <html>oops</html>"_s);
}

void TestProxy::markerInTheAnswerTakesTheLength()
{
    // The second arg finds the marker that came with the answer and puts the
    // answer's length there: "10.0.0.%1" has nine characters.
    web.routeBody(IP_ECHO_URL, "10.0.0.%1");
    openWindow();
    useFixtureProxy();

    pressTest();

    QCOMPARE(log(), checkingLine() + u"\nYour IP address: 10.0.0.9"_s);
}

void TestProxy::doneResetsThePanelCounters()
{
    openWindow();
    StatusDisplay *panel = window->statusPanel;
    panel->incrementPageCountTotal(5);
    panel->increment(2048);
    QCOMPARE(panel->pagesEdit->text(), u"1 of 5"_s);
    useFixtureProxy();

    QSignalSpy done(proxy(), &Proxy::done);
    pressTestAnswered();

    QCOMPARE(done.size(), 1);
    QCOMPARE(panel->pageCount, 0u);
    QCOMPARE(panel->pageCountTotal, 0u);
    QCOMPARE(panel->downloadedKb, 0u);
    QVERIFY(panel->pagesEdit->text().isEmpty());
    QVERIFY(panel->downloadedEdit->text().isEmpty());
    // The status line is not cleared.
    QCOMPARE(panel->statusEdit->text(), u"SUCCESS: "_s + IP_ECHO_URL);
}

void TestProxy::portIsCutTo16Bits_data()
{
    QTest::addColumn<QString>("port");
    QTest::addColumn<int>("sent");

    QTest::newRow("70000 wraps to 4464") << u"70000"_s << 4464;
    QTest::newRow("65536 wraps to 0") << u"65536"_s << 0;
    QTest::newRow("not a number gives 0") << u"socks"_s << 0;
    QTest::newRow("past 32 bits gives 0") << u"4294967296"_s << 0;
    QTest::newRow("minus one wraps to 65535") << u"-1"_s << 65535;
}

void TestProxy::portIsCutTo16Bits()
{
    QFETCH(QString, port);
    QFETCH(int, sent);

    openWindow();
    useFixtureProxy();
    proxy()->portEdit->setText(port);

    pressTest();

    QCOMPARE(int(QNetworkProxy::applicationProxy().port()), sent);
    QCOMPARE(int(proxy()->networkProxy.port()), sent);
    // Whatever answered on that port, it was not the fixture proxy.
    if (sent != web.proxyPort())
        QVERIFY(web.proxyTargets().isEmpty());
}

void TestProxy::cutPortStillReachesTheProxy()
{
    openWindow();
    useFixtureProxy();
    proxy()->portEdit->clear();
    // Typed as a person would: the validator lets the digits through.
    QTest::keyClicks(proxy()->portEdit, QString::number(65536 + int(web.proxyPort())));

    pressTestAnswered();

    QCOMPARE(QNetworkProxy::applicationProxy().port(), web.proxyPort());
    QCOMPARE(web.proxyTargets(), QStringList{u"api.ipify.org:443"_s});
    QCOMPARE(log(), checkingLine() + u"\nYour IP address: "_s + echoAnswer);
}

void TestProxy::halfCredentialsKeepEarlierOnes()
{
    openWindow();
    useFixtureProxy();
    proxy()->userEdit->setText(u"alice"_s);
    proxy()->passwordEdit->setText(u"secret"_s);
    pressTestAnswered();
    QCOMPARE(QNetworkProxy::applicationProxy().user(), u"alice"_s);
    QCOMPARE(QNetworkProxy::applicationProxy().password(), u"secret"_s);
    const QList<QPair<QString, QString>> alice{{u"alice"_s, u"secret"_s}};
    QCOMPARE(web.proxyLogins(), alice);

    struct Half
    {
        QString user;
        QString password;
    };
    // A user without a password, a password without a user, and the user name
    // cleared: none is applied, and alice stays in force.
    for (const Half &half :
         {Half{u"bob"_s, QString()}, Half{QString(), u"other"_s}, Half{QString(), QString()}}) {
        web.clearRequests();
        proxy()->userEdit->setText(half.user);
        proxy()->passwordEdit->setText(half.password);
        pressTestAnswered();
        QCOMPARE(QNetworkProxy::applicationProxy().user(), u"alice"_s);
        QCOMPARE(QNetworkProxy::applicationProxy().password(), u"secret"_s);
        QCOMPARE(web.proxyLogins(), alice);
        QVERIFY(log().endsWith(u"Your IP address: "_s + echoAnswer));
    }
}

void TestProxy::uncheckedTestTakesTheProxyOff()
{
    openWindow();
    // A first test with the box checked leaves its values in the row's proxy.
    useFixtureProxy();
    pressTestAnswered();
    const QNetworkProxy earlier = proxy()->networkProxy;
    QCOMPARE(earlier.port(), web.proxyPort());

    QNetworkProxy::setApplicationProxy(QNetworkProxy());
    const QNetworkProxy none = QNetworkProxy::applicationProxy();
    web.useAsApplicationProxy();

    // The echo request must not leave the machine: as soon as the row has
    // taken the proxy off, the fixture proxy goes back in force, before the
    // fetch begins.
    QNetworkProxy seen;
    connect(proxy(), &Proxy::output, this, [&](const QString &text) {
        if (text == checkingLine()) {
            seen = QNetworkProxy::applicationProxy();
            web.useAsApplicationProxy();
        }
    });
    proxy()->enabledBox->setChecked(false);
    web.clearRequests();
    window->logBox->clear();

    pressTestAnswered();

    QCOMPARE(seen, none);
    QCOMPARE(seen.type(), QNetworkProxy::NoProxy);
    QCOMPARE(proxy()->networkProxy, earlier);
    QCOMPARE(log(), checkingLine() + u"\nYour IP address: "_s + echoAnswer);
}

QM_TEST_MAIN(TestProxy)
#include "tst_proxy.moc"
