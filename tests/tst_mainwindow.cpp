#include "app/mainwindow.h"
#include "core/constants.h"
#include "core/datawrapper.h"
#include "core/sharedstate.h"
#include "ep/epleague.h"
#include "ep/epteam.h"
#include "fmd/fmdleague.h"
#include "proxy/proxy.h"
#include "status/statusdisplay.h"
#include "tests/support/dialogs.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/harness.h"
#include "tests/support/testmain.h"
#include "tests/support/windowsandbox.h"
#include "tfm/tfmleague.h"
#include "tfm/tfmplayer.h"
#include "tfm/tfmteam.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// A record that notes its destruction.
class CountedRecord : public DataWrapper
{
public:
    explicit CountedRecord(int *freed)
        : freed(freed)
    { }
    ~CountedRecord() override { ++*freed; }

private:
    int *freed;
};

// The state of the three buttons and the input box that the slots set.
QString stateOf(const MainWindow &window)
{
    const bool download = window.downloadButton->isEnabled();
    const bool save = window.saveButton->isEnabled();
    const bool testPlayer = window.testPlayerButton->isEnabled();
    const bool editable = !window.urlInput->isReadOnly();
    if (download && save && testPlayer && editable)
        return u"idle"_s;
    if (!download && !save && !testPlayer && !editable)
        return u"running"_s;
    if (!download && save && !testPlayer && !editable)
        return u"finished"_s;
    return u"mixed: download %1, save %2, test player %3, editable %4"_s.arg(download)
        .arg(save)
        .arg(testPlayer)
        .arg(editable);
}

QByteArray readAll(const QString &name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

void writeFile(const QString &name, const QByteArray &bytes)
{
    QFile file(name);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
}

QString groupTitleOf(QWidget *widget)
{
    for (QWidget *parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
        if (auto *group = qobject_cast<QGroupBox *>(parent))
            return group->title();
    }
    return QString();
}

const QString nationalTeam = TFM_ROOT_URL + u"/brasilien/erweiterterkader/verein/3439"_s;

} // namespace

// The real window, offscreen: its construction, settings, prompt, the states of
// its controls after each slot, the log file, and the slots' runs, saves and
// offline tests with the file dialogs answered by the test.
class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void firstStartDefaults();
    void settingsWrittenAndReadBack();
    void asciiFalseSelectsUtf();
    void websiteOutsideRange();
    void seasonFor_data();
    void seasonFor();
    void seasonBoxAtStart();

    void titleAndMinimumSize();
    void promptText();
    void widgetTexts();
    void layoutOfWindow();
    void noMenuToolOrStatusBarNoToolTips();

    void emptyInputMessage();
    void blankLinesAreNotEmpty_data();
    void blankLinesAreNotEmpty();
    void statesDuringAndAfterRun();
    void optionsCopiedBeforeRun();

    void logFileWithHeaderAndLatin1();
    void noLogFileForEmptyLog();

    void testSlots_data();
    void testSlots();
    void testTeamWithFmdataba();
    void testFollowingRunReplacesItsRecords();
    void testCancelledChangesNothing();
    void testOfUnreadableFileStopsSilently();

    void saveAsCancelledAfterRunStaysFinished();
    void saveAsDispatchesByWebsiteOfRun_data();
    void saveAsDispatchesByWebsiteOfRun();
    void saveAsTwiceWritesSameFiles();

    void noPageStopClosesNormally();
    void testButtonWhileRunWaits();

private:
    std::unique_ptr<MainWindow> makeWindow();

    WindowSandbox dir;
    FixtureWeb web;
    std::unique_ptr<FastWaits> fastWaits;
};

void TestMainWindow::initTestCase()
{
    QVERIFY(startFixtureHarness(dir, web));
    fastWaits = std::make_unique<FastWaits>(1);
}

void TestMainWindow::cleanupTestCase()
{
    QSettings().clear();
}

void TestMainWindow::init()
{
    QSettings().clear();
    QFile::remove(dir.filePath(u"log.txt"_s));
    clearSiteLists();
    resetFixtureWeb(web);
}

void TestMainWindow::cleanup()
{
    // No dialog may stay open and no answer be left for a later test.
    QTRY_VERIFY(!QApplication::activeModalWidget());
    QCOMPARE(pendingDialogAnswers(), 0);
}

std::unique_ptr<MainWindow> TestMainWindow::makeWindow()
{
    auto window = std::make_unique<MainWindow>(nullptr);
    window->show();
    return window;
}

void TestMainWindow::firstStartDefaults()
{
    // The organisation and application names choose the store.
    QCOMPARE(QSettings().fileName(), dir.filePath(u"TFM/Quillmark.conf"_s));

    auto window = makeWindow();
    QVERIFY(window->asciiButton->isChecked());
    QVERIFY(!window->utfButton->isChecked());
    QVERIFY(window->downloadPlayerDetailsBox->isChecked());
    QVERIFY(!window->includeOlympicStatsBox->isChecked());
    QVERIFY(window->includePlayerDataBox->isChecked());
    QVERIFY(!window->includePlayerHistoryBox->isChecked());
    QCOMPARE(window->websiteBox->currentIndex(), 0);
    QCOMPARE(window->websiteBox->currentText(), u"Elite Prospects"_s);
    QCOMPARE(stateOf(*window), u"idle"_s);
    QVERIFY(window->urlInput->toPlainText().isEmpty());
    QVERIFY(window->logBox->toPlainText().isEmpty());
    QVERIFY(window->logBox->isReadOnly());
    QVERIFY(!window->unsavedData);
    QCOMPARE(logOutput, window->logBox);
    QCOMPARE(statusDisplay, window->statusPanel);
}

void TestMainWindow::settingsWrittenAndReadBack()
{
    {
        auto window = makeWindow();
        window->utfButton->setChecked(true);
        window->downloadPlayerDetailsBox->setChecked(false);
        window->includeOlympicStatsBox->setChecked(true);
        window->includePlayerDataBox->setChecked(false);
        window->includePlayerHistoryBox->setChecked(true);
        window->websiteBox->setCurrentIndex(2);
        // Neither the season nor the input is kept.
        window->seasonBox->setValue(1990);
        window->urlInput->setPlainText(u"some input"_s);
    }
    QCOMPARE(logOutput, nullptr);
    QCOMPARE(statusDisplay, nullptr);

    QSettings settings;
    QCOMPARE(settings.value(u"text_format_ascii"_s), QVariant(false));
    QCOMPARE(settings.value(u"download_player_data"_s), QVariant(false));
    QCOMPARE(settings.value(u"include_olympic_stats"_s), QVariant(true));
    QCOMPARE(settings.value(u"include_player_data"_s), QVariant(false));
    QCOMPARE(settings.value(u"include_player_history"_s), QVariant(true));
    QCOMPARE(settings.value(u"website"_s), QVariant(2));
    // The folders are written by the slots only.
    QVERIFY(!settings.contains(u"export_path"_s));
    QVERIFY(!settings.contains(u"import_path"_s));

    auto window = makeWindow();
    QVERIFY(!window->asciiButton->isChecked());
    QVERIFY(window->utfButton->isChecked());
    QVERIFY(!window->downloadPlayerDetailsBox->isChecked());
    QVERIFY(window->includeOlympicStatsBox->isChecked());
    QVERIFY(!window->includePlayerDataBox->isChecked());
    QVERIFY(window->includePlayerHistoryBox->isChecked());
    QCOMPARE(window->websiteBox->currentIndex(), 2);
    QCOMPARE(window->seasonBox->value(), MainWindow::seasonFor(QDate::currentDate()));
    QVERIFY(window->urlInput->toPlainText().isEmpty());
}

void TestMainWindow::asciiFalseSelectsUtf()
{
    QSettings().setValue(u"text_format_ascii"_s, false);
    auto window = makeWindow();
    QVERIFY(window->utfButton->isChecked());
    QVERIFY(!window->asciiButton->isChecked());
}

void TestMainWindow::websiteOutsideRange()
{
    // Handed to the combo box as it stands.
    QComboBox reference;
    DataInterface::fillWebsiteBox(&reference);
    reference.setCurrentIndex(7);

    QSettings().setValue(u"website"_s, 7);
    auto window = makeWindow();
    QCOMPARE(window->websiteBox->currentIndex(), reference.currentIndex());
}

void TestMainWindow::seasonFor_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<int>("season");
    QTest::newRow("January") << QDate(2024, 1, 15) << 2023;
    QTest::newRow("end of May") << QDate(2024, 5, 31) << 2023;
    QTest::newRow("start of June") << QDate(2024, 6, 1) << 2024;
    QTest::newRow("December") << QDate(2024, 12, 31) << 2024;
}

void TestMainWindow::seasonFor()
{
    QFETCH(QDate, date);
    QFETCH(int, season);
    QCOMPARE(MainWindow::seasonFor(date), season);
}

void TestMainWindow::seasonBoxAtStart()
{
    auto window = makeWindow();
    QCOMPARE(window->seasonBox->minimum(), -1);
    QCOMPARE(window->seasonBox->maximum(), 2799);
    const int season = MainWindow::seasonFor(QDate::currentDate());
    QCOMPARE(window->seasonBox->value(), season);
    // Connected before the value was set: the planner has it too.
    QCOMPARE(window->dataInterface.season, season);
    window->seasonBox->setValue(2011);
    QCOMPARE(window->dataInterface.season, 2011);
}

void TestMainWindow::titleAndMinimumSize()
{
    auto window = makeWindow();
    QCOMPARE(window->windowTitle(), u"Quillmark v2.2.32 QT6 Velmora Edition"_s);
    // Never below 900 × 620, and larger where the window's texts need more
    // room than that, as they do with Linux fonts.
    const QSize minimum = window->minimumSize();
    QVERIFY2(minimum.width() >= 900 && minimum.height() >= 620,
             qPrintable(u"%1 × %2"_s.arg(minimum.width()).arg(minimum.height())));
    QCOMPARE(minimum, minimum.expandedTo(window->layout()->minimumSize()));
}

void TestMainWindow::promptText()
{
    const QStringList lines = {
        u"Enter the URLs for each league in the text box below. Enter each league on a new line. "
        u"E.g. (TFM) "_s
            + TFM_ROOT_URL + u"/premier-league/startseite/wettbewerb/GB1"_s,
        u"E.g. (Elite Prospects) "_s + EP_ROOT_URL + u"/league/nhl"_s,
        u"E.g  (FMDataba) "_s + FMD_ROOT_URL + u"/19/l/4/premier-league/best-players/"_s,
        u"E.g  (FMDataba) "_s + FMD_ROOT_URL + u"/19/n/63/england/best-players/"_s,
        u"OR enter a list of TFM national teams urls, each on a new line. E.G "_s + TFM_ROOT_URL
            + u"/brasilien/erweiterterkader/verein/3439"_s,
        u"OR enter a list of TFM player urls, each on a new line. E.g. "_s + TFM_ROOT_URL
            + u"/marten-olsbey/profil/spieler/342229"_s,
        u"OR enter an interval of TFM playerIDs (beware TFM will ban your IP for redirections for "
        u"1 minute after each 6 players if you use this 'ID' option)."_s,
        u"E.g 1-654128"_s,
        u"E.g. 28003-28003"_s,
    };
    auto window = makeWindow();
    QCOMPARE(window->promptLabel->text().split(u'\n'), lines);
    QCOMPARE(window->promptLabel->text(), lines.join(u'\n'));
    QCOMPARE(MainWindow::promptText(), lines.join(u'\n'));
    QVERIFY(window->promptLabel->wordWrap());
    QVERIFY(!TFM_ROOT_URL.endsWith(u'/'));
    QVERIFY(!EP_ROOT_URL.endsWith(u'/'));
    QVERIFY(!FMD_ROOT_URL.endsWith(u'/'));
}

void TestMainWindow::widgetTexts()
{
    auto window = makeWindow();
    QCOMPARE(window->downloadButton->text(), u"Download"_s);
    QCOMPARE(window->saveButton->text(), u"Save As..."_s);
    QCOMPARE(window->testPlayerButton->text(), u"Test Player Profile"_s);
    QCOMPARE(window->testTeamButton->text(), u"Test Team Page"_s);
    QCOMPARE(window->testLeagueButton->text(), u"Test League Page"_s);
    QCOMPARE(window->downloadPlayerDetailsBox->text(), u"Download player details"_s);
    QCOMPARE(window->includeOlympicStatsBox->text(), u"Include Olympic statistics"_s);
    QCOMPARE(window->includePlayerDataBox->text(), u"Include player data"_s);
    QCOMPARE(window->includePlayerHistoryBox->text(), u"Include player history"_s);
    QCOMPARE(window->asciiButton->text(), u"Ascii"_s);
    QCOMPARE(window->utfButton->text(), u"Utf"_s);
    QCOMPARE(window->websiteBox->count(), 3);
    QCOMPARE(window->websiteBox->itemText(0), u"Elite Prospects"_s);
    QCOMPARE(window->websiteBox->itemText(1), u"Transfer Markt"_s);
    QCOMPARE(window->websiteBox->itemText(2), u"FMDataba"_s);

    // The two radio buttons share one exclusive group, Ascii first.
    QButtonGroup *group = window->asciiButton->group();
    QVERIFY(group);
    QCOMPARE(window->utfButton->group(), group);
    QCOMPARE(group->buttons(), (QList<QAbstractButton *>{window->asciiButton, window->utfButton}));
    QVERIFY(group->exclusive());
}

void TestMainWindow::layoutOfWindow()
{
    auto window = makeWindow();
    auto *grid = qobject_cast<QGridLayout *>(window->centralWidget()->layout());
    QVERIFY(grid);

    const auto cell = [grid](QWidget *widget) {
        int row = -1, column = -1, rowSpan = 0, columnSpan = 0;
        const int index = grid->indexOf(widget);
        if (index >= 0)
            grid->getItemPosition(index, &row, &column, &rowSpan, &columnSpan);
        return QList<int>{row, column, rowSpan, columnSpan};
    };
    QCOMPARE(cell(window->promptLabel), (QList<int>{0, 0, 1, 5}));
    QCOMPARE(cell(window->urlInput), (QList<int>{1, 0, 1, 5}));
    QCOMPARE(cell(window->downloadButton), (QList<int>{4, 0, 1, 1}));
    QCOMPARE(cell(window->saveButton), (QList<int>{4, 1, 1, 1}));
    QCOMPARE(cell(window->testPlayerButton), (QList<int>{4, 2, 1, 1}));
    QCOMPARE(cell(window->testTeamButton), (QList<int>{4, 3, 1, 1}));
    QCOMPARE(cell(window->testLeagueButton), (QList<int>{4, 4, 1, 1}));
    QCOMPARE(cell(window->logBox), (QList<int>{5, 0, 1, 5}));
    QCOMPARE(cell(window->statusPanel), (QList<int>{6, 0, 1, 5}));

    // Row 2: the option row with its five groups in order.
    QLayoutItem *optionItem = grid->itemAtPosition(2, 0);
    QVERIFY(optionItem && optionItem->layout());
    auto *optionRow = qobject_cast<QHBoxLayout *>(optionItem->layout());
    QVERIFY(optionRow);
    QStringList groups;
    for (int i = 0; i < optionRow->count(); ++i) {
        auto *group = qobject_cast<QGroupBox *>(optionRow->itemAt(i)->widget());
        groups.append(group ? group->title() : QString());
    }
    QCOMPARE(groups,
             (QStringList{u"Website"_s, u"Season"_s, u"Text Format"_s, u"Global Settings"_s,
                          u"Transfer Markt Settings"_s}));

    // Row 3: the proxy group with its row and no margins.
    auto *proxyGroup = qobject_cast<QGroupBox *>(grid->itemAtPosition(3, 0)->widget());
    QVERIFY(proxyGroup);
    QCOMPARE(proxyGroup->title(), u"Proxy Settings"_s);
    QCOMPARE(proxyGroup->layout()->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(proxyGroup->layout()->itemAt(0)->widget(), window->proxy);
    QCOMPARE(groupTitleOf(window->proxy), u"Proxy Settings"_s);

    QCOMPARE(groupTitleOf(window->websiteBox), u"Website"_s);
    QCOMPARE(groupTitleOf(window->seasonBox), u"Season"_s);
    QCOMPARE(groupTitleOf(window->asciiButton), u"Text Format"_s);
    QCOMPARE(groupTitleOf(window->utfButton), u"Text Format"_s);
    QCOMPARE(groupTitleOf(window->downloadPlayerDetailsBox), u"Global Settings"_s);
    for (QCheckBox *box : {window->includeOlympicStatsBox, window->includePlayerDataBox,
                           window->includePlayerHistoryBox})
        QCOMPARE(groupTitleOf(box), u"Transfer Markt Settings"_s);

    const auto order = [](QGroupBox *group) {
        QList<QWidget *> widgets;
        for (int i = 0; i < group->layout()->count(); ++i)
            widgets.append(group->layout()->itemAt(i)->widget());
        return widgets;
    };
    auto *tfmGroup = qobject_cast<QGroupBox *>(window->includeOlympicStatsBox->parentWidget());
    QCOMPARE(order(tfmGroup),
             (QList<QWidget *>{window->includeOlympicStatsBox, window->includePlayerDataBox,
                               window->includePlayerHistoryBox}));
    auto *formatGroup = qobject_cast<QGroupBox *>(window->asciiButton->parentWidget());
    QCOMPARE(order(formatGroup), (QList<QWidget *>{window->asciiButton, window->utfButton}));
}

void TestMainWindow::noMenuToolOrStatusBarNoToolTips()
{
    auto window = makeWindow();
    QVERIFY(!window->findChild<QMenuBar *>());
    QVERIFY(!window->findChild<QToolBar *>());
    QVERIFY(!window->findChild<QStatusBar *>());
    for (QWidget *widget : window->findChildren<QWidget *>())
        QVERIFY2(widget->toolTip().isEmpty(), qPrintable(widget->objectName()));
}

void TestMainWindow::emptyInputMessage()
{
    auto window = makeWindow();
    window->logBox->setPlainText(u"earlier text"_s);
    window->statusPanel->showError(u"old"_s);
    window->statusPanel->pagesEdit->setText(u"old figures"_s);
    QSignalSpy announced(&window->dataInterface, &DataInterface::pageCountIncreased);

    window->downloadButton->click();

    QCOMPARE(window->logBox->toPlainText(),
             u"<b>ERROR: No league URLs nor TFM playerIDs (or urls) entered!</b>"_s);
    QCOMPARE(stateOf(*window), u"idle"_s);
    QCOMPARE(announced.count(), 0);
    // Started and never stopped: the figures are cleared and stay so.
    QVERIFY(window->statusPanel->pagesEdit->text().isEmpty());
    QVERIFY(window->statusPanel->remainingEdit->text().isEmpty());
    QVERIFY(window->statusPanel->timer.isValid());
    QCOMPARE(window->statusPanel->statusEdit->text(), u"ERROR: old"_s);
    QVERIFY(!window->unsavedData);
}

void TestMainWindow::blankLinesAreNotEmpty_data()
{
    QTest::addColumn<int>("website");
    QTest::addColumn<QString>("input");
    QTest::addColumn<int>("leaguePages");
    QTest::newRow("only line feeds, Elite Prospects") << int(EliteProspects) << u"\n\n"_s << 3;
    QTest::newRow("one blank, Elite Prospects") << int(EliteProspects) << u" "_s << 1;
    // FMDataba removes duplicates from a league list before anything else.
    QTest::newRow("only line feeds, FMDataba") << int(FMDataba) << u"\n\n"_s << 1;
}

void TestMainWindow::blankLinesAreNotEmpty()
{
    QFETCH(int, website);
    QFETCH(QString, input);
    QFETCH(int, leaguePages);

    // With the site's lists empty: a league pass over the blank addresses, and
    // nothing more.
    auto window = makeWindow();
    window->websiteBox->setCurrentIndex(website);
    window->urlInput->setPlainText(input);
    QSignalSpy announced(&window->dataInterface, &DataInterface::pageCountIncreased);
    window->downloadButton->click();

    QVERIFY(!announced.isEmpty());
    QCOMPARE(announced.first().at(0).toInt(), leaguePages);
    QCOMPARE(window->statusPanel->pagesEdit->text(), u"%1 of %1"_s.arg(leaguePages));
    QVERIFY(window->logBox->toPlainText().endsWith(u"\n\n----- PROCESS COMPLETE -----\n\n"_s));
    QCOMPARE(stateOf(*window), u"finished"_s);
}

void TestMainWindow::statesDuringAndAfterRun()
{
    auto window = makeWindow();
    QCOMPARE(stateOf(*window), u"idle"_s);
    window->websiteBox->setCurrentIndex(FMDataba);
    window->urlInput->setPlainText(u"first\nsecond"_s);
    window->logBox->setPlainText(u"from before"_s);

    QString during;
    bool teamAndLeagueLive = false;
    bool logClearedAtStart = false;
    connect(&window->dataInterface, &DataInterface::pageCountIncreased, window.get(), [&](int) {
        if (!during.isEmpty())
            return;
        during = stateOf(*window);
        teamAndLeagueLive
            = window->testTeamButton->isEnabled() && window->testLeagueButton->isEnabled();
        logClearedAtStart = !window->logBox->toPlainText().contains(u"from before"_s);
    });
    window->downloadButton->click();

    QCOMPARE(during, u"running"_s);
    QVERIFY(teamAndLeagueLive);
    QVERIFY(logClearedAtStart);
    QCOMPARE(stateOf(*window), u"finished"_s);
    QVERIFY(window->unsavedData);
    QVERIFY(window->logBox->toPlainText().endsWith(u"\n\n----- PROCESS COMPLETE -----\n\n"_s));
    QCOMPARE(window->statusPanel->progressEdit->text(), u"100.00 %"_s);
    QVERIFY(window->testTeamButton->isEnabled());
    QVERIFY(window->testLeagueButton->isEnabled());

    // Save As with a file picked: idle again.
    answerNextFileDialog(dir.filePath(u"states.csv"_s));
    window->saveButton->click();
    QCOMPARE(stateOf(*window), u"idle"_s);
    QVERIFY(!window->unsavedData);
}

void TestMainWindow::optionsCopiedBeforeRun()
{
    setIncludeOlympicStats(false);
    setIncludePlayerData(true);
    setIncludePlayerHistory(false);

    auto window = makeWindow();
    window->websiteBox->setCurrentIndex(FMDataba);
    window->includeOlympicStatsBox->setChecked(true);
    window->includePlayerDataBox->setChecked(false);
    window->includePlayerHistoryBox->setChecked(true);
    window->urlInput->setPlainText(u"x"_s);
    window->downloadButton->click();

    QVERIFY(includeOlympicStats);
    QVERIFY(!includePlayerData);
    QVERIFY(includePlayerHistory);
    QCOMPARE(window->dataInterface.website, FMDataba);
}

void TestMainWindow::logFileWithHeaderAndLatin1()
{
    {
        auto window = makeWindow();
        window->downloadButton->click();
        window->logBox->appendPlainText(u"Łódź é € ü"_s);
        window->statusPanel->pagesEdit->setText(u"4 of 7"_s);
        window->statusPanel->elapsedEdit->setText(u"01:02"_s);
    }

    const QByteArray bytes = readAll(dir.filePath(u"log.txt"_s));
    const QList<QByteArray> lines = bytes.split('\n');
    QCOMPARE(lines.size(), 6);
    static const QRegularExpression dateLine(
        uR"(^========== [A-Z][a-z]{2} \d{2} [A-Z][a-z]+ \d{4} @ \d{2}:\d{2} \(.+\) ==========$)"_s);
    QVERIFY2(dateLine.match(QString::fromLatin1(lines.at(0))).hasMatch(), lines.at(0).constData());
    QCOMPARE(lines.at(1), "Pages processed: 4 of 7"_ba);
    QCOMPARE(lines.at(2), "Time elapsed: 01:02"_ba);
    QCOMPARE(lines.at(3), QByteArray());
    QCOMPARE(lines.at(4), "<b>ERROR: No league URLs nor TFM playerIDs (or urls) entered!</b>"_ba);
    // Latin-1: é and ü as one byte each, what lies above U+00FF as "?".
    QCOMPARE(lines.at(5),
             "?\xf3"
             "d? \xe9 ? \xfc"_ba);
}

void TestMainWindow::noLogFileForEmptyLog()
{
    const QString name = dir.filePath(u"log.txt"_s);
    writeFile(name, "an older log\n");
    {
        auto window = makeWindow();
        QVERIFY(window->logBox->toPlainText().isEmpty());
    }
    QCOMPARE(readAll(name), "an older log\n"_ba);
    // The settings are written all the same.
    QVERIFY(QSettings().contains(u"website"_s));

    QFile::remove(name);
    {
        auto window = makeWindow();
    }
    QVERIFY(!QFile::exists(name));
}

void TestMainWindow::testSlots_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("report");
    QTest::addColumn<int>("leagues");
    QTest::addColumn<int>("teams");
    QTest::addColumn<int>("players");

    QTest::newRow("player") << u"player"_s << u"Open Offline Player Profile Webpage"_s
                            << u"--- TESTING PLAYER PROFILE WEBPAGE ---"_s << 0 << 0 << 1;
    QTest::newRow("league") << u"league"_s << u"Open Offline League Webpage"_s
                            << u"--- TESTING LEAGUE WEBPAGE ---"_s << 1 << 0 << 0;
    QTest::newRow("team") << u"team"_s << u"Open Offline Team Webpage"_s << QString() << 0 << 1
                          << 0;
}

void TestMainWindow::testSlots()
{
    QFETCH(QString, button);
    QFETCH(QString, title);
    QFETCH(QString, report);
    QFETCH(int, leagues);
    QFETCH(int, teams);
    QFETCH(int, players);

    QDir().mkpath(dir.filePath(u"pages"_s));
    const QString page = dir.filePath(u"pages/page.html"_s);
    writeFile(page, "<html><body>offline</body></html>");

    // Declared before the window, whose records still count into it when it
    // goes at the end of the test.
    int freed = 0;
    auto window = makeWindow();
    window->websiteBox->setCurrentIndex(TransferMarkt);
    window->logBox->setPlainText(u"kept from before"_s);
    window->statusPanel->pagesEdit->setText(u"5 of 9"_s);
    window->dataInterface.players.append(new CountedRecord(&freed));

    QPushButton *target = button == u"player"_s ? window->testPlayerButton
        : button == u"league"_s                 ? window->testLeagueButton
                                                : window->testTeamButton;
    for (int round = 0; round < 2; ++round) {
        answerNextFileDialog(page);
        target->click();
        QCOMPARE(lastDialogTitle(), title);
        QCOMPARE(QSettings().value(u"import_path"_s).toString(), dir.filePath(u"pages/"_s));
    }
    // The second dialog started in the folder of the first page.
    QCOMPARE(QDir(lastDialogDirectory()).canonicalPath(),
             QDir(dir.filePath(u"pages"_s)).canonicalPath());

    QCOMPARE(freed, 1);
    QCOMPARE(window->dataInterface.leagues.size(), leagues);
    QCOMPARE(window->dataInterface.teams.size(), teams);
    QCOMPARE(window->dataInterface.players.size(), players);
    QCOMPARE(window->dataInterface.website, TransferMarkt);
    // The log is not cleared, the panel not touched.
    QVERIFY(window->logBox->toPlainText().startsWith(u"kept from before"_s));
    if (!report.isEmpty())
        QVERIFY(window->logBox->toPlainText().contains(report));
    QCOMPARE(window->statusPanel->pagesEdit->text(), u"5 of 9"_s);
    QCOMPARE(stateOf(*window), u"idle"_s);
}

void TestMainWindow::testTeamWithFmdataba()
{
    const QString page = dir.filePath(u"fmd-team.html"_s);
    writeFile(page, "<html><body>team</body></html>");

    // Declared before the window, whose records still count into it when it
    // goes at the end of the test.
    int freed = 0;
    auto window = makeWindow();
    window->websiteBox->setCurrentIndex(FMDataba);
    window->logBox->setPlainText(u"before"_s);
    window->dataInterface.teams.append(new CountedRecord(&freed));
    window->dataInterface.leagues.append(new CountedRecord(&freed));

    answerNextFileDialog(page);
    window->testTeamButton->click();

    QCOMPARE(lastDialogTitle(), u"Open Offline Team Webpage"_s);
    QCOMPARE(QSettings().value(u"import_path"_s).toString(), dir.path() + u'/');
    QCOMPARE(freed, 2);
    QVERIFY(window->dataInterface.leagues.isEmpty());
    QVERIFY(window->dataInterface.teams.isEmpty());
    QVERIFY(window->dataInterface.players.isEmpty());
    QCOMPARE(window->dataInterface.website, FMDataba);
    QCOMPARE(window->logBox->toPlainText(), u"before"_s);
    QCOMPARE(stateOf(*window), u"idle"_s);
}

void TestMainWindow::testFollowingRunReplacesItsRecords()
{
    const QString page = dir.filePath(u"after-run.html"_s);
    writeFile(page, "<html></html>");

    auto window = makeWindow();
    window->websiteBox->setCurrentIndex(FMDataba);
    window->urlInput->setPlainText(u"x"_s);
    window->downloadButton->click();
    QCOMPARE(stateOf(*window), u"finished"_s);

    window->websiteBox->setCurrentIndex(TransferMarkt);
    answerNextFileDialog(page);
    window->testLeagueButton->click();
    QCOMPARE(stateOf(*window), u"idle"_s);
    QCOMPARE(window->dataInterface.website, TransferMarkt);
    QCOMPARE(window->dataInterface.leagues.size(), 1);
}

void TestMainWindow::testCancelledChangesNothing()
{
    // Declared before the window, whose records still count into it when it
    // goes at the end of the test.
    int freed = 0;
    auto window = makeWindow();
    window->websiteBox->setCurrentIndex(FMDataba);
    window->urlInput->setPlainText(u"x"_s);
    window->downloadButton->click();
    QCOMPARE(stateOf(*window), u"finished"_s);
    window->dataInterface.players.append(new CountedRecord(&freed));

    answerNextFileDialog(QString());
    window->testLeagueButton->click();
    QCOMPARE(lastDialogTitle(), u"Open Offline League Webpage"_s);
    QCOMPARE(stateOf(*window), u"finished"_s);
    QCOMPARE(freed, 0);
    QVERIFY(!QSettings().contains(u"import_path"_s));
}

void TestMainWindow::testOfUnreadableFileStopsSilently()
{
    // Declared before the window, whose records still count into it when it
    // goes at the end of the test.
    int freed = 0;
    auto window = makeWindow();
    window->websiteBox->setCurrentIndex(FMDataba);
    window->urlInput->setPlainText(u"x"_s);
    window->downloadButton->click();
    const QString logText = window->logBox->toPlainText();
    window->dataInterface.players.append(new CountedRecord(&freed));

    // A file that isn't there can't be opened.
    answerNextFileDialog(dir.filePath(u"missing.html"_s));
    window->testTeamButton->click();
    QCOMPARE(lastDialogTitle(), u"Open Offline Team Webpage"_s);
    QCOMPARE(stateOf(*window), u"finished"_s);
    QCOMPARE(freed, 0);
    QCOMPARE(window->logBox->toPlainText(), logText);
    // The folder was written before the file failed to open.
    QCOMPARE(QSettings().value(u"import_path"_s).toString(), dir.path() + u'/');
}

void TestMainWindow::saveAsCancelledAfterRunStaysFinished()
{
    auto window = makeWindow();
    window->websiteBox->setCurrentIndex(FMDataba);
    window->urlInput->setPlainText(u"x"_s);
    window->downloadButton->click();
    QCOMPARE(stateOf(*window), u"finished"_s);

    answerNextFileDialog(QString());
    window->saveButton->click();
    QCOMPARE(lastDialogTitle(), u"Save extracted data"_s);
    QCOMPARE(stateOf(*window), u"finished"_s);
    QVERIFY(window->unsavedData);
    QVERIFY(!QSettings().contains(u"export_path"_s));
}

void TestMainWindow::saveAsDispatchesByWebsiteOfRun_data()
{
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QByteArray>("titles");
    QTest::newRow("Ascii") << false << "\xef\xbb\xbfId,NameInUrl,First name,"_ba;
    QTest::newRow("Utf") << true << "\xef\xbb\xbfId\tNameInUrl\tFirst name\t"_ba;
}

void TestMainWindow::saveAsDispatchesByWebsiteOfRun()
{
    QFETCH(bool, utf);
    QFETCH(QByteArray, titles);

    // A Transfer Markt run that fetches nothing, then another website chosen
    // and the format picked only now: the save follows the run's website and
    // the format of the moment.
    auto window = makeWindow();
    window->websiteBox->setCurrentIndex(TransferMarkt);
    window->downloadPlayerDetailsBox->setChecked(false);
    window->urlInput->setPlainText(u"1-2"_s);
    window->downloadButton->click();
    QCOMPARE(stateOf(*window), u"finished"_s);

    window->websiteBox->setCurrentIndex(FMDataba);
    (utf ? window->utfButton : window->asciiButton)->setChecked(true);
    QDir().mkpath(dir.filePath(u"export"_s));
    const QString name = dir.filePath(u"export/run.csv"_s);
    answerNextFileDialog(name);
    window->saveButton->click();

    QCOMPARE(lastDialogTitle(), u"Save extracted data"_s);
    QCOMPARE(QSettings().value(u"export_path"_s).toString(), dir.filePath(u"export/"_s));
    QVERIFY(readAll(name).startsWith(titles));
    QCOMPARE(stateOf(*window), u"idle"_s);
    QVERIFY(!window->unsavedData);
}

void TestMainWindow::saveAsTwiceWritesSameFiles()
{
    auto window = makeWindow();
    window->websiteBox->setCurrentIndex(TransferMarkt);
    window->downloadPlayerDetailsBox->setChecked(false);
    window->urlInput->setPlainText(u"1-2"_s);
    window->downloadButton->click();

    const QString name = dir.filePath(u"twice.csv"_s);
    answerNextFileDialog(name);
    window->saveButton->click();
    const QByteArray first = readAll(name);
    QVERIFY(!first.isEmpty());
    QFile::remove(name);

    answerNextFileDialog(name);
    window->saveButton->click();
    QCOMPARE(readAll(name), first);
}

void TestMainWindow::noPageStopClosesNormally()
{
    {
        auto window = makeWindow();
        window->websiteBox->setCurrentIndex(TransferMarkt);
        window->downloadPlayerDetailsBox->setChecked(false);
        window->includeOlympicStatsBox->setChecked(true);
        window->urlInput->setPlainText(u"1-2"_s);
        QSignalSpy announced(&window->dataInterface, &DataInterface::pageCountIncreased);
        window->downloadButton->click();

        QCOMPARE(announced.count(), 0);
        QCOMPARE(window->statusPanel->pagesEdit->text(), u"0 of 0"_s);
        QCOMPARE(window->statusPanel->progressEdit->text(), u"100.00 %"_s);
        QCOMPARE(window->statusPanel->remainingEdit->text(), u"00:00"_s);
        QVERIFY(window->logBox->toPlainText().contains(u"----- PROCESS COMPLETE -----"_s));
        QCOMPARE(stateOf(*window), u"finished"_s);
        QCOMPARE(web.requests().size(), 0);
    }

    QSettings settings;
    QCOMPARE(settings.value(u"website"_s), QVariant(1));
    QCOMPARE(settings.value(u"download_player_data"_s), QVariant(false));
    QCOMPARE(settings.value(u"include_olympic_stats"_s), QVariant(true));

    const QList<QByteArray> lines = readAll(dir.filePath(u"log.txt"_s)).split('\n');
    QVERIFY(lines.size() > 5);
    QVERIFY(lines.at(0).startsWith("========== "));
    QCOMPARE(lines.at(1), "Pages processed: 0 of 0"_ba);
    QVERIFY(lines.contains("----- PROCESS COMPLETE -----"_ba));
}

void TestMainWindow::testButtonWhileRunWaits()
{
    // A Transfer Markt national team run over two team pages. Once the first
    // page is in, the league test is pressed while the run waits for the
    // second, which stays unanswered until then: the test clears the record the
    // run has made so far.
    const QString second = TFM_ROOT_URL + u"/x/erweiterterkader/verein/9"_s;
    web.routeBody(nationalTeam, "<html></html>"_ba);
    FixtureWeb::Answer held;
    held.body = "<html></html>"_ba;
    held.hold = true;
    web.route(second, held);
    const QString page = dir.filePath(u"league-during-run.html"_s);
    writeFile(page, "<html></html>");

    auto window = makeWindow();
    window->websiteBox->setCurrentIndex(TransferMarkt);
    window->downloadPlayerDetailsBox->setChecked(false);
    window->urlInput->setPlainText(nationalTeam + u'\n' + second);

    int teamsBeforeTest = -1;
    QString stateAfterTest;
    web.whenRequested(second, window.get(), [&] {
        teamsBeforeTest = int(window->dataInterface.teams.size());
        answerNextFileDialog(page);
        window->testLeagueButton->click();
        stateAfterTest = stateOf(*window);
        web.releaseHeld();
    });
    window->downloadButton->click();

    QCOMPARE(teamsBeforeTest, 1);
    QCOMPARE(lastDialogTitle(), u"Open Offline League Webpage"_s);
    // The test left the controls idle; the end of the run made them finished.
    QCOMPARE(stateAfterTest, u"idle"_s);
    QCOMPARE(stateOf(*window), u"finished"_s);
    QCOMPARE(window->dataInterface.leagues.size(), 1);
    QVERIFY(dynamic_cast<TFM_League *>(window->dataInterface.leagues.first()));
    QCOMPARE(window->dataInterface.teams.size(), 1);
    QVERIFY(dynamic_cast<TFM_Team *>(window->dataInterface.teams.first()));
    QCOMPARE(web.requestCount(second), 1);
    QVERIFY(window->logBox->toPlainText().contains(u"--- TESTING LEAGUE WEBPAGE ---"_s));
    QVERIFY(window->logBox->toPlainText().contains(u"----- PROCESS COMPLETE -----"_s));
}

QM_TEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
