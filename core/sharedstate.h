#pragma once

class QPlainTextEdit;
class QString;
class StatusDisplay;

// Process-wide state that the scanners, the fetcher and the exports reach
// without a parameter. Written and read on the GUI thread only.
extern QPlainTextEdit *logOutput;
extern StatusDisplay *statusDisplay;
extern bool includeOlympicStats;
extern bool includePlayerData;
extern bool includePlayerHistory;

void setLogOutput(QPlainTextEdit *output);
void setStatusDisplay(StatusDisplay *display);
void setIncludeOlympicStats(const bool &value);
void setIncludePlayerData(const bool &value);
void setIncludePlayerHistory(const bool &value);

// Appends one line to the log box; does nothing while no log box is set.
void appendLog(const QString &line);
