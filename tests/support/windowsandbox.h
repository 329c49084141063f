#pragma once

#include <QString>
#include <QTemporaryDir>

// A settings store and a current folder of one test program's own. Other test
// programs that keep settings may run beside it and must not see its store
// cleared under them, and the window leaves "log.txt" in the current folder
// when it closes. Leaving puts the earlier current folder back.
class WindowSandbox
{
public:
    WindowSandbox() = default;
    ~WindowSandbox();
    WindowSandbox(const WindowSandbox &) = delete;
    WindowSandbox &operator=(const WindowSandbox &) = delete;

    // Turns on the test mode of the standard paths, points the user settings
    // store into the folder and makes it current. False when any of it failed.
    bool enter();
    QString path() const { return folder.path(); }
    QString filePath(const QString &name) const { return folder.filePath(name); }

private:
    QTemporaryDir folder;
    QString previousFolder;
};
