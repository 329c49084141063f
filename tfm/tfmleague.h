#pragma once

#include "core/datawrapper.h"

#include <QList>
#include <QStringList>

// One Transfer Markt competition page: its name and nation for the log, and the
// team page addresses that every league page of a run pours into teamUrls().
class TFM_League : public DataWrapper
{
public:
    QString leagueName;
    QString nation;

    void parsePage(QString &text) override;
    void testReport(QString &text) override;

    // Lives as long as the process: a later run works through what earlier runs left.
    static QStringList &teamUrls();
    static bool downloadLeagues(QList<DataWrapper *> &leagues, QStringList &urls, qint32 season);
};
