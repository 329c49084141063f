#include "tfm/tfmleague.h"

void TFM_League::parsePage(QString &text)
{
    Q_UNUSED(text)
}

void TFM_League::testReport(QString &text)
{
    parsePage(text);
}

QStringList &TFM_League::teamUrls()
{
    static QStringList urls;
    return urls;
}

bool TFM_League::downloadLeagues(QList<DataWrapper *> &leagues, QStringList &urls, qint32 season)
{
    Q_UNUSED(leagues)
    Q_UNUSED(urls)
    Q_UNUSED(season)
    return true;
}
