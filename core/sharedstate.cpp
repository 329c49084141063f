#include "core/sharedstate.h"

#include <QPlainTextEdit>

QPlainTextEdit *logOutput = nullptr;
StatusDisplay *statusDisplay = nullptr;
bool includeOlympicStats = false;
bool includePlayerData = true;
bool includePlayerHistory = false;

void setLogOutput(QPlainTextEdit *output)
{
    logOutput = output;
}

void setStatusDisplay(StatusDisplay *display)
{
    statusDisplay = display;
}

void setIncludeOlympicStats(const bool &value)
{
    includeOlympicStats = value;
}

void setIncludePlayerData(const bool &value)
{
    includePlayerData = value;
}

void setIncludePlayerHistory(const bool &value)
{
    includePlayerHistory = value;
}

void appendLog(const QString &line)
{
    if (logOutput)
        logOutput->appendPlainText(line);
}
