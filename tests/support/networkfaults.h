#pragma once

#include "tests/support/fixtureweb.h"

#include <QList>
#include <QStringList>

// The network faults the drills put on one page of a pass, each as the faulty
// page answers it.
enum class NetworkFault {
    ClosedMidBody,
    ResetBeforeAnswer,
    FiftyMegabytes,
    ZeroBytesOnly,
    InvalidUtf8,
    ByteOrderMark,
    Status500,
    Status404,
    RedirectToMissing,
    RedirectLoop,
    UntrustedCertificate,
};

// A fault's row name and answer. With redirectLoop the page sends on to another
// page that sends back to it (the answer is unused); with untrusted its
// connection is shown a certificate the system does not trust, and behind it
// stands the good page.
struct FaultyAnswer
{
    NetworkFault fault;
    const char *name;
    FixtureWeb::Answer answer;
    bool redirectLoop = false;
    bool untrusted = false;
};

// Every fault for a page whose whole answer is good; the redirect to a missing
// page points at missingUrl.
QList<FaultyAnswer> faultyAnswers(const QByteArray &good, const QString &missingUrl);

// The lines of a log that are error lines.
QStringList errorLines(const QStringList &lines);
