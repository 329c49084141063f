#include "tfm/tfmplayer.h"

#include <QFileInfo>

void TFM_Player::writeAscii(QTextStream &stream, const QChar &separator)
{
    Q_UNUSED(stream)
    Q_UNUSED(separator)
}

void TFM_Player::writeUtf(QTextStream &stream, const QChar &separator)
{
    Q_UNUSED(stream)
    Q_UNUSED(separator)
}

bool TFM_Player::exportPlayers(const QFileInfo &info, const QList<DataWrapper *> &players,
                               const bool &utf)
{
    Q_UNUSED(info)
    Q_UNUSED(players)
    Q_UNUSED(utf)
    return true;
}
