#pragma once

#include "core/datawrapper.h"
#include "ep/epplayerhistory.h"

#include <QDate>
#include <QList>

class PlayerPageList;
class QFileInfo;

// One Elite Prospects player: made from a roster row (team, jersey, status) by
// the player pass, then filled from the player's own page with the facts, the
// international totals and the career rows. The career rows point into this
// record, so it lives on the heap and is never copied.
class EP_Player : public DataWrapper
{
public:
    EP_Player() = default;
    EP_Player(const EP_Player &) = delete;
    EP_Player &operator=(const EP_Player &) = delete;

    // Copied from the roster row by the pass; 0 in a record that no pass made.
    qint32 duplicateIndex = 0;
    bool isDuplicate = false;
    QString firstName;
    QString secondName;
    QDate dateOfBirth;
    qint16 yearOfBirth = 0;
    qint16 age = 0;
    QString birthPlace;
    QString nation1;
    QString nation2;
    qint16 height = 0;
    qint16 weight = 0;
    QString position;
    QString stickSide;
    qint16 jersey = 0;
    QString team;
    qint16 contractExpiry = 0;
    quint32 capHit = 0;
    QString nhlDraft;
    QString reservedText;
    QString status;
    qint16 intGp = 0;
    qint16 intGoals = 0;
    qint16 intAssists = 0;
    QList<EP_PlayerHistory> histories;

    void parsePage(QString &text) override;
    void testReport(QString &text) override;
    // One line of the player layout; nothing in the program calls these. The base
    // writers stay, and they are what the player file holds.
    virtual void writeAsciiRow(QTextStream &stream, const QChar &separator,
                               const QString &teamOverride);
    virtual void writeUtfRow(QTextStream &stream, const QChar &separator,
                             const QString &teamOverride);

    static bool downloadPlayers(QList<DataWrapper *> &players, PlayerPageList &list);
    static bool savePlayers(const QFileInfo &info, QList<DataWrapper *> &players, const bool &utf);

private:
    void readFacts(QString &text);
    void readContract(QString &text);
    void readInternationalTotals(const QString &text);
    void writeRow(QTextStream &stream, const QChar &separator, const QString &teamOverride,
                  bool ascii) const;
};
