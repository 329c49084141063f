#pragma once

#include "core/datawrapper.h"
#include "core/playerpagelist.h"

#include <QList>
#include <QStringList>

// One Transfer Markt squad page, a national team's extended squad or a club's
// detailed squad: the names for the log and the player paths in playerUrls().
class TFM_Team : public DataWrapper
{
public:
    QString teamName;
    QString leagueName;

    void parsePage(QString &text) override;
    void testReport(QString &text) override;

    // Lives as long as the process and only grows.
    static PlayerPageList &playerUrls();
    static bool downloadTeams(QList<DataWrapper *> &teams, const QStringList &urls);
};
