#pragma once

#include "core/datawrapper.h"
#include "core/playerpagelist.h"

#include <QList>
#include <QStringList>

class QFileInfo;

// One Elite Prospects team page. The scan comes with the Elite Prospects harvest.
class EP_Team : public DataWrapper
{
public:
    QString teamName;

    void writeAscii(QTextStream &stream, const QChar &separator) override;
    void writeUtf(QTextStream &stream, const QChar &separator) override;
    void parsePage(QString &text) override;
    void testReport(QString &text) override;

    static PlayerPageList &playerUrls();
    static bool downloadTeams(QList<DataWrapper *> &teams, QStringList &urls);
    static bool saveTeams(const QFileInfo &info, QList<DataWrapper *> &teams, const bool &utf);
};
