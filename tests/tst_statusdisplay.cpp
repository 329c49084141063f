#include "status/statusdisplay.h"
#include "tests/support/testmain.h"

#include <QBoxLayout>
#include <QBuffer>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QRegularExpression>
#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

// The panel's figures, its time format and estimate, and the log file header.
// Nothing here waits for time to pass: the estimate is checked through
// estimateRemaining() with the elapsed time given.
class TestStatusDisplay : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void layout();
    void fieldsStartEmpty();

    void formatTime_data();
    void formatTime();

    void estimate_data();
    void estimate();

    void incrementPageCountTotalDoesNotRedraw();
    void incrementShowsPagesAndPercent_data();
    void incrementShowsPagesAndPercent();
    void downloadedDropsEachPagesRemainder();
    void downloadedUsesGroupSeparator_data();
    void downloadedUsesGroupSeparator();
    void downloadedSumsInSinglePrecision();
    void incrementWithNothingAnnouncedIsInfinite();

    void stopEndsAtFullProgress();
    void stopWithNoPageShowsZeroTime();
    void stopDoesNotStopTimer();
    void resetClearsFiguresButNotStatusOrTimer();
    void resetDuringRunThenStop();
    void startClearsFiguresAndStartsTimer();
    void startKeepsError();

    void showErrorAndSuccess();
    void writeLogHeader();
};

void TestStatusDisplay::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestStatusDisplay::cleanup()
{
    QLocale::setDefault(QLocale::c());
}

static QString labelText(QLayoutItem *item)
{
    auto *label = item ? qobject_cast<QLabel *>(item->widget()) : nullptr;
    return label ? label->text() : QString();
}

void TestStatusDisplay::layout()
{
    StatusDisplay panel;
    QCOMPARE(panel.contentsMargins(), QMargins(0, 0, 0, 0));

    auto *rows = qobject_cast<QVBoxLayout *>(panel.layout());
    QVERIFY(rows);
    QCOMPARE(rows->count(), 2);
    QCOMPARE(rows->contentsMargins(), QMargins(0, 0, 0, 0));

    auto *statusRow = qobject_cast<QHBoxLayout *>(rows->itemAt(0)->layout());
    QVERIFY(statusRow);
    QCOMPARE(statusRow->count(), 2);
    QCOMPARE(labelText(statusRow->itemAt(0)), u"Status:"_s);
    QCOMPARE(statusRow->stretch(0), 1);
    QCOMPARE(statusRow->itemAt(0)->alignment(), Qt::AlignRight);
    QCOMPARE(statusRow->itemAt(1)->widget(), panel.statusEdit);
    QCOMPARE(statusRow->stretch(1), 100);
    QCOMPARE(statusRow->itemAt(1)->alignment(), Qt::AlignRight);
    QCOMPARE(panel.statusEdit->minimumWidth(), 797);
    QCOMPARE(panel.statusEdit->sizePolicy().horizontalPolicy(), QSizePolicy::MinimumExpanding);
    QCOMPARE(panel.statusEdit->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);

    auto *figuresRow = qobject_cast<QHBoxLayout *>(rows->itemAt(1)->layout());
    QVERIFY(figuresRow);
    const QStringList labels = {u"Pages processed:"_s, u"Progress:"_s, u"Downloaded:"_s,
                                u"Time elapsed:"_s, u"Time remaining:"_s};
    const QList<QLineEdit *> edits = {panel.pagesEdit, panel.progressEdit, panel.downloadedEdit,
                                      panel.elapsedEdit, panel.remainingEdit};
    QCOMPARE(figuresRow->count(), 10);
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(labelText(figuresRow->itemAt(2 * i)), labels.at(i));
        QCOMPARE(figuresRow->itemAt(2 * i + 1)->widget(), edits.at(i));
        for (int k = 2 * i; k <= 2 * i + 1; ++k) {
            QCOMPARE(figuresRow->stretch(k), 0);
            QCOMPARE(figuresRow->itemAt(k)->alignment(), Qt::AlignRight);
        }
    }
    for (QLineEdit *edit : edits)
        QVERIFY(edit->isReadOnly());
    QVERIFY(panel.statusEdit->isReadOnly());
}

void TestStatusDisplay::fieldsStartEmpty()
{
    StatusDisplay panel;
    for (QLineEdit *edit : {panel.pagesEdit, panel.downloadedEdit, panel.progressEdit,
                            panel.elapsedEdit, panel.remainingEdit, panel.statusEdit})
        QVERIFY(edit->text().isEmpty());
    QCOMPARE(panel.pageCount, 0u);
    QCOMPARE(panel.pageCountTotal, 0u);
    QCOMPARE(panel.downloadedKb, 0u);
    QCOMPARE(panel.progressPercent, 0.0f);
    QVERIFY(!panel.timer.isValid());
}

void TestStatusDisplay::formatTime_data()
{
    QTest::addColumn<qint64>("milliseconds");
    QTest::addColumn<QString>("expected");

    QTest::newRow("zero") << qint64(0) << u"00:00"_s;
    QTest::newRow("under a second") << qint64(999) << u"00:00"_s;
    QTest::newRow("one second") << qint64(1000) << u"00:01"_s;
    QTest::newRow("seventy-five seconds") << qint64(75000) << u"01:15"_s;
    QTest::newRow("fifteen seconds") << qint64(15000) << u"00:15"_s;
    QTest::newRow("just under an hour") << qint64(3599999) << u"59:59"_s;
    QTest::newRow("one hour switches to three parts") << qint64(3600000) << u"01:00:00"_s;
    QTest::newRow("two hours and a bit") << qint64(7205000) << u"02:00:05"_s;
    QTest::newRow("ten hours") << qint64(36000000 + 61000) << u"10:01:01"_s;
    QTest::newRow("three-digit hours widen the field") << qint64(360000000) << u"100:00:00"_s;
    // 2^24 ms, about 4.66 hours, is the last whole number single precision holds
    // exactly; above it 16779999 ms is rounded to 16780000 before the split.
    QTest::newRow("exact at 2^24 ms") << qint64(16777216) << u"04:39:37"_s;
    QTest::newRow("rounded past single precision") << qint64(16779999) << u"04:39:40"_s;
    // A wrapped-around estimate: 4294967296 pages left at 200 ms each.
    QTest::newRow("wrapped estimate") << qint64(858993459200) << u"238609:17:00"_s;
}

void TestStatusDisplay::formatTime()
{
    QFETCH(qint64, milliseconds);
    QFETCH(QString, expected);
    QCOMPARE(::formatTime(float(milliseconds)), expected);
}

void TestStatusDisplay::estimate_data()
{
    QTest::addColumn<qint64>("elapsed");
    QTest::addColumn<quint32>("done");
    QTest::addColumn<quint32>("total");
    QTest::addColumn<float>("expected");
    QTest::addColumn<QString>("shown");

    QTest::newRow("first page of four took 5000 ms")
        << qint64(5000) << 1u << 4u << 15000.0f << u"00:15"_s;
    QTest::newRow("average drops the remainder")
        << qint64(10001) << 3u << 5u << 6666.0f << u"00:06"_s;
    QTest::newRow("all pages done") << qint64(90000) << 4u << 4u << 0.0f << u"00:00"_s;
    QTest::newRow("no page finished takes 0 ms a page")
        << qint64(5000) << 0u << 10u << 0.0f << u"00:00"_s;
    QTest::newRow("no page finished, none announced")
        << qint64(5000) << 0u << 0u << 0.0f << u"00:00"_s;
    QTest::newRow("more finished than announced wraps around")
        << qint64(1000) << 5u << 3u << 858993459200.0f << u"238609:17:00"_s;
    QTest::newRow("past one hour") << qint64(600000) << 1u << 7u << 3600000.0f << u"01:00:00"_s;
}

void TestStatusDisplay::estimate()
{
    QFETCH(qint64, elapsed);
    QFETCH(quint32, done);
    QFETCH(quint32, total);
    QFETCH(float, expected);
    QFETCH(QString, shown);

    const float remaining = estimateRemaining(elapsed, done, total);
    QCOMPARE(remaining, expected);
    QCOMPARE(::formatTime(remaining), shown);
}

void TestStatusDisplay::incrementPageCountTotalDoesNotRedraw()
{
    StatusDisplay panel;
    panel.start();
    panel.incrementPageCountTotal(4);
    panel.incrementPageCountTotal(6);
    QCOMPARE(panel.pageCountTotal, 10u);
    QVERIFY(panel.pagesEdit->text().isEmpty());
    QVERIFY(panel.progressEdit->text().isEmpty());
}

void TestStatusDisplay::incrementShowsPagesAndPercent_data()
{
    QTest::addColumn<quint32>("total");
    QTest::addColumn<int>("pages");
    QTest::addColumn<QString>("shownPages");
    QTest::addColumn<QString>("shownPercent");

    QTest::newRow("3 of 10") << 10u << 3 << u"3 of 10"_s << u"30.00 %"_s;
    QTest::newRow("below ten per cent") << 200u << 11 << u"11 of 200"_s << u"5.50 %"_s;
    QTest::newRow("one of three") << 3u << 1 << u"1 of 3"_s << u"33.33 %"_s;
    QTest::newRow("all done") << 4u << 4 << u"4 of 4"_s << u"100.00 %"_s;
    QTest::newRow("more than announced") << 2u << 3 << u"3 of 2"_s << u"150.00 %"_s;
}

void TestStatusDisplay::incrementShowsPagesAndPercent()
{
    QFETCH(quint32, total);
    QFETCH(int, pages);
    QFETCH(QString, shownPages);
    QFETCH(QString, shownPercent);

    StatusDisplay panel;
    panel.start();
    panel.incrementPageCountTotal(int(total));
    for (int i = 0; i < pages; ++i)
        panel.increment(100);
    QCOMPARE(panel.pageCount, quint32(pages));
    QCOMPARE(panel.pagesEdit->text(), shownPages);
    QCOMPARE(panel.progressEdit->text(), shownPercent);
    QVERIFY(!panel.elapsedEdit->text().isEmpty());
    QVERIFY(!panel.remainingEdit->text().isEmpty());
}

void TestStatusDisplay::downloadedDropsEachPagesRemainder()
{
    StatusDisplay panel;
    panel.start();
    panel.incrementPageCountTotal(103);
    panel.increment(1023);
    QCOMPARE(panel.downloadedKb, 0u);
    QCOMPARE(panel.downloadedEdit->text(), u"0 kb"_s);
    for (int i = 1; i < 100; ++i)
        panel.increment(1023);
    QCOMPARE(panel.downloadedKb, 0u);
    QCOMPARE(panel.downloadedEdit->text(), u"0 kb"_s);

    panel.increment(1024);
    panel.increment(2047);
    panel.increment(5000);
    QCOMPARE(panel.downloadedKb, 6u);
    QCOMPARE(panel.downloadedEdit->text(), u"6 kb"_s);
}

void TestStatusDisplay::downloadedUsesGroupSeparator_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("expected");
    QTest::newRow("C locale has none") << QLocale::c() << u"1234 kb"_s;
    QTest::newRow("English comma")
        << QLocale(QLocale::English, QLocale::UnitedStates) << u"1,234 kb"_s;
    QTest::newRow("German point") << QLocale(QLocale::German, QLocale::Germany) << u"1.234 kb"_s;
}

void TestStatusDisplay::downloadedUsesGroupSeparator()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, expected);

    QLocale::setDefault(locale);
    StatusDisplay panel;
    panel.start();
    panel.incrementPageCountTotal(1);
    panel.increment(1234 * 1024);
    QCOMPARE(panel.downloadedEdit->text(), expected);
}

void TestStatusDisplay::downloadedSumsInSinglePrecision()
{
    // Past 2^24 kb a float can't hold the next whole number: one more kb is lost.
    StatusDisplay panel;
    panel.start();
    panel.incrementPageCountTotal(2);
    panel.downloadedKb = 16777216;
    panel.increment(1024);
    QCOMPARE(panel.downloadedKb, 16777216u);
    panel.increment(2048);
    QCOMPARE(panel.downloadedKb, 16777218u);
}

void TestStatusDisplay::incrementWithNothingAnnouncedIsInfinite()
{
    // What the proxy test does outside a run; its end resets the panel.
    StatusDisplay panel;
    panel.reset();
    panel.increment(10);
    QVERIFY(std::isinf(panel.progressPercent));
    QCOMPARE(panel.pagesEdit->text(), u"1 of 0"_s);
    QVERIFY(panel.progressEdit->text().contains(u"inf"_s));

    panel.reset();
    QCOMPARE(panel.progressPercent, 0.0f);
    QVERIFY(panel.progressEdit->text().isEmpty());
}

void TestStatusDisplay::stopEndsAtFullProgress()
{
    StatusDisplay panel;
    panel.start();
    panel.incrementPageCountTotal(10);
    panel.increment(2048);
    panel.increment(2048);
    panel.stop();
    QCOMPARE(panel.pageCount, 10u);
    QCOMPARE(panel.progressPercent, 100.0f);
    QCOMPARE(panel.pagesEdit->text(), u"10 of 10"_s);
    QCOMPARE(panel.progressEdit->text(), u"100.00 %"_s);
    QCOMPARE(panel.downloadedEdit->text(), u"4 kb"_s);
    QCOMPARE(panel.remainingEdit->text(), u"00:00"_s);
}

void TestStatusDisplay::stopWithNoPageShowsZeroTime()
{
    // A run that announced no page and fetched none stops at once.
    StatusDisplay panel;
    panel.start();
    panel.stop();
    QCOMPARE(panel.pagesEdit->text(), u"0 of 0"_s);
    QCOMPARE(panel.progressEdit->text(), u"100.00 %"_s);
    QCOMPARE(panel.downloadedEdit->text(), u"0 kb"_s);
    QCOMPARE(panel.remainingEdit->text(), u"00:00"_s);
    QVERIFY(!panel.elapsedEdit->text().isEmpty());
}

void TestStatusDisplay::stopDoesNotStopTimer()
{
    StatusDisplay panel;
    panel.start();
    const qint64 started = panel.timer.msecsSinceReference();
    panel.stop();
    QVERIFY(panel.timer.isValid());
    QCOMPARE(panel.timer.msecsSinceReference(), started);
}

void TestStatusDisplay::resetClearsFiguresButNotStatusOrTimer()
{
    StatusDisplay panel;
    panel.start();
    const qint64 started = panel.timer.msecsSinceReference();
    panel.showError(u"Host not found"_s);
    panel.incrementPageCountTotal(5);
    panel.increment(4096);
    panel.increment(4096);
    QVERIFY(!panel.pagesEdit->text().isEmpty());

    panel.reset();
    for (QLineEdit *edit : {panel.pagesEdit, panel.downloadedEdit, panel.progressEdit,
                            panel.elapsedEdit, panel.remainingEdit})
        QVERIFY(edit->text().isEmpty());
    QCOMPARE(panel.pageCount, 0u);
    QCOMPARE(panel.pageCountTotal, 0u);
    QCOMPARE(panel.downloadedKb, 0u);
    QCOMPARE(panel.progressPercent, 0.0f);
    QCOMPARE(panel.statusEdit->text(), u"ERROR: Host not found"_s);
    QCOMPARE(panel.timer.msecsSinceReference(), started);
}

void TestStatusDisplay::resetDuringRunThenStop()
{
    // The proxy test's end zeroes the counters of a run; the run's stop then
    // finds no page at all and must still show its figures.
    StatusDisplay panel;
    panel.start();
    panel.incrementPageCountTotal(3);
    panel.increment(100);
    panel.reset();
    panel.stop();
    QCOMPARE(panel.pagesEdit->text(), u"0 of 0"_s);
    QCOMPARE(panel.progressEdit->text(), u"100.00 %"_s);
    QCOMPARE(panel.remainingEdit->text(), u"00:00"_s);
}

void TestStatusDisplay::startClearsFiguresAndStartsTimer()
{
    StatusDisplay panel;
    QVERIFY(!panel.timer.isValid());
    panel.incrementPageCountTotal(2);
    panel.increment(3000);
    QVERIFY(!panel.pagesEdit->text().isEmpty());

    panel.start();
    QVERIFY(panel.timer.isValid());
    QCOMPARE(panel.pageCount, 0u);
    QCOMPARE(panel.pageCountTotal, 0u);
    QCOMPARE(panel.downloadedKb, 0u);
    QCOMPARE(panel.progressPercent, 0.0f);
    for (QLineEdit *edit : {panel.pagesEdit, panel.downloadedEdit, panel.progressEdit,
                            panel.elapsedEdit, panel.remainingEdit})
        QVERIFY(edit->text().isEmpty());
}

void TestStatusDisplay::startKeepsError()
{
    StatusDisplay panel;
    panel.showError(u"Connection refused"_s);
    panel.start();
    QCOMPARE(panel.statusEdit->text(), u"ERROR: Connection refused"_s);
}

void TestStatusDisplay::showErrorAndSuccess()
{
    StatusDisplay panel;
    panel.start();
    panel.incrementPageCountTotal(2);
    panel.increment(2048);

    panel.showError(u"Host x not found"_s);
    QCOMPARE(panel.statusEdit->text(), u"ERROR: Host x not found"_s);
    panel.showSuccess(u"http://127.0.0.1/a"_s);
    QCOMPARE(panel.statusEdit->text(), u"SUCCESS: http://127.0.0.1/a"_s);
    // A place marker in the text is not filled again.
    panel.showSuccess(u"100%1 sure"_s);
    QCOMPARE(panel.statusEdit->text(), u"SUCCESS: 100%1 sure"_s);

    QCOMPARE(panel.pageCount, 1u);
    QCOMPARE(panel.pageCountTotal, 2u);
    QCOMPARE(panel.downloadedKb, 2u);
    QCOMPARE(panel.pagesEdit->text(), u"1 of 2"_s);
}

void TestStatusDisplay::writeLogHeader()
{
    StatusDisplay panel;
    panel.start();
    panel.incrementPageCountTotal(5);
    panel.increment(100);
    panel.increment(100);
    // The elapsed field holds whatever the clock gave; a known text keeps the
    // line exact.
    panel.elapsedEdit->setText(u"01:15"_s);

    QBuffer buffer;
    QVERIFY(buffer.open(QIODevice::WriteOnly));
    panel.writeLogHeader(&buffer);
    // The header's stream is gone and flushed: the next bytes go after it.
    buffer.write("log text");
    buffer.close();

    const QString text = QString::fromUtf8(buffer.data());
    const QStringList lines = text.split(u'\n');
    QCOMPARE(lines.size(), 5);
    static const QRegularExpression dateLine(
        uR"(^========== [A-Z][a-z]{2} \d{2} [A-Z][a-z]+ \d{4} @ \d{2}:\d{2} \(.+\) ==========$)"_s);
    QVERIFY2(dateLine.match(lines.at(0)).hasMatch(), qPrintable(lines.at(0)));
    QCOMPARE(lines.at(1), u"Pages processed: 2 of 5"_s);
    QCOMPARE(lines.at(2), u"Time elapsed: 01:15"_s);
    QCOMPARE(lines.at(3), QString());
    QCOMPARE(lines.at(4), u"log text"_s);
}

QM_TEST_MAIN(TestStatusDisplay)
#include "tst_statusdisplay.moc"
