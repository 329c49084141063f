#pragma once

#include "core/datawrapper.h"

#include <QList>
#include <QStringList>

// One FMDataba player list page. The scan comes with the FMDataba harvest.
class FMD_League : public DataWrapper
{
public:
    QString leagueName;

    void parsePage(QString &text) override;
    void testReport(QString &text) override;

    static QStringList &playerUrls();
    static QStringList &teamUrls();
    static bool downloadLeagues(QList<DataWrapper *> &leagues, QStringList &urls, qint32 season);
};
