#pragma once

#include <QIcon>

// Names the application and its maker; they choose the settings store.
void setApplicationIdentity();

// The program's icon in the sizes the desktop shows it.
QIcon applicationIcon();
