#pragma once

#include <QString>

// One row of an Elite Prospects roster table.
class PlayerPageEntry
{
public:
    qint32 duplicateIndex = -1;
    QString firstName;
    QString secondName;
};
