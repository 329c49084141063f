#include "app/identity.h"
#include "app/mainwindow.h"
#include "proxy/proxy.h"
#include "status/statusdisplay.h"
#include "tests/support/testmain.h"
#include "tests/support/windowsandbox.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QStyleOptionGroupBox>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString describe(const QWidget *widget)
{
    QString text;
    if (auto *button = qobject_cast<const QAbstractButton *>(widget))
        text = button->text();
    else if (auto *label = qobject_cast<const QLabel *>(widget))
        text = label->text().section(u'\n', 0, 0);
    else if (auto *group = qobject_cast<const QGroupBox *>(widget))
        text = group->title();
    return u"%1 \"%2\""_s.arg(QString::fromLatin1(widget->metaObject()->className()), text);
}

QString sizeText(const QSize &size)
{
    return u"%1 x %2"_s.arg(size.width()).arg(size.height());
}

// Where the style puts a group box's title, as the box itself paints it.
QRect titleRect(const QGroupBox *box)
{
    QStyleOptionGroupBox option;
    option.initFrom(box);
    option.text = box->title();
    option.lineWidth = 1;
    option.midLineWidth = 0;
    option.textAlignment = box->alignment();
    option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
    if (box->isCheckable())
        option.subControls |= QStyle::SC_GroupBoxCheckBox;
    option.features = box->isFlat() ? QStyleOptionFrame::Flat : QStyleOptionFrame::None;
    return box->style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel,
                                        box);
}

// The room a closed combo box leaves for its current item.
QRect comboTextRect(const QComboBox *box)
{
    QStyleOptionComboBox option;
    option.initFrom(box);
    option.editable = box->isEditable();
    option.frame = box->hasFrame();
    option.subControls = QStyle::SC_All;
    return box->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField,
                                        box);
}

// Every widget of the window that shows a text, measured against what its text
// needs at the window's present size. One line a cut text; none when all is whole.
QStringList cutTexts(const QWidget &window)
{
    QStringList cuts;
    const auto cut = [&cuts](const QWidget *widget, const QString &what) {
        cuts.append(describe(widget) + u": "_s + what);
    };
    const auto narrower = [&](const QWidget *widget, const QSize &needed) {
        if (widget->width() < needed.width() || widget->height() < needed.height())
            cut(widget, u"is %1, needs %2"_s.arg(sizeText(widget->size()), sizeText(needed)));
    };

    int measured = 0;
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        if (!widget->isVisibleTo(&window))
            continue;
        if (auto *button = qobject_cast<QAbstractButton *>(widget)) {
            narrower(button, button->sizeHint());
        } else if (auto *label = qobject_cast<QLabel *>(widget)) {
            if (label->wordWrap()) {
                const int needed = label->heightForWidth(label->width());
                if (label->height() < needed)
                    cut(label,
                        u"is %1, needs a height of %2"_s.arg(sizeText(label->size())).arg(needed));
            } else {
                narrower(label, label->sizeHint());
            }
        } else if (auto *group = qobject_cast<QGroupBox *>(widget)) {
            const QRect title = titleRect(group);
            const int needed = group->fontMetrics().horizontalAdvance(group->title());
            if (title.width() < needed || !group->rect().contains(title))
                cut(group,
                    u"title has %1 of %2 in a box of %3"_s.arg(title.width())
                        .arg(needed)
                        .arg(sizeText(group->size())));
        } else if (auto *combo = qobject_cast<QComboBox *>(widget)) {
            narrower(combo, combo->sizeHint());
            const int room = comboTextRect(combo).width();
            for (int i = 0; i < combo->count(); ++i) {
                const int needed = combo->fontMetrics().horizontalAdvance(combo->itemText(i));
                if (room < needed)
                    cut(combo,
                        u"item \"%1\" has %2 of %3"_s.arg(combo->itemText(i))
                            .arg(room)
                            .arg(needed));
            }
        } else {
            continue;
        }
        ++measured;
        // Whole in itself is not enough: no parent may clip it either.
        for (const QWidget *child = widget; child != &window; child = child->parentWidget()) {
            if (!child->parentWidget()->rect().contains(child->geometry())) {
                cut(widget, u"lies outside its parent"_s);
                break;
            }
        }
    }
    // The window shows 31 texts: far fewer means the search missed them, and a
    // window without its texts would pass.
    if (measured < 30)
        cuts.append(u"only %1 widgets with a text were found"_s.arg(measured));
    return cuts;
}

bool isTabStop(const QWidget *widget, const QWidget *window)
{
    return (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && !widget->focusProxy()
        && widget->isVisibleTo(window);
}

// The controls of the window as a reader meets them: left to right, top to
// bottom.
QList<QWidget *> readingOrder(const MainWindow &window)
{
    return {
        window.urlInput,
        window.websiteBox,
        window.seasonBox,
        window.asciiButton,
        window.utfButton,
        window.downloadPlayerDetailsBox,
        window.includeOlympicStatsBox,
        window.includePlayerDataBox,
        window.includePlayerHistoryBox,
        window.proxy->enabledBox,
        window.proxy->hostEdit,
        window.proxy->portEdit,
        window.proxy->userEdit,
        window.proxy->passwordEdit,
        window.proxy->testButton,
        window.downloadButton,
        window.saveButton,
        window.testPlayerButton,
        window.testTeamButton,
        window.testLeagueButton,
        window.logBox,
        window.statusPanel->statusEdit,
        window.statusPanel->pagesEdit,
        window.statusPanel->progressEdit,
        window.statusPanel->downloadedEdit,
        window.statusPanel->elapsedEdit,
        window.statusPanel->remainingEdit,
    };
}

QWidget *inputOf(const MainWindow &window, const QString &field)
{
    const QHash<QString, QWidget *> inputs = {
        {u"address box"_s, window.urlInput},
        {u"log box"_s, window.logBox},
        {u"website box"_s, window.websiteBox},
        {u"season box"_s, window.seasonBox},
        {u"proxy on/off box"_s, window.proxy->enabledBox},
        {u"proxy address"_s, window.proxy->hostEdit},
        {u"proxy port"_s, window.proxy->portEdit},
        {u"proxy user"_s, window.proxy->userEdit},
        {u"proxy password"_s, window.proxy->passwordEdit},
        {u"status line"_s, window.statusPanel->statusEdit},
        {u"pages processed"_s, window.statusPanel->pagesEdit},
        {u"progress"_s, window.statusPanel->progressEdit},
        {u"downloaded"_s, window.statusPanel->downloadedEdit},
        {u"time elapsed"_s, window.statusPanel->elapsedEdit},
        {u"time remaining"_s, window.statusPanel->remainingEdit},
    };
    return inputs.value(field);
}

QString accessibleName(QWidget *widget)
{
    QAccessibleInterface *face = QAccessible::queryAccessibleInterface(widget);
    return face ? face->text(QAccessible::Name) : QString();
}

// The texts of the widgets that label this one for a screen reader.
QStringList accessibleLabels(QWidget *widget)
{
    QStringList labels;
    QAccessibleInterface *face = QAccessible::queryAccessibleInterface(widget);
    if (!face)
        return labels;
    for (const auto &[label, relation] : face->relations(QAccessible::Label))
        labels.append(label->text(QAccessible::Name));
    return labels;
}

} // namespace

// The window as people see and reach it: every text whole at the size it
// opens at and at the smallest it can be made, with the default font, a
// 12 pt font and, in a second run, at twice the scale; a name for every field;
// Tab through the controls in reading order.
class TestWindowAccess : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void textsWhole_data();
    void textsWhole();
    void inputNamed_data();
    void inputNamed();
    void everyTabStopNamed();
    void tabChainInReadingOrder();
    void tabKeyWalksTheWindow();
    void fixedSizesKept();

private:
    WindowSandbox dir;
    QFont defaultFont;
};

void TestWindowAccess::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    setApplicationIdentity();
    QVERIFY(dir.enter());
    defaultFont = QApplication::font();
}

void TestWindowAccess::cleanupTestCase()
{
    QSettings().clear();
}

void TestWindowAccess::init()
{
    QSettings().clear();
}

void TestWindowAccess::cleanup()
{
    QApplication::setFont(defaultFont);
}

void TestWindowAccess::textsWhole_data()
{
    QTest::addColumn<qreal>("pointSize");
    QTest::newRow("default font") << qreal(0);
    QTest::newRow("12 pt font") << qreal(12);
}

void TestWindowAccess::textsWhole()
{
    QFETCH(qreal, pointSize);
    // The desktop's font is the application's before the window is made.
    if (pointSize > 0) {
        QFont font = QApplication::font();
        font.setPointSizeF(pointSize);
        QApplication::setFont(font);
    }

    MainWindow window;
    if (pointSize > 0)
        QCOMPARE(window.promptLabel->font().pointSizeF(), pointSize);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    // The second run of this program asks for twice the scale: it must get it.
    const qreal scale = qEnvironmentVariable("QT_SCALE_FACTOR", u"1"_s).toDouble();
    QCOMPARE(window.devicePixelRatio(), scale);
    QVERIFY(window.minimumWidth() >= 900);
    QVERIFY(window.minimumHeight() >= 620);
    QVERIFY(window.width() >= window.minimumWidth());
    QVERIFY(window.height() >= window.minimumHeight());
    QTRY_COMPARE(window.centralWidget()->size(), window.size());
    qInfo("font %s at scale %g: opens at %s, minimum %s",
          qPrintable(QFontInfo(QApplication::font()).family() + u' '
                     + QString::number(QApplication::font().pointSizeF()) + u" pt"_s),
          scale, qPrintable(sizeText(window.size())), qPrintable(sizeText(window.minimumSize())));

    QStringList cuts = cutTexts(window);
    QVERIFY2(cuts.isEmpty(), qPrintable(u"At the opening size:\n"_s + cuts.join(u'\n')));

    // Larger first, so that the way down to the minimum is a real change.
    const QSize minimum = window.minimumSize();
    window.resize(minimum + QSize(240, 160));
    QTRY_COMPARE(window.centralWidget()->size(), minimum + QSize(240, 160));
    cuts = cutTexts(window);
    QVERIFY2(cuts.isEmpty(), qPrintable(u"Larger than it opens:\n"_s + cuts.join(u'\n')));

    window.resize(window.minimumSize());
    QTRY_COMPARE(window.centralWidget()->size(), minimum);
    cuts = cutTexts(window);
    QVERIFY2(cuts.isEmpty(), qPrintable(u"At the minimum size:\n"_s + cuts.join(u'\n')));

    // Wide and low: the prompt takes fewer lines, the rest keeps its minimum.
    window.resize(minimum.width() + 400, minimum.height());
    QTRY_COMPARE(window.centralWidget()->size(), QSize(minimum.width() + 400, minimum.height()));
    cuts = cutTexts(window);
    QVERIFY2(cuts.isEmpty(), qPrintable(u"Wide and low:\n"_s + cuts.join(u'\n')));

    // Dragged smaller still, it stops at the minimum.
    window.resize(minimum - QSize(200, 150));
    QCOMPARE(window.size(), minimum);
}

void TestWindowAccess::inputNamed_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("spoken");
    QTest::newRow("address box") << u"address box"_s << u"Addresses to download"_s;
    QTest::newRow("log box") << u"log box"_s << u"Log"_s;
    QTest::newRow("website box") << u"website box"_s << u"Website"_s;
    QTest::newRow("season box") << u"season box"_s << u"Season"_s;
    QTest::newRow("proxy on/off box") << u"proxy on/off box"_s << u"Use a proxy"_s;
    QTest::newRow("proxy address") << u"proxy address"_s << u"IP Address:"_s;
    QTest::newRow("proxy port") << u"proxy port"_s << u"Port:"_s;
    QTest::newRow("proxy user") << u"proxy user"_s << u"Username (optional):"_s;
    QTest::newRow("proxy password") << u"proxy password"_s << u"Password (optional):"_s;
    QTest::newRow("status line") << u"status line"_s << u"Status:"_s;
    QTest::newRow("pages processed") << u"pages processed"_s << u"Pages processed:"_s;
    QTest::newRow("progress") << u"progress"_s << u"Progress:"_s;
    QTest::newRow("downloaded") << u"downloaded"_s << u"Downloaded:"_s;
    QTest::newRow("time elapsed") << u"time elapsed"_s << u"Time elapsed:"_s;
    QTest::newRow("time remaining") << u"time remaining"_s << u"Time remaining:"_s;
}

void TestWindowAccess::inputNamed()
{
    QFETCH(QString, field);
    QFETCH(QString, spoken);

    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QWidget *input = inputOf(window, field);
    QVERIFY(input);

    const QString name = accessibleName(input);
    QVERIFY2(!name.isEmpty(), qPrintable(field));
    // A combo box on this platform is named by its current item and labelled
    // through a relation: the word the reader hears may come from either.
    const QStringList heard = QStringList{name} + accessibleLabels(input);
    QVERIFY2(heard.contains(spoken), qPrintable(heard.join(u", "_s)));
    QVERIFY(input->toolTip().isEmpty());
}

void TestWindowAccess::everyTabStopNamed()
{
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    int stops = 0;
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        if (!isTabStop(widget, &window))
            continue;
        ++stops;
        QVERIFY2(!accessibleName(widget).isEmpty(), qPrintable(describe(widget)));
    }
    QCOMPARE(stops, int(readingOrder(window).size()));
}

void TestWindowAccess::tabChainInReadingOrder()
{
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    QList<QWidget *> chain;
    QWidget *widget = window.urlInput;
    do {
        if (isTabStop(widget, &window))
            chain.append(widget);
        widget = widget->nextInFocusChain();
    } while (widget && widget != window.urlInput && chain.size() < 200);
    QCOMPARE(widget, window.urlInput);

    const QList<QWidget *> expected = readingOrder(window);
    QStringList names, expectedNames;
    for (QWidget *stop : std::as_const(chain))
        names.append(describe(stop) + u' ' + accessibleName(stop));
    for (QWidget *stop : expected)
        expectedNames.append(describe(stop) + u' ' + accessibleName(stop));
    QCOMPARE(names, expectedNames);
    QCOMPARE(chain, expected);

    // And the order is the one on the screen: each next control stands to the
    // right on the same line, or on a line below.
    for (qsizetype i = 1; i < chain.size(); ++i) {
        const QRect before(chain.at(i - 1)->mapTo(&window, QPoint()), chain.at(i - 1)->size());
        const QRect after(chain.at(i)->mapTo(&window, QPoint()), chain.at(i)->size());
        const bool sameLine
            = after.center().y() >= before.top() && after.center().y() <= before.bottom();
        const bool rightOf = sameLine && after.left() >= before.right();
        const bool below = after.top() > before.bottom();
        QVERIFY2(rightOf || below,
                 qPrintable(describe(chain.at(i - 1)) + u" then "_s + describe(chain.at(i))));
    }
}

void TestWindowAccess::tabKeyWalksTheWindow()
{
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.urlInput->setFocus(Qt::TabFocusReason);
    QTRY_COMPARE(QApplication::focusWidget(), window.urlInput);
    window.logBox->setPlainText(u"a line of the log"_s);

    const QList<QWidget *> expected = readingOrder(window);
    for (qsizetype i = 1; i <= expected.size(); ++i) {
        QWidget *from = QApplication::focusWidget();
        QVERIFY(from);
        // The proxy's fields are off until its box is checked: Space on the
        // box, with no mouse, turns them on, and Tab reaches them.
        if (from == window.proxy->enabledBox) {
            QTest::keyClick(from, Qt::Key_Space);
            QVERIFY(window.proxy->enabledBox->isChecked());
            QVERIFY(window.proxy->hostEdit->isEnabled());
        }
        // Tab stops at the chosen one of two radio buttons; an arrow key
        // moves to the other and chooses it.
        if (from == window.asciiButton) {
            QVERIFY(window.asciiButton->isChecked());
            QTest::keyClick(from, Qt::Key_Right);
            QVERIFY(window.utfButton->isChecked());
        } else {
            QTest::keyClick(from, Qt::Key_Tab);
        }
        QWidget *next = expected.at(i % expected.size());
        QVERIFY2(
            QApplication::focusWidget() == next,
            qPrintable(u"Tab from %1 reached %2, not %3"_s.arg(
                describe(from),
                QApplication::focusWidget() ? describe(QApplication::focusWidget()) : u"nothing"_s,
                describe(next))));
    }
    // Tab moved on from both text boxes and put no tab character in them.
    QVERIFY(window.urlInput->toPlainText().isEmpty());
    QCOMPARE(window.logBox->toPlainText(), u"a line of the log"_s);

    // Back-tab walks the other way.
    QTest::keyClick(window.urlInput, Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget(), window.statusPanel->remainingEdit);

    // The log box stays read-only but a keyboard can select in it.
    window.logBox->setFocus(Qt::TabFocusReason);
    QTRY_COMPARE(QApplication::focusWidget(), window.logBox);
    QVERIFY(window.logBox->isReadOnly());
    QTest::keyClick(window.logBox, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(window.logBox->textCursor().selectedText(), u"a line of the log"_s);
}

void TestWindowAccess::fixedSizesKept()
{
    // The fit to the texts works through the layout: the sizes the panel and
    // the window set for themselves stay as they are.
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(window.statusPanel->statusEdit->minimumWidth(), 797);
    QCOMPARE(window.statusPanel->statusEdit->sizePolicy().horizontalPolicy(),
             QSizePolicy::MinimumExpanding);
    QVERIFY(window.statusPanel->statusEdit->width() >= 797);
    QVERIFY(window.promptLabel->wordWrap());
    QCOMPARE(window.promptLabel->text(), MainWindow::promptText());
}

QM_TEST_MAIN(TestWindowAccess)
#include "tst_windowaccess.moc"
