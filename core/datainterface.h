#pragma once

#include "core/website.h"

#include <QList>
#include <QObject>
#include <QStringList>

class DataWrapper;
class QComboBox;

// Shuffles a player list in place with the C library's rand(): for each place
// from the second on, a swap with a place at or before it.
void shuffleUrls(QStringList &urls);

// The one object between the window and the scanners: owns the records, plans
// a job from its first input line and runs its passes in order.
class DataInterface : public QObject
{
    Q_OBJECT

public:
    QList<DataWrapper *> leagues;
    QList<DataWrapper *> players;
    QList<DataWrapper *> teams;
    qint32 season = 2000;
    Website website = TransferMarkt;

    DataInterface() = default;
    ~DataInterface() override;

    bool startDownload(const Website &website, QStringList &urls,
                       const bool &downloadPlayerDetails);
    bool saveRecords(const QString &fileName, const bool &utf);
    bool testLeaguePage(const Website &website, QString &text);
    bool testTeamPage(const Website &website, QString &text);
    bool testPlayerPage(const Website &website, QString &text);
    void clearRecords();

    static void fillWebsiteBox(QComboBox *box);
    // The fourteen FMDataba list pages that stand beside each "best-players" page.
    static const QStringList &fmdPageNames();

signals:
    void pageCountIncreased(int count);

public slots:
    void setSeason(int i);

private:
    int runLeaguePass(QStringList &urls);
    int runTeamPass();
    int runPlayerPass(bool idInterval, qint32 firstId, qint32 lastId);
    int runPlayerUrlPass(const QStringList &urls);
    int runNationalTeamPass(QStringList &urls);
    void expandFmdList(QStringList &urls);
    int playerPageTotal(qsizetype players) const;
    bool record(DataWrapper *created, QList<DataWrapper *> &list, QString &text);
};
