#pragma once

#include "core/datawrapper.h"

#include <QList>
#include <QStringList>

// One Elite Prospects league page: its name for the log, and the team page
// addresses that every league page of a run pours into teamUrls().
class EP_League : public DataWrapper
{
public:
    QString leagueName;

    void parsePage(QString &text) override;
    void testReport(QString &text) override;

    // The season of the present pass or test; 1 or above asks for the standings
    // form of the page, anything else for the team list form.
    static qint32 selectedSeason;
    // Lives as long as the process: a later run works through what earlier runs left.
    static QStringList &teamUrls();
    static bool downloadLeagues(QList<DataWrapper *> &leagues, QStringList &urls, qint32 season);
};
