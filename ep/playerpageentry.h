#pragma once

#include <QDate>
#include <QString>

// One row of an Elite Prospects roster table, kept by value beside the player's
// slug. Of its fields the player pass reads only duplicateIndex, jersey, team and
// status; the rest is scanned and converted for completeness.
class PlayerPageEntry
{
public:
    qint32 duplicateIndex = -1;
    QString firstName;
    QString secondName;
    QDate dateOfBirth;
    qint16 yearOfBirth = 0;
    QString birthPlace;
    qint16 height = 0;
    qint16 weight = 0;
    QString position;
    QString stickSide;
    qint16 jersey = 0;
    QString team;
    qint16 contractExpiry = 0;
    QString status;

    void setName(const QString &text);
    void setDateOfBirth(const QString &text);
    void setBirthPlace(const QString &text);
    void setHeight(const QString &text);
    void setWeight(const QString &text);
    void setPosition(const QString &text);
    void setStickSide(const QString &text);
    void setJersey(const QString &text);
    void setTeam(const QString &text);
    void setContractExpiry(const QString &text);
    void setStatus(bool captain, bool alternate);
    void setDuplicateIndex(qint32 index);
};
