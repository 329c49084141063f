#pragma once

#include "core/datawrapper.h"
#include "tfm/tfmhistory.h"

#include <QDate>
#include <QHash>
#include <QList>
#include <QStringList>

#include <array>

class PlayerPageList;
class QFileInfo;

// One Transfer Markt player: filled from the profile page, completed by the
// history page, exported as one row of the main file.
class TFM_Player : public DataWrapper
{
public:
    // Indexes of positionRatings, in the order of the export's columns.
    enum Position { GK, SW, D, DM, M, AM, ST, WB, FR, Right, Left, Centre, PositionCount };

    QString firstName;
    QString secondName;
    QString commonName;
    QString completeName;
    QDate dateOfBirth;
    float height = 0;
    QString nation1;
    QString nation2;
    QDate contractStart;
    QDate contractEnd;
    QDate loanExpiry;
    QString club;
    QString onLoanFrom;
    quint32 marketValue = 0;
    QList<TFM_History> history;
    QString id;
    QString nameInUrl;
    quint32 worldRep = 0;
    quint32 wage = 0;
    qint16 squadNumber = 0;
    QString foot;
    qint16 leftFootRating = 1;
    qint16 rightFootRating = 20;
    QString mainPosition;
    QStringList otherPositions;
    std::array<qint16, PositionCount> positionRatings = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    quint32 internationalApps = 0;
    quint32 internationalGoals = 0;

    static const QString dateFormat;
    static const QHash<qint32, qint32> worldRepByValue;
    static const QHash<qint32, qint32> wageByValue;
    // The 26 position words with the index each rates; filled on first use.
    static const QHash<QString, qint16> &positionTable();

    void writeAscii(QTextStream &stream, const QChar &separator) override;
    void writeUtf(QTextStream &stream, const QChar &separator) override;
    void parsePage(QString &text) override;
    void testReport(QString &text) override;

    void addNationalTeamStats(QString &careerText);
    void applyPositions();
    void applySides();
    QString displayName(const QString &fallback);

    static bool downloadPlayers(QList<DataWrapper *> &players, PlayerPageList &list,
                                bool followRedirects);
    static bool exportPlayers(const QFileInfo &info, const QList<DataWrapper *> &players,
                              const bool &utf);

private:
    void normaliseNames();
    void applyValueTables();
    void applyFoot();
};
