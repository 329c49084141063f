#include "fmd/fmdplayer.h"

void FMD_Player::writeAscii(QTextStream &stream, const QChar &separator)
{
    Q_UNUSED(stream)
    Q_UNUSED(separator)
}

void FMD_Player::writeUtf(QTextStream &stream, const QChar &separator)
{
    Q_UNUSED(stream)
    Q_UNUSED(separator)
}

void FMD_Player::parsePage(QString &text)
{
    Q_UNUSED(text)
}

void FMD_Player::testReport(QString &text)
{
    parsePage(text);
}

bool FMD_Player::downloadPlayers(QList<DataWrapper *> &players, const QStringList &urls,
                                 bool followRedirects)
{
    Q_UNUSED(players)
    Q_UNUSED(urls)
    Q_UNUSED(followRedirects)
    return true;
}

bool FMD_Player::exportPlayers(const QFileInfo &info, QList<DataWrapper *> &players,
                               const bool &utf)
{
    Q_UNUSED(info)
    Q_UNUSED(players)
    Q_UNUSED(utf)
    return true;
}
