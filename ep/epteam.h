#pragma once

#include "core/datawrapper.h"
#include "core/playerpagelist.h"
#include "ep/epretirednumber.h"
#include "ep/epteamhistory.h"

#include <QList>
#include <QStringList>

class QFileInfo;

// One Elite Prospects team page: the team's facts, its season history and retired
// numbers. Its roster rows go into playerUrls(), the work list of the player pass.
class EP_Team : public DataWrapper
{
public:
    QString teamName;
    QString fullName;
    QString city;
    QString colours;
    qint16 founded = 0;
    QList<EP_TeamHistory> histories;
    QList<EP_RetiredNumber> retiredNumbers;

    void writeAscii(QTextStream &stream, const QChar &separator) override;
    void writeUtf(QTextStream &stream, const QChar &separator) override;
    void parsePage(QString &text) override;
    void testReport(QString &text) override;

    // Lives as long as the process; only the end of the player pass empties it.
    static PlayerPageList &playerUrls();
    static bool downloadTeams(QList<DataWrapper *> &teams, QStringList &urls);
    // Writes the clubs, club history and retired number files beside the chosen name.
    static bool saveTeams(const QFileInfo &info, QList<DataWrapper *> &teams, const bool &utf);
};
