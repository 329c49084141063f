#include "app/mainwindow.h"
#include "core/constants.h"
#include "core/website.h"
#include "status/statusdisplay.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/harness.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"
#include "tests/support/windowsandbox.h"
#include "tfm/tfmteam.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <memory>

using namespace Qt::StringLiterals;

// The user closes the window while a run waits for a page. The window has no
// close handling: the last window closing ends the application's event loop,
// every wait of the run then returns at once, the run unwinds on its own, and
// the window is destroyed as at any other end, writing its settings and
// "log.txt". Nothing may crash or touch freed memory on the way.
//
// This ends the application's event loop for good, so it is a test program of
// its own with one test.
class TestCloseDuringRun : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void closeWhileTheRunWaitsForAPage();

private:
    WindowSandbox sandbox;
    FixtureWeb web;
    std::unique_ptr<FastWaits> fast;
};

void TestCloseDuringRun::initTestCase()
{
    QVERIFY(startFixtureHarness(sandbox, web));
    fast = std::make_unique<FastWaits>();
}

void TestCloseDuringRun::closeWhileTheRunWaitsForAPage()
{
    const QString first = TFM_ROOT_URL + u"/testland/erweiterterkader/verein/900"_s;
    const QString second = TFM_ROOT_URL + u"/otherland/erweiterterkader/verein/950"_s;
    web.routeFile(first, u"tfm/harvest_national_testland.html"_s);
    // The second page is never answered: only the end of the event loop lets the
    // run go past it.
    FixtureWeb::Answer held;
    held.body = fixtureBytes(u"tfm/harvest_national_otherland.html"_s);
    held.hold = true;
    web.route(second, held);

    auto window = std::make_unique<MainWindow>();
    window->websiteBox->setCurrentIndex(TransferMarkt);
    window->downloadPlayerDetailsBox->setChecked(false);
    window->urlInput->setPlainText(first + u'\n' + second);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));

    // Once the first page is in, the user closes the window while the run waits
    // for the second: the close arrives through the wait's own event loop, as
    // the click on the title bar's button would.
    QMetaObject::Connection once;
    once = connect(window->statusPanel->statusEdit, &QLineEdit::textChanged, window.get(), [&] {
        disconnect(once);
        QTimer::singleShot(0, window.get(), [&] { window->windowHandle()->close(); });
    });
    bool runReturned = false;
    QTimer::singleShot(0, window.get(), [&] {
        window->downloadButton->click();
        runReturned = true;
    });

    QCOMPARE(QCoreApplication::exec(), 0);

    QVERIFY(runReturned);
    QVERIFY(!window->isVisible());
    const QStringList lines = logLines(window->logBox);
    QVERIFY(lines.contains(u"Downloading 2 team page(s)"_s));
    QVERIFY(window->logBox->toPlainText().contains(u"Testland"_s));
    QVERIFY(!window->logBox->toPlainText().contains(u"Otherland"_s));
    // The run ends as any other, with its closing line and two empty ones.
    QCOMPARE(lines.mid(lines.size() - 3),
             (QStringList{u"----- PROCESS COMPLETE -----"_s, QString(), QString()}));
    QCOMPARE(web.requestCount(first), 1);

    window.reset();

    QFile log(u"log.txt"_s);
    QVERIFY(log.open(QIODevice::ReadOnly));
    const QByteArray written = log.readAll();
    QVERIFY(written.contains("Downloading 2 team page(s)"));
    QVERIFY(written.trimmed().endsWith("----- PROCESS COMPLETE -----"));
    QCOMPARE(QSettings().value(u"website"_s).toInt(), int(TransferMarkt));
    QCOMPARE(QSettings().value(u"download_player_data"_s).toBool(), false);
}

QM_TEST_MAIN(TestCloseDuringRun)
#include "tst_closeduringrun.moc"
