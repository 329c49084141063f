#include "app/identity.h"
#include "app/mainwindow.h"
#include "core/constants.h"
#include "tests/support/testmain.h"
#include "tests/support/windowsandbox.h"

#include <QApplication>
#include <QImage>
#include <QLocale>
#include <QSettings>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

// How the program presents itself to the desktop: the id that names its menu
// entry, icon and metadata, and the icon the window shows.
class TestDesktopIdentity : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void desktopFileNameIsReversedDomain();
    void iconHasEachInstalledSize_data();
    void iconHasEachInstalledSize();
    void windowShowsIcon();

private:
    WindowSandbox dir;
};

void TestDesktopIdentity::initTestCase()
{
    setApplicationIdentity();
    QLocale::setDefault(QLocale::c());
    QVERIFY(dir.enter());
}

void TestDesktopIdentity::cleanupTestCase()
{
    QSettings().clear();
}

void TestDesktopIdentity::desktopFileNameIsReversedDomain()
{
    QCOMPARE(QGuiApplication::desktopFileName(), u"app.quillmark.Quillmark"_s);

    QStringList reversed = ORGANISATION_DOMAIN.split(u'.');
    std::reverse(reversed.begin(), reversed.end());
    QCOMPARE(QGuiApplication::desktopFileName(),
             reversed.join(u'.') + u'.' + QCoreApplication::applicationName());
}

void TestDesktopIdentity::iconHasEachInstalledSize_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("48 px") << 48;
    QTest::newRow("128 px") << 128;
    QTest::newRow("256 px") << 256;
}

void TestDesktopIdentity::iconHasEachInstalledSize()
{
    QFETCH(int, size);
    const QIcon icon = applicationIcon();
    QVERIFY(icon.availableSizes().contains(QSize(size, size)));

    const QImage image = icon.pixmap(QSize(size, size)).toImage();
    QCOMPARE(image.size(), QSize(size, size));
    // A drawing on a clear ground: the corner is see-through, the sheet in the
    // middle is solid.
    QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
    QCOMPARE(image.pixelColor(size / 2, size / 2).alpha(), 255);
}

void TestDesktopIdentity::windowShowsIcon()
{
    MainWindow window(nullptr);
    const QIcon shown = window.windowIcon();
    QCOMPARE(shown.availableSizes(), applicationIcon().availableSizes());
    QCOMPARE(shown.pixmap(QSize(48, 48)).toImage(),
             applicationIcon().pixmap(QSize(48, 48)).toImage());
    QCOMPARE(window.windowTitle(), u"Quillmark v2.2.32 QT6 Velmora Edition"_s);
}

QM_TEST_MAIN(TestDesktopIdentity)
#include "tst_desktopidentity.moc"
