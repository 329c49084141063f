#include "tfm/tfmplayer.h"

using namespace Qt::StringLiterals;

const QString TFM_Player::dateFormat = u"dd.MM.yyyy"_s;
const QHash<qint32, qint32> TFM_Player::worldRepByValue;
const QHash<qint32, qint32> TFM_Player::wageByValue;

const QHash<QString, qint16> &TFM_Player::positionTable()
{
    static const QHash<QString, qint16> table;
    return table;
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

void TFM_Player::normaliseNames() { }

void TFM_Player::applyValueTables() { }

void TFM_Player::applyFoot() { }
