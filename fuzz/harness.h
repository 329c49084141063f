#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>

class DataWrapper;

// What every fuzz target shares: one offscreen application with a log box that
// the scanners report into, made on the first input and kept for the whole run.
namespace Fuzz {

// The input as a page text. A first byte below 16, which no saved page begins
// with, sets the three Transfer Markt options and the Elite Prospects league
// season (2023 or none) from its bits and is not part of the page; otherwise
// the options are the window's defaults and there is no season. The rest is read
// as UTF-8, zero bytes included, so that invalid sequences reach the scanners
// as replacement characters.
QString pageText(const uint8_t *data, size_t size);

// Empties the log box and the passes' address lists, which would otherwise
// grow from one input to the next and make every run slower than the last, and
// puts back the years that the history rows carry from one scan to the next.
void reset();

// Writes the record as one Ascii and one Utf export line into a buffer.
void writeRecord(DataWrapper &record);

// The whole offline road of a page: reset, the record's test report (which
// scans the page into it and prints to the log box), then both exports.
void exercise(DataWrapper &record, const uint8_t *data, size_t size);

} // namespace Fuzz
