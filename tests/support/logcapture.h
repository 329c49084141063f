#pragma once

#include <QPlainTextEdit>
#include <QStringList>

// A log box of a test program's own, set as the log output while it lives, so
// that the lines the scanners, passes and exports write can be read back.
// A test that takes the log output away (or a window that sets its own) puts
// this box back with setLogOutput(log.box()). Leaving unsets the log output
// where it still points at this box.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture &) = delete;
    LogCapture &operator=(const LogCapture &) = delete;

    QPlainTextEdit *box() const { return edit; }
    QPlainTextEdit *operator->() const { return edit; }
    // The lines of the box.
    QStringList lines() const;

private:
    QPlainTextEdit *edit;
};
