#pragma once

#include "core/datawrapper.h"

#include <QList>

// One season row of the history table at the foot of an Elite Prospects team
// page: league, standing figures and the outcome of the post season.
class EP_TeamHistory : public DataWrapper
{
public:
    QString team;
    // Nothing fills it: the column of that title is always empty.
    QString actualName;
    QString league;
    // Named by the year in which the season ends.
    qint16 season = 0;
    qint16 gp = 0;
    qint16 wins = 0;
    qint16 losses = 0;
    qint16 ties = 0;
    qint16 otWins = 0;
    // Shown in the sample line, written to no file.
    qint16 otLosses = 0;
    qint16 goalsFor = 0;
    qint16 goalsAgainst = 0;
    qint16 points = 0;
    qint16 standing = 0;
    QString postSeason;

    void writeAscii(QTextStream &stream, const QChar &separator) override;
    void writeUtf(QTextStream &stream, const QChar &separator) override;
    // The text is one table row, from behind the tag of its season cell.
    void parsePage(QString &row) override;

    // The season of the last row that had a year, for the rows without one. It
    // lives as long as the process: the next team starts from where this one ended.
    static qint16 lastSeason;
};

// Cuts the history table out of what the team scanner left of its page and makes
// a row of each table row. The text keeps only the tail of the section behind the
// last row, which the retired number scan goes on with. True when rows is not empty.
bool scanTeamHistory(QList<EP_TeamHistory> &rows, QString &text, const QString &teamName);
// One row in a line for the team page report; "n/a" when there is none.
QString teamHistorySample(const QList<EP_TeamHistory> &rows, const int &index);
