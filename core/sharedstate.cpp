#include "core/sharedstate.h"

#include "core/values.h"

#include <QPlainTextEdit>
#include <QString>
#include <QStringList>

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

QString passLine(qsizetype number, const QString &name, qsizetype count, const QString &unit)
{
    return u"%1"_s.arg(number, 6) + u".\t"_s + u"%1"_s.arg(name, -40) + u"\t"_s
        + u"%1"_s.arg(count, 6) + u' ' + unit;
}

void appendLeagueReport(const QString &leagueName, const QStringList &teamUrls)
{
    appendLog(u"--- TESTING LEAGUE WEBPAGE ---"_s);
    appendLog(u"%1: %2"_s.arg(u"League"_s, toAsciiName(leagueName)));
    appendLog(u"%1: %2"_s.arg(u"Teams"_s, QString::number(teamUrls.size())));
    for (qsizetype i = 0; i < teamUrls.size(); ++i)
        appendLog(u"Team %1: %2"_s.arg(QString::number(i + 1), teamUrls.at(i)));
}

void removeDuplicateTeams(QStringList &teamUrls)
{
    const qsizetype removed = teamUrls.removeDuplicates();
    if (removed < 1)
        appendLog(u"No duplicate teams were found."_s);
    else
        appendLog(
            u"%1 duplicate team(s) have been removed from the downloads list."_s.arg(removed));
}
