#include "ep/epplayer.h"

#include "core/playerpagelist.h"

void EP_Player::parsePage(QString &text)
{
    Q_UNUSED(text)
}

void EP_Player::testReport(QString &text)
{
    parsePage(text);
}

void EP_Player::writeAsciiRow(QTextStream &stream, const QChar &separator,
                              const QString &teamOverride)
{
    Q_UNUSED(stream)
    Q_UNUSED(separator)
    Q_UNUSED(teamOverride)
}

void EP_Player::writeUtfRow(QTextStream &stream, const QChar &separator,
                            const QString &teamOverride)
{
    Q_UNUSED(stream)
    Q_UNUSED(separator)
    Q_UNUSED(teamOverride)
}

bool EP_Player::downloadPlayers(QList<DataWrapper *> &players, PlayerPageList &list)
{
    Q_UNUSED(players)
    Q_UNUSED(list)
    return true;
}

bool EP_Player::savePlayers(const QFileInfo &info, QList<DataWrapper *> &players, const bool &utf)
{
    Q_UNUSED(info)
    Q_UNUSED(players)
    Q_UNUSED(utf)
    return true;
}
