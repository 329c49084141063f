#pragma once

#include <QtGlobal>

// Equal to the indexes of the website combo box.
enum Website : qint32 { EliteProspects = 0, TransferMarkt = 1, FMDataba = 2 };
