#pragma once

#include <QString>

// Path of a file under tests/fixtures.
QString fixturePath(const QString &relative);
// The bytes of a fixture file, or an empty array when it can't be read.
QByteArray fixtureBytes(const QString &relative);
