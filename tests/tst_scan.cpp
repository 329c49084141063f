#include "core/scan.h"
#include "tests/support/testmain.h"

#include <QLocale>
#include <QTest>

using namespace Qt::StringLiterals;

// The marker operations every scanner walks its page with. Each table holds
// the exact out value (null and empty kept apart), the text that remains and the
// result, for present and absent markers, letter case, markers at position 0,
// adjacent and empty markers, texts shorter than a marker and non-ASCII text.
class TestScan : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void isolateBetween_data();
    void isolateBetween();
    void takeBetween_data();
    void takeBetween();
    void takeUntil_data();
    void takeUntil();
    void skipPast_data();
    void skipPast();
    void cutAt_data();
    void cutAt();
    void peekBetween_data();
    void peekBetween();
    void absentFirstFailsTakeButPeekReadsFromTheTop();
    void takeInt_data();
    void takeInt();
    void takeShort_data();
    void takeShort();
    void parseDollars_data();
    void parseDollars();
    void seasonStartYear_data();
    void seasonStartYear();
    void seasonEndYear_data();
    void seasonEndYear();
    void splitAtSpace_data();
    void splitAtSpace();
};

// What an out parameter holds before a call, to tell "left alone" from "written".
static const QString previous = u"previous"_s;

void TestScan::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestScan::isolateBetween_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<QString>("rest");

    QTest::newRow("between two tags")
        << u"<td>value</td>"_s << u"<td>"_s << u"</td>"_s << u"value"_s;
    QTest::newRow("not trimmed") << u"<b> x </b>"_s << u"<b>"_s << u"</b>"_s << u" x "_s;
    QTest::newRow("markers in the middle")
        << u"head<b>body</b>tail"_s << u"<b>"_s << u"</b>"_s << u"body"_s;
    QTest::newRow("markers in another letter case")
        << u"<TD>Value</Td>"_s << u"<td>"_s << u"</TD>"_s << u"Value"_s;
    QTest::newRow("second absent empties the text") << u"<b>x"_s << u"<b>"_s << u"</b>"_s << u""_s;
    QTest::newRow("second only before first empties the text")
        << u"</b>x<b>y"_s << u"<b>"_s << u"</b>"_s << u""_s;
    QTest::newRow("absent first of five characters removes four")
        << u"abcdefgh</b>"_s << u"<span"_s << u"</b>"_s << u"efgh"_s;
    QTest::newRow("absent first of one character removes none")
        << u"abc|def"_s << u"#"_s << u"|"_s << u"abc"_s;
    QTest::newRow("adjacent markers empty the text")
        << u"<b></b>rest"_s << u"<b>"_s << u"</b>"_s << u""_s;
    QTest::newRow("second at position 0 of the whole text")
        << u"|abc"_s << u"#"_s << u"|"_s << u""_s;
    QTest::newRow("empty first cuts from the start") << u"abc|d"_s << u""_s << u"|"_s << u"abc"_s;
    QTest::newRow("empty second empties the text") << u"<b>abc"_s << u"<b>"_s << u""_s << u""_s;
    QTest::newRow("both markers empty") << u"abc"_s << u""_s << u""_s << u""_s;
    QTest::newRow("empty text") << u""_s << u"<b>"_s << u"</b>"_s << u""_s;
    QTest::newRow("text shorter than an absent first") << u"a|"_s << u"<span>"_s << u"|"_s << u""_s;
    QTest::newRow("text as long as an absent first minus one")
        << u"abcde"_s << u"<span>"_s << u""_s << u""_s;
    QTest::newRow("non-ASCII between the markers")
        << u"café<b>Bjørn — 😀</b>ø"_s << u"<b>"_s << u"</b>"_s << u"Bjørn — 😀"_s;
    QTest::newRow("accented markers in another letter case")
        << u"<p>x<É>Åse</É>"_s << u"<é>"_s << u"</é>"_s << u"Åse"_s;
    QTest::newRow("absent first counts UTF-16 units of an emoji")
        << u"😀abc|"_s << u"<xyz"_s << u"|"_s << u"bc"_s;
    QTest::newRow("emoji markers") << u"é😀ø—😀"_s << u"😀"_s << u"😀"_s << u"ø—"_s;
}

void TestScan::isolateBetween()
{
    QFETCH(QString, text);
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(QString, rest);

    QVERIFY(::isolateBetween(text, first, second));
    QCOMPARE(text, rest);
}

void TestScan::takeBetween_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("out");
    QTest::addColumn<bool>("outNull");
    QTest::addColumn<QString>("rest");

    QTest::newRow("trimmed value, consumed through second")
        << u"<td> 12 </td>rest"_s << u"<td>"_s << u"</td>"_s << true << u"12"_s << false
        << u"rest"_s;
    QTest::newRow("first occurrence only") << u"junk<i>v</i>more<i>w</i>"_s << u"<i>"_s << u"</i>"_s
                                           << true << u"v"_s << false << u"more<i>w</i>"_s;
    QTest::newRow("small markers match capital tags")
        << u"<TD>Name</TD>tail"_s << u"<td>"_s << u"</td>"_s << true << u"Name"_s << false
        << u"tail"_s;
    QTest::newRow("capital markers match small tags")
        << u"<td>Name</td>tail"_s << u"<TD>"_s << u"</TD>"_s << true << u"Name"_s << false
        << u"tail"_s;
    QTest::newRow("ab between a and b is an empty value")
        << u"ab"_s << u"a"_s << u"b"_s << false << QString() << true << u"ab"_s;
    QTest::newRow("adjacent tags")
        << u"<b></b>x"_s << u"<b>"_s << u"</b>"_s << false << QString() << true << u"<b></b>x"_s;
    QTest::newRow("same marker twice, adjacent")
        << u"||a|"_s << u"|"_s << u"|"_s << false << QString() << true << u"||a|"_s;
    QTest::newRow("same marker for both ends")
        << u"|a|b|"_s << u"|"_s << u"|"_s << true << u"a"_s << false << u"b|"_s;
    QTest::newRow("white space only is a value")
        << u"<b>  </b>z"_s << u"<b>"_s << u"</b>"_s << true << u""_s << false << u"z"_s;
    QTest::newRow("first absent, second present")
        << u"x</td>y"_s << u"<td>"_s << u"</td>"_s << false << QString() << true << u"x</td>y"_s;
    QTest::newRow("second absent")
        << u"<td>x"_s << u"<td>"_s << u"</td>"_s << false << QString() << true << u"<td>x"_s;
    QTest::newRow("second only before first") << u"</td><td>x"_s << u"<td>"_s << u"</td>"_s << false
                                              << QString() << true << u"</td><td>x"_s;
    QTest::newRow("empty first reads from the start")
        << u"abc|def"_s << u""_s << u"|"_s << true << u"abc"_s << false << u"def"_s;
    QTest::newRow("empty second is an empty value")
        << u"<b>abc"_s << u"<b>"_s << u""_s << false << QString() << true << u"<b>abc"_s;
    QTest::newRow("both markers empty")
        << u"abc"_s << u""_s << u""_s << false << QString() << true << u"abc"_s;
    QTest::newRow("empty text") << u""_s << u"<b>"_s << u"</b>"_s << false << QString() << true
                                << u""_s;
    QTest::newRow("text shorter than first")
        << u"<b"_s << u"<b>"_s << u"</b>"_s << false << QString() << true << u"<b"_s;
    QTest::newRow("text shorter than second")
        << u"<b>x</"_s << u"<b>"_s << u"</b>"_s << false << QString() << true << u"<b>x</"_s;
    QTest::newRow("non-ASCII around the markers")
        << u"é<span>Bjørn — 😀</span>ø"_s << u"<span>"_s << u"</span>"_s << true << u"Bjørn — 😀"_s
        << false << u"ø"_s;
    QTest::newRow("accented markers in another letter case")
        << u"<É>x</É>—"_s << u"<é>"_s << u"</é>"_s << true << u"x"_s << false << u"—"_s;
    QTest::newRow("emoji markers")
        << u"a😀ø😀b"_s << u"😀"_s << u"😀"_s << true << u"ø"_s << false << u"b"_s;
}

void TestScan::takeBetween()
{
    QFETCH(QString, text);
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(bool, ok);
    QFETCH(QString, out);
    QFETCH(bool, outNull);
    QFETCH(QString, rest);

    QString value = previous;
    QCOMPARE(::takeBetween(value, text, first, second), ok);
    QCOMPARE(value, out);
    QCOMPARE(value.isNull(), outNull);
    QCOMPARE(text, rest);
}

void TestScan::takeUntil_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("marker");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("out");
    QTest::addColumn<QString>("rest");

    QTest::newRow("trimmed text before the marker")
        << u" Name </td>rest"_s << u"</td>"_s << true << u"Name"_s << u"rest"_s;
    QTest::newRow("first occurrence only") << u"a|b|c"_s << u"|"_s << true << u"a"_s << u"b|c"_s;
    QTest::newRow("marker in another letter case")
        << u"abc</TD>d"_s << u"</td>"_s << true << u"abc"_s << u"d"_s;
    QTest::newRow("x with the marker x fails") << u"x"_s << u"x"_s << false << previous << u"x"_s;
    QTest::newRow("marker at position 0 and later")
        << u"|a|"_s << u"|"_s << false << previous << u"|a|"_s;
    QTest::newRow("marker absent") << u"abc"_s << u"|"_s << false << previous << u"abc"_s;
    QTest::newRow("white space before the marker")
        << u"  |x"_s << u"|"_s << true << u""_s << u"x"_s;
    QTest::newRow("marker is the end of the text")
        << u"ab|"_s << u"|"_s << true << u"ab"_s << u""_s;
    QTest::newRow("empty marker") << u"abc"_s << u""_s << false << previous << u"abc"_s;
    QTest::newRow("empty text") << u""_s << u"x"_s << false << previous << u""_s;
    QTest::newRow("empty text and marker") << u""_s << u""_s << false << previous << u""_s;
    QTest::newRow("text shorter than the marker")
        << u"ab"_s << u"abc"_s << false << previous << u"ab"_s;
    QTest::newRow("non-ASCII around the marker")
        << u"Bjørn — 😀<br>é"_s << u"<BR>"_s << true << u"Bjørn — 😀"_s << u"é"_s;
    QTest::newRow("accented marker in another letter case")
        << u"ab—ÉC"_s << u"éc"_s << true << u"ab—"_s << u""_s;
    QTest::newRow("emoji marker") << u"a😀b"_s << u"😀"_s << true << u"a"_s << u"b"_s;
}

void TestScan::takeUntil()
{
    QFETCH(QString, text);
    QFETCH(QString, marker);
    QFETCH(bool, ok);
    QFETCH(QString, out);
    QFETCH(QString, rest);

    QString value = previous;
    QCOMPARE(::takeUntil(value, text, marker), ok);
    QCOMPARE(value, out);
    QVERIFY(!value.isNull());
    QCOMPARE(text, rest);
}

void TestScan::skipPast_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("marker");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("rest");

    QTest::newRow("consumed through the marker")
        << u"abc<tr>def"_s << u"<tr>"_s << true << u"def"_s;
    QTest::newRow("first occurrence only") << u"a|b|c"_s << u"|"_s << true << u"b|c"_s;
    QTest::newRow("marker in another letter case")
        << u"abc<TR>def"_s << u"<tr>"_s << true << u"def"_s;
    QTest::newRow("marker at position 0") << u"<tr>x"_s << u"<tr>"_s << true << u"x"_s;
    QTest::newRow("marker is the whole text") << u"<tr>"_s << u"<TR>"_s << true << u""_s;
    QTest::newRow("adjacent markers consume one") << u"||x"_s << u"|"_s << true << u"|x"_s;
    QTest::newRow("marker absent") << u"abc"_s << u"<tr>"_s << false << u"abc"_s;
    QTest::newRow("empty marker consumes nothing") << u"abc"_s << u""_s << true << u"abc"_s;
    QTest::newRow("empty text and marker") << u""_s << u""_s << true << u""_s;
    QTest::newRow("empty text") << u""_s << u"x"_s << false << u""_s;
    QTest::newRow("text shorter than the marker") << u"<t"_s << u"<tr>"_s << false << u"<t"_s;
    QTest::newRow("non-ASCII around the marker") << u"ø—<TD>😀é"_s << u"<td>"_s << true << u"😀é"_s;
    QTest::newRow("accented marker in another letter case") << u"xØy"_s << u"ø"_s << true << u"y"_s;
    QTest::newRow("emoji marker") << u"a😀b😀c"_s << u"😀"_s << true << u"b😀c"_s;
}

void TestScan::skipPast()
{
    QFETCH(QString, text);
    QFETCH(QString, marker);
    QFETCH(bool, ok);
    QFETCH(QString, rest);

    QCOMPARE(::skipPast(text, marker), ok);
    QCOMPARE(text, rest);
}

void TestScan::cutAt_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("marker");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("rest");

    QTest::newRow("capital marker keeps the tag's opening bracket")
        << u"abc</table>def"_s << u"</TABLE>"_s << true << u"abc<"_s;
    QTest::newRow("first occurrence only") << u"a<b<c"_s << u"<"_s << true << u"a<"_s;
    QTest::newRow("marker at position 0") << u"</table>x"_s << u"</table>"_s << true << u"<"_s;
    QTest::newRow("adjacent markers") << u"x||"_s << u"||"_s << true << u"x|"_s;
    QTest::newRow("marker absent") << u"abc"_s << u"</table>"_s << false << u"abc"_s;
    QTest::newRow("empty marker keeps the first character") << u"abc"_s << u""_s << true << u"a"_s;
    QTest::newRow("empty marker on an empty text") << u""_s << u""_s << false << u""_s;
    QTest::newRow("empty text") << u""_s << u"x"_s << false << u""_s;
    QTest::newRow("text shorter than the marker") << u"</t"_s << u"</table>"_s << false << u"</t"_s;
    QTest::newRow("non-ASCII around the marker")
        << u"Bjørn😀—</TD>é"_s << u"</td>"_s << true << u"Bjørn😀—<"_s;
    QTest::newRow("accented marker in another letter case")
        << u"abÉcd"_s << u"éc"_s << true << u"abÉ"_s;
    QTest::newRow("emoji marker keeps its first UTF-16 unit")
        << u"ab😀cd"_s << u"😀c"_s << true << (u"ab"_s + QChar(0xD83D));
}

void TestScan::cutAt()
{
    QFETCH(QString, text);
    QFETCH(QString, marker);
    QFETCH(bool, ok);
    QFETCH(QString, rest);

    QCOMPARE(::cutAt(text, marker), ok);
    QCOMPARE(text, rest);
}

void TestScan::peekBetween_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("anchor");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("out");

    QTest::newRow("value behind the anchor")
        << u"<td class=\"rechts\" title=\"Value\">€1.50m</td>"_s << u"title"_s << u">"_s << u"<"_s
        << true << u"€1.50m"_s;
    QTest::newRow("nothing before the anchor is read")
        << u"x>before<anchor>after<"_s << u"anchor"_s << u">"_s << u"<"_s << true << u"after"_s;
    QTest::newRow("anchor at position 0")
        << u"title>v<"_s << u"title"_s << u">"_s << u"<"_s << true << u"v"_s;
    QTest::newRow("markers in another letter case")
        << u"<TD TITLE=x><B> 7 </B>"_s << u"title"_s << u"<b>"_s << u"</b>"_s << true << u"7"_s;
    QTest::newRow("trimmed") << u"title>  12\t<"_s << u"title"_s << u">"_s << u"<"_s << true
                             << u"12"_s;
    QTest::newRow("small entity removed, capital entity kept")
        << u"x title>&nbsp;12&NBSP;&nbsp;</td>"_s << u"title"_s << u">"_s << u"<"_s << true
        << u"12&NBSP;"_s;
    QTest::newRow("entity inside the value")
        << u"title>1&nbsp;000<"_s << u"title"_s << u">"_s << u"<"_s << true << u"1000"_s;
    QTest::newRow("white space only is a value")
        << u"anchor>   <"_s << u"anchor"_s << u">"_s << u"<"_s << true << u""_s;
    QTest::newRow("entity only is a value")
        << u"anchor>&nbsp;<"_s << u"anchor"_s << u">"_s << u"<"_s << true << u""_s;
    QTest::newRow("anchor absent")
        << u"<td>1</td>"_s << u"title"_s << u">"_s << u"<"_s << false << previous;
    QTest::newRow("second absent")
        << u"title>abc"_s << u"title"_s << u">"_s << u"<"_s << false << previous;
    QTest::newRow("adjacent first and second")
        << u"anchor><"_s << u"anchor"_s << u">"_s << u"<"_s << false << previous;
    QTest::newRow("first absent, second behind the start position")
        << u"ab<c anchor rest"_s << u"anchor"_s << u"[["_s << u"<"_s << true << u"b"_s;
    QTest::newRow("first absent, second at the start position")
        << u"a<b anchor"_s << u"anchor"_s << u"[["_s << u"<"_s << false << previous;
    QTest::newRow("first absent, second before the start position")
        << u"<ab anchor"_s << u"anchor"_s << u"[["_s << u"<"_s << false << previous;
    QTest::newRow("first of one character absent reads from the top")
        << u"12<td anchor"_s << u"anchor"_s << u">"_s << u"<"_s << true << u"12"_s;
    QTest::newRow("empty anchor") << u"a>b<c"_s << u""_s << u">"_s << u"<"_s << true << u"b"_s;
    QTest::newRow("empty first starts behind the anchor")
        << u"anchor xy<"_s << u"anchor"_s << u""_s << u"<"_s << true << u"xy"_s;
    QTest::newRow("empty second") << u"anchor>abc"_s << u"anchor"_s << u">"_s << u""_s << false
                                  << previous;
    QTest::newRow("empty text") << u""_s << u"title"_s << u">"_s << u"<"_s << false << previous;
    QTest::newRow("empty text and markers")
        << u""_s << u""_s << u""_s << u""_s << false << previous;
    QTest::newRow("text shorter than the anchor")
        << u"tit"_s << u"title"_s << u">"_s << u"<"_s << false << previous;
    QTest::newRow("text shorter than a first that is absent")
        << u"an<"_s << u"an"_s << u"<span class=x>"_s << u"<"_s << false << previous;
    QTest::newRow("non-ASCII around the markers")
        << u"é<td title=\"ø\">Bjørn — 😀</td>"_s << u"title"_s << u">"_s << u"<"_s << true
        << u"Bjørn — 😀"_s;
    QTest::newRow("accented markers, second right behind the first")
        << u"—ÆBLE[Ø]x"_s << u"æble"_s << u"[ø]"_s << u"X"_s << false << previous;
    QTest::newRow("accented markers around a value")
        << u"—ÆBLE[Ø]x—É"_s << u"æble"_s << u"[ø]"_s << u"é"_s << true << u"x—"_s;
    QTest::newRow("emoji markers") << u"😀a😀b😀"_s << u"😀"_s << u"a😀"_s << u"😀"_s << true << u"b"_s;
}

void TestScan::peekBetween()
{
    QFETCH(QString, text);
    QFETCH(QString, anchor);
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(bool, ok);
    QFETCH(QString, out);

    const QString before = text;
    QString value = previous;
    QCOMPARE(::peekBetween(value, text, anchor, first, second), ok);
    QCOMPARE(value, out);
    QVERIFY(!value.isNull());
    QCOMPARE(text, before);
}

void TestScan::absentFirstFailsTakeButPeekReadsFromTheTop()
{
    const QString page = u"Page head<td data>12</td>"_s;

    QString text = page;
    QString taken = previous;
    QVERIFY(!::takeBetween(taken, text, u"title="_s, u"<"_s));
    QVERIFY(taken.isNull());
    QCOMPARE(text, page);

    // "title=" is six characters long: the look-ahead starts at position 5.
    QString peeked = previous;
    QVERIFY(::peekBetween(peeked, text, u"data"_s, u"title="_s, u"<"_s));
    QCOMPARE(peeked, u"head"_s);
    QCOMPARE(text, page);
}

void TestScan::takeInt_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<qint32>("value");
    QTest::addColumn<QString>("rest");

    QTest::newRow("number") << u"<b>42</b>r"_s << u"<b>"_s << u"</b>"_s << true << 42 << u"r"_s;
    QTest::newRow("white space around the number")
        << u"<b> 42\n</b>"_s << u"<b>"_s << u"</b>"_s << true << 42 << u""_s;
    QTest::newRow("negative") << u"<b>-7</b>"_s << u"<b>"_s << u"</b>"_s << true << -7 << u""_s;
    QTest::newRow("largest value")
        << u"<b>2147483647</b>"_s << u"<b>"_s << u"</b>"_s << true << 2147483647 << u""_s;
    QTest::newRow("smallest value") << u"<b>-2147483648</b>"_s << u"<b>"_s << u"</b>"_s << true
                                    << qint32(-2147483647 - 1) << u""_s;
    QTest::newRow("beyond the range")
        << u"<b>2147483648</b>"_s << u"<b>"_s << u"</b>"_s << true << 0 << u""_s;
    QTest::newRow("thousands comma")
        << u"<b>1,234</b>x"_s << u"<b>"_s << u"</b>"_s << true << 0 << u"x"_s;
    QTest::newRow("markers in another letter case")
        << u"<B> 5 </B>z"_s << u"<b>"_s << u"</b>"_s << true << 5 << u"z"_s;
    QTest::newRow("first absent") << u"42</b>"_s << u"<b>"_s << u"</b>"_s << false << 0
                                  << u"42</b>"_s;
    QTest::newRow("second absent")
        << u"<b>42"_s << u"<b>"_s << u"</b>"_s << false << 0 << u"<b>42"_s;
    QTest::newRow("adjacent markers")
        << u"<b></b>7"_s << u"<b>"_s << u"</b>"_s << false << 0 << u"<b></b>7"_s;
    QTest::newRow("empty first") << u"12|x"_s << u""_s << u"|"_s << true << 12 << u"x"_s;
    QTest::newRow("empty second") << u"<b>12"_s << u"<b>"_s << u""_s << false << 0 << u"<b>12"_s;
    QTest::newRow("empty text") << u""_s << u"<b>"_s << u"</b>"_s << false << 0 << u""_s;
    QTest::newRow("text shorter than first")
        << u"<b"_s << u"<b>"_s << u"</b>"_s << false << 0 << u"<b"_s;
    QTest::newRow("non-ASCII around the markers")
        << u"ø<td>12</td>😀"_s << u"<td>"_s << u"</td>"_s << true << 12 << u"😀"_s;
    QTest::newRow("non-ASCII value")
        << u"<td>é—</td>"_s << u"<td>"_s << u"</td>"_s << true << 0 << u""_s;
}

void TestScan::takeInt()
{
    QFETCH(QString, text);
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(bool, ok);
    QFETCH(qint32, value);
    QFETCH(QString, rest);

    qint32 out = 99;
    QCOMPARE(::takeInt(out, text, first, second), ok);
    QCOMPARE(out, value);
    QCOMPARE(text, rest);
}

void TestScan::takeShort_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<qint16>("value");
    QTest::addColumn<QString>("rest");

    QTest::newRow("number") << u"<b>42</b>r"_s << u"<b>"_s << u"</b>"_s << true << qint16(42)
                            << u"r"_s;
    QTest::newRow("40000 does not fit")
        << u"<b>40000</b>"_s << u"<b>"_s << u"</b>"_s << true << qint16(0) << u""_s;
    QTest::newRow("largest value")
        << u"<b>32767</b>"_s << u"<b>"_s << u"</b>"_s << true << qint16(32767) << u""_s;
    QTest::newRow("one above the largest")
        << u"<b>32768</b>"_s << u"<b>"_s << u"</b>"_s << true << qint16(0) << u""_s;
    QTest::newRow("smallest value")
        << u"<b>-32768</b>"_s << u"<b>"_s << u"</b>"_s << true << qint16(-32768) << u""_s;
    QTest::newRow("one below the smallest")
        << u"<b>-32769</b>"_s << u"<b>"_s << u"</b>"_s << true << qint16(0) << u""_s;
    QTest::newRow("thousands comma")
        << u"<b>1,234</b>"_s << u"<b>"_s << u"</b>"_s << true << qint16(0) << u""_s;
    QTest::newRow("markers in another letter case")
        << u"<TD> 5 </td>z"_s << u"<td>"_s << u"</TD>"_s << true << qint16(5) << u"z"_s;
    QTest::newRow("first absent") << u"42</b>"_s << u"<b>"_s << u"</b>"_s << false << qint16(0)
                                  << u"42</b>"_s;
    QTest::newRow("adjacent markers")
        << u"<b></b>7"_s << u"<b>"_s << u"</b>"_s << false << qint16(0) << u"<b></b>7"_s;
    QTest::newRow("empty first") << u"12|x"_s << u""_s << u"|"_s << true << qint16(12) << u"x"_s;
    QTest::newRow("empty second") << u"<b>12"_s << u"<b>"_s << u""_s << false << qint16(0)
                                  << u"<b>12"_s;
    QTest::newRow("empty text") << u""_s << u"<b>"_s << u"</b>"_s << false << qint16(0) << u""_s;
    QTest::newRow("text shorter than second")
        << u"<b>1</"_s << u"<b>"_s << u"</b>"_s << false << qint16(0) << u"<b>1</"_s;
    QTest::newRow("non-ASCII around the markers")
        << u"—<td>12</td>é"_s << u"<td>"_s << u"</td>"_s << true << qint16(12) << u"é"_s;
    QTest::newRow("emoji value") << u"<td>😀</td>"_s << u"<td>"_s << u"</td>"_s << true << qint16(0)
                                 << u""_s;
}

void TestScan::takeShort()
{
    QFETCH(QString, text);
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(bool, ok);
    QFETCH(qint16, value);
    QFETCH(QString, rest);

    qint16 out = 99;
    QCOMPARE(::takeShort(out, text, first, second), ok);
    QCOMPARE(out, value);
    QCOMPARE(text, rest);
}

void TestScan::parseDollars_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint32>("value");
    QTest::addColumn<QString>("rest");

    QTest::newRow("salary per year") << u"$1,250,000 Per Year"_s << 1250000 << u"1250000 "_s;
    QTest::newRow("capital letters") << u"$1,250,000 PER YEAR"_s << 1250000 << u"1250000 "_s;
    QTest::newRow("small p") << u"$500 per year"_s << 500 << u"500 "_s;
    QTest::newRow("text before the dollar sign") << u"Pay: $2,000 Per Year"_s << 2000 << u"2000 "_s;
    QTest::newRow("no dollar sign") << u"1,000 Per Year"_s << 1000 << u"1000 "_s;
    QTest::newRow("no dollar sign, P inside a word") << u"Cap hit 100 Per Year"_s << 0 << u"Ca"_s;
    QTest::newRow("no P empties the text") << u"$1,000"_s << 0 << u""_s;
    QTest::newRow("P right behind the sign") << u"$Per"_s << 0 << u""_s;
    QTest::newRow("beyond the range") << u"$3,000,000,000 Per Year"_s << 0 << u"3000000000 "_s;
    QTest::newRow("empty text") << u""_s << 0 << u""_s;
    QTest::newRow("non-ASCII around the number") << u"≈ $2,000 — Per Year 😀"_s << 0 << u"2000 — "_s;
    QTest::newRow("non-ASCII before the sign") << u"ø😀$75,000 Per"_s << 75000 << u"75000 "_s;
}

void TestScan::parseDollars()
{
    QFETCH(QString, text);
    QFETCH(qint32, value);
    QFETCH(QString, rest);

    QCOMPARE(::parseDollars(text), value);
    QCOMPARE(text, rest);
}

void TestScan::seasonStartYear_data()
{
    QTest::addColumn<QString>("season");
    QTest::addColumn<qint32>("year");

    QTest::newRow("19/20") << u"19/20"_s << 2019;
    QTest::newRow("99/00 stays in this century") << u"99/00"_s << 2099;
    QTest::newRow("no slash") << u"2019"_s << 0;
    QTest::newRow("empty") << u""_s << 0;
    QTest::newRow("first half not a number") << u"ab/20"_s << 2000;
    QTest::newRow("slash at position 0") << u"/20"_s << 2000;
    QTest::newRow("trailing slash") << u"19/"_s << 2019;
    QTest::newRow("four-digit years") << u"2019/2020"_s << 4019;
    QTest::newRow("beyond 16 bits") << u"40000/1"_s << 2000;
    QTest::newRow("negative") << u"-5/1"_s << 1995;
    QTest::newRow("non-ASCII first half") << u"é/20"_s << 2000;
    QTest::newRow("non-ASCII second half") << u"19/—😀"_s << 2019;
}

void TestScan::seasonStartYear()
{
    QFETCH(QString, season);
    QFETCH(qint32, year);

    QCOMPARE(::seasonStartYear(season), year);
}

void TestScan::seasonEndYear_data()
{
    QTest::addColumn<QString>("season");
    QTest::addColumn<qint32>("year");

    QTest::newRow("19/20") << u"19/20"_s << 2020;
    QTest::newRow("99/00") << u"99/00"_s << 2000;
    QTest::newRow("no slash") << u"2019"_s << 0;
    QTest::newRow("empty") << u""_s << 0;
    QTest::newRow("trailing slash") << u"19/"_s << 2000;
    QTest::newRow("slash at position 0") << u"/21"_s << 2021;
    QTest::newRow("second half not a number") << u"19/ab"_s << 2000;
    QTest::newRow("second slash") << u"19/20/21"_s << 2000;
    QTest::newRow("four-digit years") << u"2019/2020"_s << 4020;
    QTest::newRow("beyond 16 bits") << u"1/40000"_s << 2000;
    QTest::newRow("non-ASCII second half") << u"19/—"_s << 2000;
    QTest::newRow("non-ASCII first half") << u"😀é/20"_s << 2020;
}

void TestScan::seasonEndYear()
{
    QFETCH(QString, season);
    QFETCH(qint32, year);

    QCOMPARE(::seasonEndYear(season), year);
}

void TestScan::splitAtSpace_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<bool>("secondNull");

    QTest::newRow("two words") << u"Lionel Messi"_s << u"Lionel"_s << u"Messi"_s << false;
    QTest::newRow("three words") << u"Lionel Andrés Messi"_s << u"Lionel"_s << u"Andrés Messi"_s
                                 << false;
    QTest::newRow("leading blank") << u" Messi"_s << u" Messi"_s << QString() << true;
    QTest::newRow("one word") << u"Messi"_s << u"Messi"_s << QString() << true;
    QTest::newRow("empty name") << u""_s << u""_s << QString() << true;
    QTest::newRow("two blanks in a row") << u"A  B"_s << u"A"_s << u" B"_s << false;
    QTest::newRow("trailing blank") << u"Messi "_s << u"Messi"_s << u""_s << false;
    QTest::newRow("tab is not a blank") << u"A\tB"_s << u"A\tB"_s << QString() << true;
    QTest::newRow("no-break space is not a blank")
        << u"A\u00a0B"_s << u"A\u00a0B"_s << QString() << true;
    QTest::newRow("non-ASCII words") << u"Bjørn Ødegård"_s << u"Bjørn"_s << u"Ødegård"_s << false;
    QTest::newRow("emoji and dash") << u"😀 — é"_s << u"😀"_s << u"— é"_s << false;
}

void TestScan::splitAtSpace()
{
    QFETCH(QString, name);
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(bool, secondNull);

    QString a = previous;
    QString b = previous;
    ::splitAtSpace(name, a, b);
    QCOMPARE(a, first);
    QCOMPARE(b, second);
    QCOMPARE(b.isNull(), secondNull);
}

QM_TEST_GUILESS_MAIN(TestScan)
#include "tst_scan.moc"
