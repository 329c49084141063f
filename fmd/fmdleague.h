#pragma once

#include "core/datawrapper.h"

#include <QList>
#include <QStringList>

// One FMDataba player list, walked page by page. What counts is the profile
// addresses that every list of a run pours into playerUrls(); the record itself
// only carries the list's name for the log.
class FMD_League : public DataWrapper
{
public:
    QString leagueName;
    // The list pages name no nation: it stays null and shows as blanks in the log.
    QString nation;

    void parsePage(QString &text) override;
    void testReport(QString &text) override;

    // Live as long as the process: a later run works through what earlier runs left.
    static QStringList &playerUrls();
    // Kept beside playerUrls() for the shape of the passes; nothing fills it.
    static QStringList &teamUrls();
    static bool downloadLeagues(QList<DataWrapper *> &leagues, QStringList &urls, qint32 season);

    // Number of the page an address asks for: the text behind its last "/", 0 when
    // that is empty or no number.
    static qint32 pageOfAddress(const QString &url);
    // Number of the list's last page from the heading of a list page; 1 when the
    // heading has no page clause, or no heading is there.
    static qint32 lastPageOfHeading(QString &page);
};
