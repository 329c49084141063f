#pragma once

#include <QElapsedTimer>
#include <QWidget>

class QIODevice;
class QLineEdit;

// Renders milliseconds as mm:ss, or hh:mm:ss from one hour on.
QString formatTime(const float &milliseconds);

// The time still to go: the average time of a finished page so far times the
// pages left. With no page finished there is nothing to average, and 0 ms a
// page is taken.
float estimateRemaining(qint64 elapsedMs, quint32 pageCount, quint32 pageCountTotal);

// The panel at the foot of the window: the last reply's status, pages done of
// pages announced, traffic, percentage, time elapsed and time remaining.
class StatusDisplay : public QWidget
{
    Q_OBJECT

public:
    explicit StatusDisplay(QWidget *parent = nullptr);

    QLineEdit *pagesEdit = nullptr;
    QLineEdit *downloadedEdit = nullptr;
    QLineEdit *progressEdit = nullptr;
    QLineEdit *elapsedEdit = nullptr;
    QLineEdit *remainingEdit = nullptr;
    QLineEdit *statusEdit = nullptr;
    quint32 pageCount = 0;
    quint32 pageCountTotal = 0;
    quint32 downloadedKb = 0;
    float progressPercent = 0;
    QElapsedTimer timer;

    void showError(const QString &text);
    void showSuccess(const QString &text);
    void writeLogHeader(QIODevice *device);

public slots:
    void reset();
    void start();
    void stop();
    void increment(int pageTextSize);
    void incrementPageCountTotal(int i);

private:
    void refreshDisplay();
};
