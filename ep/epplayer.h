#pragma once

#include "core/datawrapper.h"

#include <QList>

class PlayerPageList;
class QFileInfo;

// One Elite Prospects player page. The scan comes with the Elite Prospects harvest.
class EP_Player : public DataWrapper
{
public:
    QString firstName;
    QString secondName;

    void parsePage(QString &text) override;
    void testReport(QString &text) override;
    virtual void writeAsciiRow(QTextStream &stream, const QChar &separator,
                               const QString &teamOverride);
    virtual void writeUtfRow(QTextStream &stream, const QChar &separator,
                             const QString &teamOverride);

    static bool downloadPlayers(QList<DataWrapper *> &players, PlayerPageList &list);
    static bool savePlayers(const QFileInfo &info, QList<DataWrapper *> &players, const bool &utf);
};
