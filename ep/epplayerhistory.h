#pragma once

#include "core/datawrapper.h"

#include <QDate>
#include <QList>
#include <QString>

// One row of an Elite Prospects player's career table: a team and a season, with
// the regular season and the playoffs side by side. Skaters and goalkeepers share
// the fields; a goalkeeper's row fills the two averages and a skater's the four
// counts. The name and the date are read through pointers into the owning
// EP_Player, which stays where it is on the heap while it has rows.
class EP_PlayerHistory : public DataWrapper
{
public:
    EP_PlayerHistory() = default;
    EP_PlayerHistory(const QString *firstName, const QString *secondName, const QDate *dateOfBirth);

    const QString *firstName = nullptr;
    const QString *secondName = nullptr;
    const QDate *dateOfBirth = nullptr;
    qint16 year = 0;
    QString club;
    QString competition;
    qint16 regularGp = 0;
    qint16 regularGoals = 0;
    qint16 regularAssists = 0;
    qint16 regularPim = 0;
    qint16 regularPlusMinus = 0;
    double regularGaa = 0;
    double regularSvp = 0;
    QString playoffType;
    qint16 playoffGp = 0;
    qint16 playoffGoals = 0;
    qint16 playoffAssists = 0;
    qint16 playoffPim = 0;
    qint16 playoffPlusMinus = 0;
    double playoffGaa = 0;
    double playoffSvp = 0;
    bool isAlternate = false;
    bool isCaptain = false;
    qint16 ageType = -1;
    bool isInternational = false;
    bool isValid = true;
    bool onLoan = false;

    // The year of the last row that had one. Never reset, not between players either.
    static qint16 lastYear;

    // A regular season line and a playoff line of the history file, each only when
    // its half has games.
    void writeAscii(QTextStream &stream, const QChar &separator) override;
    void writeUtf(QTextStream &stream, const QChar &separator) override;
    // The text is one table row from its "<tr" on, not a page.
    void parsePage(QString &row) override;

private:
    void writeLines(QTextStream &stream, const QChar &separator, bool ascii) const;
};

// Made at start and kept to the end; nothing reads it.
extern const QString notAvailable;

// Cuts the career table out of a copy of the page and appends every row that has
// a club. True when rows is not empty afterwards.
bool scanPlayerHistory(const QString *firstName, const QString *secondName,
                       const QDate *dateOfBirth, QList<EP_PlayerHistory> &rows, QString text);
// One row in one line, for a test report.
QString playerHistorySample(const QList<EP_PlayerHistory> &rows, const int &index);
