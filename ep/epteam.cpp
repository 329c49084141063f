#include "ep/epteam.h"

void EP_Team::writeAscii(QTextStream &stream, const QChar &separator)
{
    Q_UNUSED(stream)
    Q_UNUSED(separator)
}

void EP_Team::writeUtf(QTextStream &stream, const QChar &separator)
{
    Q_UNUSED(stream)
    Q_UNUSED(separator)
}

void EP_Team::parsePage(QString &text)
{
    Q_UNUSED(text)
}

void EP_Team::testReport(QString &text)
{
    parsePage(text);
}

PlayerPageList &EP_Team::playerUrls()
{
    static PlayerPageList list;
    return list;
}

bool EP_Team::downloadTeams(QList<DataWrapper *> &teams, QStringList &urls)
{
    Q_UNUSED(teams)
    Q_UNUSED(urls)
    return true;
}

bool EP_Team::saveTeams(const QFileInfo &info, QList<DataWrapper *> &teams, const bool &utf)
{
    Q_UNUSED(info)
    Q_UNUSED(teams)
    Q_UNUSED(utf)
    return true;
}
