#pragma once

#include "tests/support/fixtureweb.h"

#include <QList>
#include <QMetaType>
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

Q_DECLARE_METATYPE(FaultyAnswer)

// Every fault for the page at url, whose whole answer is good.
QList<FaultyAnswer> faultyAnswers(const QByteArray &good, const QString &url);
// Puts the fault on the page at url: its answer, or the loop with another page
// of the same site. An untrusted certificate is shown to as many connections as
// attempts, those after the request for before (the first ones when empty): the
// pages before the faulty one are trusted as always.
void putFault(FixtureWeb &web, const QString &url, const FaultyAnswer &fault, int attempts,
              const QString &before);

// The lines of a log that are error lines.
QStringList errorLines(const QStringList &lines);
