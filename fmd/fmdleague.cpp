#include "fmd/fmdleague.h"

void FMD_League::parsePage(QString &text)
{
    Q_UNUSED(text)
}

void FMD_League::testReport(QString &text)
{
    parsePage(text);
}

QStringList &FMD_League::playerUrls()
{
    static QStringList urls;
    return urls;
}

QStringList &FMD_League::teamUrls()
{
    static QStringList urls;
    return urls;
}

bool FMD_League::downloadLeagues(QList<DataWrapper *> &leagues, QStringList &urls, qint32 season)
{
    Q_UNUSED(leagues)
    Q_UNUSED(urls)
    Q_UNUSED(season)
    return true;
}
