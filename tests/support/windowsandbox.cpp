#include "tests/support/windowsandbox.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

WindowSandbox::~WindowSandbox()
{
    if (!previousFolder.isEmpty())
        QDir::setCurrent(previousFolder);
}

bool WindowSandbox::enter()
{
    QStandardPaths::setTestModeEnabled(true);
    if (!folder.isValid())
        return false;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    previousFolder = QDir::currentPath();
    if (!QDir::setCurrent(folder.path()))
        return false;
    return QSettings().fileName().startsWith(folder.path());
}
