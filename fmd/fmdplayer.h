#pragma once

#include "core/datawrapper.h"

#include <QDate>
#include <QHash>
#include <QList>
#include <QMap>
#include <QStringList>

#include <array>

class QFileInfo;

// One FMDataba player as the profile page shows him: identity, contract, value,
// the position text and the two tables of ratings and attributes.
class FMD_Player : public DataWrapper
{
public:
    // Indexes of positionRatings, in the order of the grid that both football
    // harvests fill. The slot titled "FR" holds the strikers; Unused stays 1.
    enum Slot { GK, SW, D, DM, M, AM, Unused, WB, FR, Right, Left, Centre, SlotCount };

    QString firstName;
    QString secondName;
    QString commonName;
    QString completeName;
    QDate dateOfBirth;
    float height = 0;
    QString nation1;
    QDate contractEnd;
    QString club;
    quint32 marketValue = 0;
    QString id;
    QString nameInUrl;
    QString foot;
    qint16 leftFootRating = 1;
    qint16 rightFootRating = 20;
    QString positions;
    std::array<qint16, SlotCount> positionRatings = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    quint32 internationalApps = 0;
    quint32 internationalGoals = 0;
    QMap<QString, qint16> ratings;
    QMap<QString, qint16> attributes;
    // The site shows no figure for these; they keep the columns "CA" and "PA".
    qint32 currentAbility = 0;
    qint32 potentialAbility = 0;

    FMD_Player();

    void writeAscii(QTextStream &stream, const QChar &separator) override;
    void writeUtf(QTextStream &stream, const QChar &separator) override;
    void parsePage(QString &text) override;
    void testReport(QString &text) override;

    // The text patterns of the position text and the slot each sets; filled on first use.
    static QHash<QString, qint16> &positionTable();
    // The vocabulary of both tables, in the order the page groups it.
    static const QStringList &ratingNames();
    static const QStringList &attributeNames();

    void splitCommonName();
    void parseInternationalRecord(QString &text);
    void decodeFoot();
    void decodePositions();
    void decodeSides();
    void readRatings(QString &text);
    void readAttributes(QString &text);
    void applyHeight(const QString &centimetres);
    void applyNation();
    void applyValue(QString value);

    static bool downloadPlayers(QList<DataWrapper *> &players, const QStringList &urls,
                                bool followRedirects);
    static bool exportPlayers(const QFileInfo &info, QList<DataWrapper *> &players,
                              const bool &utf);
};
