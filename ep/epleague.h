#pragma once

#include "core/datawrapper.h"

#include <QList>
#include <QStringList>

// One Elite Prospects league page. The scan comes with the Elite Prospects harvest.
class EP_League : public DataWrapper
{
public:
    QString leagueName;

    void parsePage(QString &text) override;
    void testReport(QString &text) override;

    // The season of the present pass or test; 1 or above asks for the standings form.
    static qint32 selectedSeason;
    static QStringList &teamUrls();
    static bool downloadLeagues(QList<DataWrapper *> &leagues, QStringList &urls, qint32 season);
};
