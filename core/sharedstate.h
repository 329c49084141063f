#pragma once

#include <QStringList>
#include <QtGlobal>

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

// The options ask for a player's history page and not for the data page, so the
// history page is each player's only page.
bool historyOnlyMode();

// Appends one line to the log box; does nothing while no log box is set.
void appendLog(const QString &line);
// A pass's log line for one downloaded page: its number in a column of 6, the
// name and the place it belongs to in columns of 40 and 35, and how many entries
// the list of the next pass now holds, in a column of 6 and followed by unit.
QString passLine(qsizetype number, const QString &name, const QString &place, qsizetype count,
                 const QString &unit);
// The same line without the place column.
QString passLine(qsizetype number, const QString &name, qsizetype count, const QString &unit);
// The offline report of a league page: its name, made Ascii, and the whole team
// list as it stands, what earlier pages left in it included.
void appendLeagueReport(const QString &leagueName, const QStringList &teamUrls);
// The end of a league pass: drops the repeated team addresses, first ones kept,
// and says in the log how many went.
void removeDuplicateTeams(QStringList &teamUrls);
