#include "tests/support/dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QTimer>

namespace {
QString &title()
{
    static QString text;
    return text;
}
QString &directory()
{
    static QString text;
    return text;
}
int &pending()
{
    static int count = 0;
    return count;
}
} // namespace

void answerNextFileDialog(const QString &path)
{
    auto *timer = new QTimer(qApp);
    timer->setInterval(5);
    ++pending();
    QObject::connect(timer, &QTimer::timeout, timer, [timer, path] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        timer->stop();
        timer->deleteLater();
        --pending();
        title() = dialog->windowTitle();
        directory() = dialog->directory().absolutePath();
        if (path.isEmpty()) {
            dialog->reject();
            return;
        }
        dialog->selectFile(path);
        // done() rather than accept(): no question about replacing a file.
        static_cast<QDialog *>(dialog)->done(QDialog::Accepted);
    });
    timer->start();
}

QString lastDialogTitle()
{
    return title();
}

QString lastDialogDirectory()
{
    return directory();
}

int pendingDialogAnswers()
{
    return pending();
}
