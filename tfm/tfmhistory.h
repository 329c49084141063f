#pragma once

#include "core/datawrapper.h"

#include <QList>

// The year in which a season such as 19/20 ends; a plain year stays.
QString seasonYear(QString &text);

// One row of a player's club history page.
class TFM_History : public DataWrapper
{
public:
    QString club;
    QString season;
    quint32 apps = 0;
    quint32 goals = 0;
    bool onLoan = false;

    void writeAscii(QTextStream &stream, const QChar &separator) override;
    void writeUtf(QTextStream &stream, const QChar &separator) override;
    // The text is one table row, not a page.
    void parsePage(QString &row) override;
    void testReport(QString &text) override;

    static void scanHistoryPage(QList<TFM_History> &rows, QString &page, QString &name,
                                QString &dateOfBirth);
    static bool downloadHistory(QList<TFM_History> &rows, const QString &path, QString &name,
                                QString &dateOfBirth);
};
