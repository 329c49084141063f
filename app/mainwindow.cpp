#include "app/mainwindow.h"

#include "app/identity.h"
#include "core/constants.h"
#include "core/sharedstate.h"
#include "proxy/proxy.h"
#include "status/statusdisplay.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDate>
#include <QFile>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSpinBox>
#include <QTextStream>

using namespace Qt::StringLiterals;

static QGroupBox *groupOf(const QString &title, const QList<QWidget *> &widgets, QWidget *parent)
{
    auto *box = new QGroupBox(title, parent);
    auto *layout = new QHBoxLayout(box);
    for (QWidget *widget : widgets)
        layout->addWidget(widget);
    return box;
}

int MainWindow::seasonFor(const QDate &date)
{
    return date.month() > 5 ? date.year() : date.year() - 1;
}

QString MainWindow::promptText()
{
    // Lines three and four have two blanks and no point after "E.g", line five a
    // capital "E.G": the prompt has always read so.
    return u"Enter the URLs for each league in the text box below. Enter each league on a new "
           u"line. E.g. (TFM) "_s
        + TFM_ROOT_URL + u"/premier-league/startseite/wettbewerb/GB1\n"_s
        + u"E.g. (Elite Prospects) "_s + EP_ROOT_URL + u"/league/nhl\n"_s + u"E.g  (FMDataba) "_s
        + FMD_ROOT_URL + u"/19/l/4/premier-league/best-players/\n"_s + u"E.g  (FMDataba) "_s
        + FMD_ROOT_URL + u"/19/n/63/england/best-players/\n"_s
        + u"OR enter a list of TFM national teams urls, each on a new line. E.G "_s + TFM_ROOT_URL
        + u"/brasilien/erweiterterkader/verein/3439\n"_s
        + u"OR enter a list of TFM player urls, each on a new line. E.g. "_s + TFM_ROOT_URL
        + u"/marten-olsbey/profil/spieler/342229\n"_s
        + u"OR enter an interval of TFM playerIDs (beware TFM will ban your IP for "
          u"redirections for 1 minute after each 6 players if you use this 'ID' option).\n"_s
        + u"E.g 1-654128\n"_s + u"E.g. 28003-28003"_s;
}

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
{
    setMinimumSize(900, 620);
    setWindowTitle(QCoreApplication::applicationName() + u" v"_s
                   + QCoreApplication::applicationVersion());
    setWindowIcon(applicationIcon());

    auto *central = new QWidget(this);
    setCentralWidget(central);

    promptLabel = new QLabel(promptText(), central);
    promptLabel->setWordWrap(true);

    urlInput = new QPlainTextEdit(central);
    // One address a line: a tab character is never wanted in it, so Tab moves
    // on to the next control. The prompt above it is too long for a name; a
    // screen reader gets it as the description.
    urlInput->setTabChangesFocus(true);
    urlInput->setAccessibleName(u"Addresses to download"_s);
    urlInput->setAccessibleDescription(promptText());

    websiteBox = new QComboBox(central);
    DataInterface::fillWebsiteBox(websiteBox);
    auto *websiteGroup = groupOf(u"Website"_s, {websiteBox}, central);
    websiteBox->setAccessibleName(websiteGroup->title());

    seasonBox = new QSpinBox(central);
    seasonBox->setRange(-1, 2799);
    // Connected first, so that the starting value reaches the planner as well.
    connect(seasonBox, &QSpinBox::valueChanged, &dataInterface, &DataInterface::setSeason);
    seasonBox->setValue(seasonFor(QDate::currentDate()));
    auto *seasonGroup = groupOf(u"Season"_s, {seasonBox}, central);
    seasonBox->setAccessibleName(seasonGroup->title());

    asciiButton = new QRadioButton(u"Ascii"_s, central);
    utfButton = new QRadioButton(u"Utf"_s, central);
    auto *formatButtons = new QButtonGroup(this);
    formatButtons->addButton(asciiButton);
    formatButtons->addButton(utfButton);
    auto *formatGroup = groupOf(u"Text Format"_s, {asciiButton, utfButton}, central);

    downloadPlayerDetailsBox = new QCheckBox(u"Download player details"_s, central);
    auto *globalGroup = groupOf(u"Global Settings"_s, {downloadPlayerDetailsBox}, central);

    includeOlympicStatsBox = new QCheckBox(u"Include Olympic statistics"_s, central);
    includePlayerDataBox = new QCheckBox(u"Include player data"_s, central);
    includePlayerHistoryBox = new QCheckBox(u"Include player history"_s, central);
    auto *tfmGroup
        = groupOf(u"Transfer Markt Settings"_s,
                  {includeOlympicStatsBox, includePlayerDataBox, includePlayerHistoryBox}, central);

    downloadButton = new QPushButton(u"Download"_s, central);
    saveButton = new QPushButton(u"Save As..."_s, central);
    testPlayerButton = new QPushButton(u"Test Player Profile"_s, central);
    testTeamButton = new QPushButton(u"Test Team Page"_s, central);
    testLeagueButton = new QPushButton(u"Test League Page"_s, central);
    connect(downloadButton, &QPushButton::clicked, this, &MainWindow::onDownload);
    connect(saveButton, &QPushButton::clicked, this, &MainWindow::onSave);
    connect(testPlayerButton, &QPushButton::clicked, this, &MainWindow::onTestPlayerProfile);
    connect(testTeamButton, &QPushButton::clicked, this, &MainWindow::onTestTeamProfile);
    connect(testLeagueButton, &QPushButton::clicked, this, &MainWindow::onTestLeagueProfile);

    logBox = new QPlainTextEdit(central);
    logBox->setReadOnly(true);
    // Read-only, yet a keyboard can move through it and select what to copy,
    // and Tab leaves it.
    logBox->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    logBox->setTabChangesFocus(true);
    logBox->setAccessibleName(u"Log"_s);

    statusPanel = new StatusDisplay(this);
    setStatusDisplay(statusPanel);
    connect(&dataInterface, &DataInterface::pageCountIncreased, statusPanel,
            &StatusDisplay::incrementPageCountTotal);

    setLogOutput(logBox);

    proxy = new Proxy(central);
    auto *proxyGroup = new QGroupBox(u"Proxy Settings"_s, central);
    auto *proxyLayout = new QHBoxLayout(proxyGroup);
    proxyLayout->setContentsMargins(0, 0, 0, 0);
    proxyLayout->addWidget(proxy);
    connect(proxy, &Proxy::output, logBox, &QPlainTextEdit::appendPlainText);
    connect(proxy, &Proxy::done, statusPanel, &StatusDisplay::reset);

    auto *optionRow = new QHBoxLayout;
    for (QGroupBox *group : {websiteGroup, seasonGroup, formatGroup, globalGroup, tfmGroup})
        optionRow->addWidget(group);

    auto *grid = new QGridLayout(central);
    grid->addWidget(promptLabel, 0, 0, 1, 5);
    grid->addWidget(urlInput, 1, 0, 1, 5);
    grid->addLayout(optionRow, 2, 0, 1, 5);
    grid->addWidget(proxyGroup, 3, 0, 1, 5);
    grid->addWidget(downloadButton, 4, 0);
    grid->addWidget(saveButton, 4, 1);
    grid->addWidget(testPlayerButton, 4, 2);
    grid->addWidget(testTeamButton, 4, 3);
    grid->addWidget(testLeagueButton, 4, 4);
    grid->addWidget(logBox, 5, 0, 1, 5);
    grid->addWidget(statusPanel, 6, 0, 1, 5);

    readSettings();
    enterIdleState();
    orderTabStops();
    fitToTexts();
}

void MainWindow::orderTabStops()
{
    // Widgets join the focus chain as they are made, and the proxy row is made
    // after the buttons and the log box that stand below it: Tab follows the
    // window as it reads instead, left to right and top to bottom.
    const QList<QWidget *> order = {
        urlInput,
        websiteBox,
        seasonBox,
        asciiButton,
        utfButton,
        downloadPlayerDetailsBox,
        includeOlympicStatsBox,
        includePlayerDataBox,
        includePlayerHistoryBox,
        proxy->enabledBox,
        proxy->hostEdit,
        proxy->portEdit,
        proxy->userEdit,
        proxy->passwordEdit,
        proxy->testButton,
        downloadButton,
        saveButton,
        testPlayerButton,
        testTeamButton,
        testLeagueButton,
        logBox,
        statusPanel->statusEdit,
        statusPanel->pagesEdit,
        statusPanel->progressEdit,
        statusPanel->downloadedEdit,
        statusPanel->elapsedEdit,
        statusPanel->remainingEdit,
    };
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order.at(i - 1), order.at(i));
}

void MainWindow::fitToTexts()
{
    // The size set first is a floor, not a fit: with Linux fonts the option row
    // alone is wider, and a window held to it cuts its check boxes. The layout
    // knows what every text needs, so the window opens at that size where it
    // is larger, and can't be made smaller than that.
    ensurePolished();
    QSize needed = layout()->minimumSize();
    // The prompt wraps, and the layout's minimum counts its lines at the width
    // it likes best. At the narrowest the window may be, it can take more.
    QLayout *grid = centralWidget()->layout();
    if (grid->hasHeightForWidth()) {
        const QSize around = needed - centralWidget()->minimumSizeHint();
        const int narrowest = qMax(minimumWidth(), needed.width());
        needed.setHeight(
            qMax(needed.height(),
                 grid->minimumHeightForWidth(narrowest - around.width()) + around.height()));
    }
    setMinimumSize(minimumSize().expandedTo(needed));
    resize(size().expandedTo(minimumSize()));
}

MainWindow::~MainWindow()
{
    writeSettings();
    setLogOutput(nullptr);

    if (!logBox->toPlainText().isEmpty()) {
        QFile file(u"log.txt"_s);
        if (file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text)) {
            statusPanel->writeLogHeader(&file);
            file.write(logBox->toPlainText().toLatin1());
            file.close();
        }
    }
    // The panel goes with the window: nothing may reach it through the shared
    // pointer afterwards.
    setStatusDisplay(nullptr);
}

void MainWindow::readSettings()
{
    QSettings settings;
    asciiButton->setChecked(settings.value(u"text_format_ascii"_s, true).toBool());
    utfButton->setChecked(!asciiButton->isChecked());
    downloadPlayerDetailsBox->setChecked(settings.value(u"download_player_data"_s, true).toBool());
    includeOlympicStatsBox->setChecked(settings.value(u"include_olympic_stats"_s, false).toBool());
    includePlayerDataBox->setChecked(settings.value(u"include_player_data"_s, true).toBool());
    includePlayerHistoryBox->setChecked(
        settings.value(u"include_player_history"_s, false).toBool());
    websiteBox->setCurrentIndex(settings.value(u"website"_s, 0).toInt());
}

void MainWindow::writeSettings()
{
    QSettings settings;
    settings.setValue(u"text_format_ascii"_s, asciiButton->isChecked());
    settings.setValue(u"download_player_data"_s, downloadPlayerDetailsBox->isChecked());
    settings.setValue(u"include_olympic_stats"_s, includeOlympicStatsBox->isChecked());
    settings.setValue(u"include_player_data"_s, includePlayerDataBox->isChecked());
    settings.setValue(u"include_player_history"_s, includePlayerHistoryBox->isChecked());
    settings.setValue(u"website"_s, websiteBox->currentIndex());
}

void MainWindow::setControls(bool download, bool save, bool testPlayer, bool editable)
{
    downloadButton->setEnabled(download);
    saveButton->setEnabled(save);
    testPlayerButton->setEnabled(testPlayer);
    urlInput->setReadOnly(!editable);
}

void MainWindow::enterIdleState()
{
    setControls(true, true, true, true);
}

void MainWindow::enterRunningState()
{
    setControls(false, false, false, false);
}

void MainWindow::enterFinishedState()
{
    setControls(false, true, false, false);
}

void MainWindow::copyOptions()
{
    setIncludeOlympicStats(includeOlympicStatsBox->isChecked());
    setIncludePlayerData(includePlayerDataBox->isChecked());
    setIncludePlayerHistory(includePlayerHistoryBox->isChecked());
}

void MainWindow::onDownload()
{
    logBox->clear();
    statusPanel->start();
    enterRunningState();

    const QString text = urlInput->document()->toPlainText();
    QStringList list = text.split(u"\n"_s, Qt::KeepEmptyParts, Qt::CaseSensitive);
    if (text.isEmpty()) {
        // A plain text box: the tags show as they stand.
        logBox->setPlainText(
            u"<b>ERROR: No league URLs nor TFM playerIDs (or urls) entered!</b>"_s);
        enterIdleState();
        return;
    }

    copyOptions();
    const bool details = downloadPlayerDetailsBox->isChecked();
    const Website website = Website(websiteBox->currentIndex());
    dataInterface.startDownload(website, list, details);

    logBox->appendPlainText(u"\n\n----- PROCESS COMPLETE -----\n\n"_s);
    statusPanel->stop();
    enterFinishedState();
    unsavedData = true;
}

void MainWindow::onSave()
{
    QSettings settings;
    const QString folder = settings.value(u"export_path"_s, u"C:/"_s).toString();
    const QString name = QFileDialog::getSaveFileName(this, tr("Save extracted data"), folder,
                                                      tr("CSV Spreadsheet (*.csv *.txt)"));
    if (name.isEmpty())
        return;
    settings.setValue(u"export_path"_s, name.left(name.lastIndexOf(u'/') + 1));

    const bool utf = utfButton->isChecked();
    unsavedData = !dataInterface.saveRecords(name, utf);
    enterIdleState();
}

void MainWindow::onTestPlayerProfile()
{
    runTest(TestType::Player);
}

void MainWindow::onTestLeagueProfile()
{
    runTest(TestType::League);
}

void MainWindow::onTestTeamProfile()
{
    runTest(TestType::Team);
}

void MainWindow::runTest(TestType type)
{
    QString title;
    switch (type) {
    case TestType::Player:
        title = u"Open Offline Player Profile Webpage"_s;
        break;
    case TestType::League:
        title = u"Open Offline League Webpage"_s;
        break;
    case TestType::Team:
        title = u"Open Offline Team Webpage"_s;
        break;
    default:
        title = u"UNKNOWN TEST TYPE"_s;
        break;
    }

    QSettings settings;
    const QString folder = settings.value(u"import_path"_s, u"C:/"_s).toString();
    // "export.csv" has no meaning for the pages; the start text has always held it.
    const QString name
        = QFileDialog::getOpenFileName(this, title, u"%1/%2"_s.arg(folder, u"export.csv"_s),
                                       tr("Webpage Files (*.htm *.html *.txt)"));
    if (name.isEmpty())
        return;
    settings.setValue(u"import_path"_s, name.left(name.lastIndexOf(u'/') + 1));

    QFile file(name);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return;
    QTextStream stream(&file);

    enterRunningState();
    QString text = stream.readAll();
    file.close();
    copyOptions();

    const Website website = Website(websiteBox->currentIndex());
    switch (type) {
    case TestType::Player:
        dataInterface.testPlayerPage(website, text);
        break;
    case TestType::Team:
        dataInterface.testTeamPage(website, text);
        break;
    case TestType::League:
        dataInterface.testLeaguePage(website, text);
        break;
    }
    enterIdleState();
}
