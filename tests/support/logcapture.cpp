#include "tests/support/logcapture.h"

#include "core/sharedstate.h"
#include "tests/support/testsupport.h"

LogCapture::LogCapture()
    : edit(new QPlainTextEdit)
{
    setLogOutput(edit);
}

LogCapture::~LogCapture()
{
    if (logOutput == edit)
        setLogOutput(nullptr);
    delete edit;
}

QStringList LogCapture::lines() const
{
    return logLines(edit);
}
