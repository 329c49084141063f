#include "app/identity.h"
#include "app/mainwindow.h"
#include "core/website.h"
#include "tests/support/dialogs.h"
#include "tests/support/harness.h"
#include "tests/support/harvestsite.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"
#include "tests/support/windowsandbox.h"

#include <QBuffer>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

// Files that are not pages, or pages in an unusual form, for the three test
// buttons; and Save As into a folder that can't take the file.
namespace {

enum class Button { League, Team, Player };

QPushButton *buttonOf(MainWindow &window, Button button)
{
    switch (button) {
    case Button::League:
        return window.testLeagueButton;
    case Button::Team:
        return window.testTeamButton;
    case Button::Player:
        return window.testPlayerButton;
    }
    return nullptr;
}

QString fixtureOf(Button button)
{
    switch (button) {
    case Button::League:
        return u"tfm/harvest_league.html"_s;
    case Button::Team:
        return u"tfm/harvest_team_alpha.html"_s;
    case Button::Player:
        return u"tfm/harvest_player_smith.html"_s;
    }
    return {};
}

QByteArray pngImage()
{
    QImage image(64, 48, QImage::Format_ARGB32);
    image.fill(Qt::darkGreen);
    QPainter painter(&image);
    painter.fillRect(8, 8, 20, 20, Qt::yellow);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

// A page with bytes that are no UTF-8 at all in a comment at its top and at its
// end, where no scanner looks.
QByteArray withInvalidUtf8(const QByteArray &page)
{
    return "<!-- \xff\xfe\xc3( \xed\xa0\x80 -->\n"_ba + page + "\n<!-- \xc0\xaf\xf8 -->\n"_ba;
}

QByteArray asUtf16WithByteOrderMark(const QByteArray &page)
{
    QStringEncoder encoder(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom);
    return encoder(QString::fromUtf8(page));
}

// 50 MB. Qt's QTextStream::readAll grows its text one read chunk at a time,
// which costs nothing where realloc can move pages, but AddressSanitizer's
// realloc copies every time, and 50 MB then take many minutes: under it the file
// is 2 MB, still ten times a real page.
// g++ names AddressSanitizer with a macro, clang as a feature.
#if defined(__SANITIZE_ADDRESS__)
#define QM_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QM_ADDRESS_SANITIZER 1
#endif
#endif
#ifdef QM_ADDRESS_SANITIZER
constexpr qsizetype bigFileBytes = 2 * 1024 * 1024;
#else
constexpr qsizetype bigFileBytes = 50 * 1024 * 1024;
#endif

QByteArray bigFile()
{
    const QByteArray line = "lorem ipsum dolor sit amet consectetur adipiscing elit\n"_ba;
    return line.repeated(bigFileBytes / line.size() + 1);
}

} // namespace

Q_DECLARE_METATYPE(Button)

class TestBadFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void emptyFileReportsNothingFound_data();
    void emptyFileReportsNothingFound();
    void fileThatIsNoPage_data();
    void fileThatIsNoPage();
    void pageInAnUnusualForm_data();
    void pageInAnUnusualForm();

    void saveAsIntoAFolderThatCantTakeTheFile_data();
    void saveAsIntoAFolderThatCantTakeTheFile();

private:
    // The log box after one press of the button on a file of these bytes.
    QStringList reportOf(Button button, const QByteArray &bytes);

    WindowSandbox sandbox;
    QString readOnlyFolder;
};

void TestBadFiles::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    setApplicationIdentity();
    QVERIFY(sandbox.enter());

    // A folder without write permission stops every user but root, to whom
    // permissions mean nothing; for root the folder is made immutable as well,
    // where the file system allows it. Failing both, a folder of the proc file
    // system, which takes no new file from anyone.
    readOnlyFolder = sandbox.filePath(u"read-only"_s);
    QVERIFY(QDir().mkpath(readOnlyFolder));
    QVERIFY(QFile::setPermissions(readOnlyFolder, QFile::ReadOwner | QFile::ExeOwner));
    QProcess::execute(u"chattr"_s, {u"+i"_s, readOnlyFolder});
    QFile probe(readOnlyFolder + u"/probe"_s);
    if (probe.open(QIODevice::WriteOnly)) {
        probe.close();
        probe.remove();
        readOnlyFolder = u"/proc/self/fdinfo"_s;
    }
}

void TestBadFiles::cleanupTestCase()
{
    const QString folder = sandbox.filePath(u"read-only"_s);
    QProcess::execute(u"chattr"_s, {u"-i"_s, folder});
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void TestBadFiles::init()
{
    // The reports count the passes' lists, which outlive a test.
    clearSiteLists();
}

void TestBadFiles::cleanup()
{
    QCOMPARE(pendingDialogAnswers(), 0);
}

QStringList TestBadFiles::reportOf(Button button, const QByteArray &bytes)
{
    init();
    const QString path = sandbox.filePath(u"page.html"_s);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
        return {u"<the page could not be written>"_s};
    file.close();

    MainWindow window;
    window.websiteBox->setCurrentIndex(TransferMarkt);
    answerNextFileDialog(path);
    QTest::mouseClick(buttonOf(window, button), Qt::LeftButton);
    // The test ends idle, with its one record.
    if (!window.downloadButton->isEnabled() || !window.saveButton->isEnabled())
        return {u"<the window did not end idle>"_s};
    const QList<DataWrapper *> &records = button == Button::League ? window.dataInterface.leagues
        : button == Button::Team                                   ? window.dataInterface.teams
                                                                   : window.dataInterface.players;
    if (records.size() != 1)
        return {u"<not one record>"_s};
    return logLines(window.logBox);
}

void TestBadFiles::emptyFileReportsNothingFound_data()
{
    QTest::addColumn<Button>("button");
    QTest::addColumn<QStringList>("report");
    QTest::newRow("league") << Button::League
                            << QStringList{u"--- TESTING LEAGUE WEBPAGE ---"_s, u"League: "_s,
                                           u"Teams: 0"_s};
    QTest::newRow("team") << Button::Team
                          << QStringList{u"--- TESTING TEAM ROSTER WEBPAGE ---"_s,
                                         u"ASCII name: "_s, u"UTF name: "_s, u"League: "_s,
                                         u"Player entries: 0"_s};
    // The player report is long; its head says that nothing was found.
    QTest::newRow("player") << Button::Player
                            << QStringList{u"--- TESTING PLAYER PROFILE WEBPAGE ---"_s,
                                           u"ASCII name:    : "_s, u"Forename: "_s, u"Surname: "_s};
}

void TestBadFiles::emptyFileReportsNothingFound()
{
    QFETCH(Button, button);
    QFETCH(QStringList, report);
    QCOMPARE(reportOf(button, QByteArray()).mid(0, report.size()), report);
}

void TestBadFiles::fileThatIsNoPage_data()
{
    QTest::addColumn<Button>("button");
    QTest::addColumn<QByteArray>("bytes");

    const QByteArray image = pngImage();
    const QByteArray big = bigFile();
    for (const auto &[button, name] :
         {std::pair{Button::League, "league"}, std::pair{Button::Team, "team"},
          std::pair{Button::Player, "player"}}) {
        QTest::addRow("%s: image", name) << button << image;
        QTest::addRow("%s: big file", name) << button << big;
    }
}

// Neither holds a marker: the report is the one of an empty page.
void TestBadFiles::fileThatIsNoPage()
{
    QFETCH(Button, button);
    QFETCH(QByteArray, bytes);
    const QStringList nothing = reportOf(button, QByteArray());
    QVERIFY(nothing.size() > 2);
    QCOMPARE(reportOf(button, bytes), nothing);
}

void TestBadFiles::pageInAnUnusualForm_data()
{
    QTest::addColumn<Button>("button");
    QTest::addColumn<bool>("utf16");
    for (const auto &[button, name] :
         {std::pair{Button::League, "league"}, std::pair{Button::Team, "team"},
          std::pair{Button::Player, "player"}}) {
        QTest::addRow("%s: invalid UTF-8", name) << button << false;
        QTest::addRow("%s: UTF-16 with a byte-order mark", name) << button << true;
    }
}

// The stream finds the byte-order mark and reads UTF-16 as such; bytes that are
// no UTF-8 become replacement characters where no scanner looks. Either way
// the report is the one of the plain page.
void TestBadFiles::pageInAnUnusualForm()
{
    QFETCH(Button, button);
    QFETCH(bool, utf16);
    const QByteArray page = fixtureBytes(fixtureOf(button));
    QVERIFY(!page.isEmpty());
    const QStringList plain = reportOf(button, page);
    // The plain page is found in full: a name and at least one link.
    QVERIFY(plain.size() > 2);
    QVERIFY(!plain.at(1).endsWith(u": "_s));
    const QByteArray bytes = utf16 ? asUtf16WithByteOrderMark(page) : withInvalidUtf8(page);
    QCOMPARE(reportOf(button, bytes), plain);
}

void TestBadFiles::saveAsIntoAFolderThatCantTakeTheFile_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("folder that does not exist")
        << sandbox.filePath(u"no/such/folder/players.csv"_s);
    QTest::newRow("read-only folder") << QString(readOnlyFolder + u"/players.csv"_s);
}

void TestBadFiles::saveAsIntoAFolderThatCantTakeTheFile()
{
    QFETCH(QString, target);

    MainWindow window;
    window.websiteBox->setCurrentIndex(TransferMarkt);
    window.asciiButton->setChecked(true);
    answerNextFileDialog(fixturePath(u"tfm/harvest_player_smith.html"_s));
    QTest::mouseClick(window.testPlayerButton, Qt::LeftButton);
    QCOMPARE(window.dataInterface.players.size(), 1);
    DataWrapper *const record = window.dataInterface.players.first();
    const QString logBefore = window.logBox->toPlainText();

    answerNextFileDialog(target);
    QTest::mouseClick(window.saveButton, Qt::LeftButton);

    // Nothing written, nothing said, the record kept, and the window idle as
    // after any Save As.
    QVERIFY(!QFileInfo::exists(target));
    QVERIFY(!QFileInfo::exists(QFileInfo(target).path() + u"/playersHISTORY.csv"_s));
    QCOMPARE(window.logBox->toPlainText(), logBefore);
    QCOMPARE(window.dataInterface.players, QList<DataWrapper *>{record});
    QVERIFY(window.downloadButton->isEnabled());

    // A second Save As to a folder that takes it writes the record.
    const QList<QByteArray> rows
        = saveThroughWindow(window, sandbox.filePath(u"players.csv"_s)).split('\n');
    QCOMPARE(rows.size(), 3);
    QVERIFY(rows.at(0).startsWith("\xef\xbb\xbfId,"));
    QVERIFY(rows.at(1).contains("Smith"));
    QCOMPARE(window.logBox->toPlainText(), logBefore);
}

QM_TEST_MAIN(TestBadFiles)
#include "tst_badfiles.moc"
