#pragma once

#include <QApplication>
#include <QByteArray>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

// A folder of the test program's own for every temporary file it makes, and
// every file that Qt puts in the temporary folder for it (its runtime folder
// among them). It is removed when the program ends, with whatever a failed
// test left in it, so a run leaves nothing behind in the system's folder.
class ScratchTemporaryFolder
{
public:
    explicit ScratchTemporaryFolder(const char *program)
        : folder(QDir::tempPath() + u'/' + QFileInfo(QString::fromLocal8Bit(program)).fileName()
                 + QStringLiteral("-XXXXXX"))
    {
        // Read through QDir::tempPath() by QTemporaryFile, QTemporaryDir and
        // the standard paths, so it must be set before the application exists.
        if (folder.isValid())
            qputenv("TMPDIR", QFile::encodeName(folder.path()));
    }

private:
    QTemporaryDir folder;
};

// The test programs' main(): QTEST_MAIN's, inside a scratch temporary folder.
template<typename TestObject, typename Application> int runTestProgram(int argc, char *argv[])
{
    const ScratchTemporaryFolder scratch(argc > 0 ? argv[0] : "test");
    Application app(argc, argv);
    app.setAttribute(Qt::AA_Use96Dpi, true);
    TestObject test;
    return QTest::qExec(&test, argc, argv);
}

#define QM_TEST_MAIN(TestObject)                                                                   \
    int main(int argc, char *argv[])                                                               \
    {                                                                                              \
        return runTestProgram<TestObject, QApplication>(argc, argv);                               \
    }

#define QM_TEST_GUILESS_MAIN(TestObject)                                                           \
    int main(int argc, char *argv[])                                                               \
    {                                                                                              \
        return runTestProgram<TestObject, QCoreApplication>(argc, argv);                           \
    }
