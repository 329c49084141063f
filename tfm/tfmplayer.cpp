#include "tfm/tfmplayer.h"

#include "core/playerpagelist.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

const QString TFM_Player::dateFormat = u"dd.MM.yyyy"_s;
const QHash<qint32, qint32> TFM_Player::worldRepByValue;
const QHash<qint32, qint32> TFM_Player::wageByValue;

const QHash<QString, qint16> &TFM_Player::positionTable()
{
    static const QHash<QString, qint16> table;
    return table;
}

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

void TFM_Player::parsePage(QString &text)
{
    Q_UNUSED(text)
}

void TFM_Player::testReport(QString &text)
{
    parsePage(text);
}

void TFM_Player::addNationalTeamStats(QString &careerText)
{
    Q_UNUSED(careerText)
}

void TFM_Player::applyPositions() { }

void TFM_Player::applySides() { }

QString TFM_Player::displayName(const QString &fallback)
{
    return fallback;
}

bool TFM_Player::downloadPlayers(QList<DataWrapper *> &players, PlayerPageList &list,
                                 bool followRedirects)
{
    Q_UNUSED(players)
    Q_UNUSED(list)
    Q_UNUSED(followRedirects)
    return true;
}

bool TFM_Player::exportPlayers(const QFileInfo &info, const QList<DataWrapper *> &players,
                               const bool &utf)
{
    Q_UNUSED(info)
    Q_UNUSED(players)
    Q_UNUSED(utf)
    return true;
}

void TFM_Player::normaliseNames() { }

void TFM_Player::applyValueTables() { }

void TFM_Player::applyFoot() { }
