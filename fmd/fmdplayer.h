#pragma once

#include "core/datawrapper.h"

#include <QList>
#include <QStringList>

class QFileInfo;

// One FMDataba player page. The scan comes with the FMDataba harvest.
class FMD_Player : public DataWrapper
{
public:
    QString name;

    void writeAscii(QTextStream &stream, const QChar &separator) override;
    void writeUtf(QTextStream &stream, const QChar &separator) override;
    void parsePage(QString &text) override;
    void testReport(QString &text) override;

    static bool downloadPlayers(QList<DataWrapper *> &players, const QStringList &urls,
                                bool followRedirects);
    static bool exportPlayers(const QFileInfo &info, QList<DataWrapper *> &players,
                              const bool &utf);
};
