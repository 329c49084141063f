#include "core/sharedstate.h"

#include <QPlainTextEdit>
#include <QString>

using namespace Qt::StringLiterals;

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

bool historyOnlyMode()
{
    return !includePlayerData && includePlayerHistory;
}

void appendLog(const QString &line)
{
    if (logOutput)
        logOutput->appendPlainText(line);
}

QString passLine(qsizetype number, const QString &name, const QString &place, qsizetype count,
                 const QString &unit)
{
    // Piece by piece, so that a "%" in a scraped name is never taken for a place marker.
    return u"%1"_s.arg(number, 6) + u".\t"_s + u"%1"_s.arg(name, -40) + u"\t"_s
        + u"%1"_s.arg(place, -35) + u"\t"_s + u"%1"_s.arg(count, 6) + u' ' + unit;
}
