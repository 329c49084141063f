#include "status/statusdisplay.h"

#include <QBoxLayout>
#include <QDateTime>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QTextStream>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

// Truncates toward zero like a cast, but a value past the 64-bit range (a
// wrapped-around estimate can get there) or not a number stays defined.
qint64 truncated(float value)
{
    constexpr float limit = 9.2e18f;
    if (std::isnan(value))
        return 0;
    if (value >= limit)
        return std::numeric_limits<qint64>::max();
    if (value <= -limit)
        return std::numeric_limits<qint64>::min();
    return qint64(value);
}

// float(count * unit), with the product taken where it can't overflow; exact
// below 2^53, so the one rounding is the conversion to float as before.
float scaled(qint64 count, qint64 unit)
{
    return float(double(count) * double(unit));
}

} // namespace

QString formatTime(const float &milliseconds)
{
    // Single precision throughout, truncating toward zero: past about 4.66 hours
    // the milliseconds are already rounded before they are split.
    const qint64 h = truncated(milliseconds / 3600000.0f);
    const qint64 m = truncated((milliseconds - scaled(h, 3600000)) / 60000.0f);
    const qint64 s = truncated((milliseconds - scaled(m, 60000) - scaled(h, 3600000)) / 1000.0f);
    if (h < 1)
        return u"%1:%2"_s.arg(m, 2, 10, QChar(u'0')).arg(s, 2, 10, QChar(u'0'));
    return u"%1:%2:%3"_s.arg(h, 2, 10, QChar(u'0'))
        .arg(m, 2, 10, QChar(u'0'))
        .arg(s, 2, 10, QChar(u'0'));
}

float estimateRemaining(qint64 elapsedMs, quint32 pageCount, quint32 pageCountTotal)
{
    // No page finished yet (a run that announced nothing and stops at once):
    // nothing to average, so 0 ms a page rather than a division by zero.
    const qint64 msPerPage = pageCount == 0 ? 0 : elapsedMs / qint64(pageCount);
    // Wraps around when more pages finished than were announced; left so.
    const quint32 pagesLeft = pageCountTotal - pageCount;
    return float(pagesLeft) * float(msPerPage);
}

static QLineEdit *readOnlyField(QWidget *parent)
{
    auto *edit = new QLineEdit(parent);
    edit->setReadOnly(true);
    return edit;
}

StatusDisplay::StatusDisplay(QWidget *parent)
    : QWidget(parent)
{
    pagesEdit = readOnlyField(this);
    downloadedEdit = readOnlyField(this);
    progressEdit = readOnlyField(this);
    elapsedEdit = readOnlyField(this);
    remainingEdit = readOnlyField(this);
    statusEdit = readOnlyField(this);
    statusEdit->setMinimumWidth(797);
    statusEdit->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);

    // Each field is the buddy of the label beside it, which gives the field its
    // name for a screen reader.
    const auto labelFor = [this](const QString &text, QLineEdit *edit) {
        auto *label = new QLabel(text, this);
        label->setBuddy(edit);
        return label;
    };

    auto *statusRow = new QHBoxLayout;
    statusRow->addWidget(labelFor(u"Status:"_s, statusEdit), 1, Qt::AlignRight);
    statusRow->addWidget(statusEdit, 100, Qt::AlignRight);

    auto *figuresRow = new QHBoxLayout;
    const std::pair<QString, QLineEdit *> figures[] = {
        {u"Pages processed:"_s, pagesEdit},    {u"Progress:"_s, progressEdit},
        {u"Downloaded:"_s, downloadedEdit},    {u"Time elapsed:"_s, elapsedEdit},
        {u"Time remaining:"_s, remainingEdit},
    };
    for (const auto &[label, edit] : figures) {
        figuresRow->addWidget(labelFor(label, edit), 0, Qt::AlignRight);
        figuresRow->addWidget(edit, 0, Qt::AlignRight);
    }

    // The fields were made in another order than they are read: Tab goes from
    // the status line along the figures, left to right.
    QWidget *previous = statusEdit;
    for (const auto &[label, edit] : figures) {
        setTabOrder(previous, edit);
        previous = edit;
    }

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(statusRow);
    layout->addLayout(figuresRow);
}

void StatusDisplay::reset()
{
    for (QLineEdit *edit : {pagesEdit, downloadedEdit, progressEdit, elapsedEdit, remainingEdit})
        edit->clear();
    pageCount = 0;
    pageCountTotal = 0;
    downloadedKb = 0;
    progressPercent = 0;
}

void StatusDisplay::start()
{
    reset();
    timer.start();
}

void StatusDisplay::stop()
{
    pageCount = pageCountTotal;
    progressPercent = 100.0f;
    refreshDisplay();
}

void StatusDisplay::increment(int pageTextSize)
{
    ++pageCount;
    // Outside a run (the proxy test) nothing is announced: the panel shows an
    // infinite percentage until the test's end resets it.
    progressPercent = pageCountTotal == 0 ? std::numeric_limits<float>::infinity()
                                          : float(pageCount) / float(pageCountTotal) * 100.0f;
    // Each page's remainder below 1024 is dropped; the sum is taken in single
    // precision.
    const int kb = pageTextSize / 1024;
    const float sum = float(kb) + float(downloadedKb);
    downloadedKb = sum <= 0.0f ? 0u
        : sum >= 4294967295.0f ? std::numeric_limits<quint32>::max()
                               : quint32(sum);
    refreshDisplay();
}

void StatusDisplay::incrementPageCountTotal(int i)
{
    pageCountTotal += quint32(i);
}

void StatusDisplay::showError(const QString &text)
{
    statusEdit->setText(u"ERROR: %1"_s.arg(text));
}

void StatusDisplay::showSuccess(const QString &text)
{
    statusEdit->setText(u"SUCCESS: %1"_s.arg(text));
}

void StatusDisplay::writeLogHeader(QIODevice *device)
{
    QTextStream stream(device);
    stream << u"========== "_s
           << QDateTime::currentDateTime().toString(u"ddd dd MMMM yyyy @ hh:mm (t)"_s)
           << u" ==========\n"_s;
    stream << u"Pages processed: "_s << pagesEdit->text() << u"\n"_s;
    stream << u"Time elapsed: "_s << elapsedEdit->text() << u"\n\n"_s;
}

void StatusDisplay::refreshDisplay()
{
    pagesEdit->setText(u"%1 of %2"_s.arg(pageCount).arg(pageCountTotal));
    downloadedEdit->setText(u"%1 kb"_s.arg(QLocale().toString(downloadedKb)));
    progressEdit->setText(u"%1 %"_s.arg(progressPercent, 4, 'f', 2, QChar(u'0')));
    const qint64 elapsed = timer.isValid() ? timer.elapsed() : 0;
    elapsedEdit->setText(formatTime(float(elapsed)));
    remainingEdit->setText(formatTime(estimateRemaining(elapsed, pageCount, pageCountTotal)));
}
