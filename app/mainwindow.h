#pragma once

#include "core/datainterface.h"

#include <QMainWindow>

class QCheckBox;
class QComboBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;
class Proxy;
class StatusDisplay;

// The one window: the input box, the options, the five buttons, the log box,
// the status panel and the proxy row. A Download runs inside its slot, with the
// event loop going on in nested form while pages are fetched.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

    QPushButton *downloadButton = nullptr;
    QPushButton *saveButton = nullptr;
    QPushButton *testLeagueButton = nullptr;
    QPushButton *testPlayerButton = nullptr;
    QPushButton *testTeamButton = nullptr;
    QCheckBox *downloadPlayerDetailsBox = nullptr;
    QCheckBox *includeOlympicStatsBox = nullptr;
    QCheckBox *includePlayerDataBox = nullptr;
    QCheckBox *includePlayerHistoryBox = nullptr;
    QComboBox *websiteBox = nullptr;
    DataInterface dataInterface;
    // Written and never read: nothing asks the user before closing.
    bool unsavedData = false;
    QLabel *promptLabel = nullptr;
    Proxy *proxy = nullptr;
    QRadioButton *asciiButton = nullptr;
    QRadioButton *utfButton = nullptr;
    StatusDisplay *statusPanel = nullptr;
    QPlainTextEdit *logBox = nullptr;
    QPlainTextEdit *urlInput = nullptr;
    QSpinBox *seasonBox = nullptr;

    // The starting year of the season that is current or just ended on date.
    static int seasonFor(const QDate &date);
    static QString promptText();

private slots:
    void onDownload();
    void onSave();
    void onTestPlayerProfile();
    void onTestLeagueProfile();
    void onTestTeamProfile();

private:
    enum class TestType : quint8 { League = 0, Player = 1, Team = 2 };

    void runTest(TestType type);
    void copyOptions();
    void enterIdleState();
    void enterRunningState();
    void enterFinishedState();
    void setControls(bool download, bool save, bool testPlayer, bool editable);
    void readSettings();
    void writeSettings();
    void orderTabStops();
    void fitToTexts();
};
