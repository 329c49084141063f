#include "tests/support/dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QQueue>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Watches the whole application for a file dialog being shown, and hands it
// the oldest answer prepared. The dialog is answered from its own event loop,
// once exec() runs: a shown dialog is the state the answer waits for, not a
// moment on a timer.
class DialogAnswerer : public QObject
{
public:
    QQueue<QString> answers;
    QString title;
    QString directory;

    static DialogAnswerer &instance()
    {
        static auto *answerer = new DialogAnswerer;
        return *answerer;
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Show || answers.isEmpty())
            return false;
        auto *dialog = qobject_cast<QFileDialog *>(watched);
        if (!dialog || !dialog->isModal())
            return false;
        const QString path = answers.dequeue();
        QMetaObject::invokeMethod(
            dialog, [this, dialog = QPointer<QFileDialog>(dialog), path] { answer(dialog, path); },
            Qt::QueuedConnection);
        return false;
    }

private:
    DialogAnswerer() { qApp->installEventFilter(this); }

    void answer(QFileDialog *dialog, const QString &path)
    {
        title = dialog->windowTitle();
        directory = dialog->directory().absolutePath();
        if (path.isEmpty()) {
            dialog->reject();
            return;
        }
        const QString held = typeName(dialog, path);
        const QString wanted = QDir::cleanPath(path);
        if (held != wanted) {
            // Cancelled, so that the slot that asked returns and the test ends
            // on this failure rather than on what the wrong file leads to.
            dialog->reject();
            QTest::qFail(
                qPrintable(u"The file dialog holds \"%1\" where \"%2\" was to be chosen"_s.arg(
                    held, wanted)),
                __FILE__, __LINE__);
            return;
        }
        // done() rather than accept(): no question about replacing a file.
        static_cast<QDialog *>(dialog)->done(QDialog::Accepted);
    }

    // Types path into the dialog's file-name box, as a user would, and returns
    // what the dialog would hand back. selectFile() leaves that box alone
    // while it has the focus. A whole path typed there that names a file
    // selects it, and the dialog then writes the bare name back into the box,
    // which also selects a file of that name in the folder it shows: so an
    // existing folder is opened first and the bare name typed. A path in a
    // folder that does not exist names no file, and is typed whole.
    static QString typeName(QFileDialog *dialog, const QString &path)
    {
        auto *nameBox = dialog->findChild<QLineEdit *>(u"fileNameEdit"_s);
        auto *list = dialog->findChild<QListView *>(u"listView"_s);
        if (!nameBox || !list)
            return u"(a dialog without its file-name box)"_s;
        const QFileInfo file(path);
        const bool folderExists = file.absoluteDir().exists();
        if (folderExists)
            dialog->setDirectory(file.absolutePath());
        list->selectionModel()->clearSelection();
        nameBox->setText(folderExists ? file.fileName() : QDir::cleanPath(path));
        return dialog->selectedFiles().join(u" | "_s);
    }
};

} // namespace

void answerNextFileDialog(const QString &path)
{
    DialogAnswerer::instance().answers.enqueue(path);
}

QString lastDialogTitle()
{
    return DialogAnswerer::instance().title;
}

QString lastDialogDirectory()
{
    return DialogAnswerer::instance().directory;
}

int pendingDialogAnswers()
{
    return DialogAnswerer::instance().answers.size();
}
