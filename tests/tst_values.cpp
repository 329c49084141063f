#include "core/values.h"
#include "tests/support/testmain.h"

#include <QLocale>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

// Names made safe for the Ascii export and amounts read from page cells.
class TestValues : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void toAsciiName_data();
    void toAsciiName();
    void toAsciiNameLeavesTheArgument();
    void parseMoney_data();
    void parseMoney();
    void carryYear_data();
    void carryYear();
};

// What a float product outside the 32-bit range gives.
static constexpr qint32 outOfRange = std::numeric_limits<qint32>::min();

void TestValues::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestValues::toAsciiName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("ascii");

    QTest::newRow("plain name") << u"John Doe"_s << u"John Doe"_s;
    QTest::newRow("commas and semicolons dropped") << u"Smith, Jr;"_s << u"Smith Jr"_s;
    QTest::newRow("several of each") << u"O'Neil; Jr, III,;"_s << u"O'Neil Jr III"_s;
    QTest::newRow("empty") << u""_s << u""_s;
    QTest::newRow("lone accented letter") << u"Renée"_s << u"Ren\uFFFDe"_s;
    QTest::newRow("lone accented letter at the end") << u"José"_s << u"Jos\uFFFD"_s;
    QTest::newRow("two lone accented letters") << u"éé"_s << u"\uFFFD\uFFFD"_s;
    QTest::newRow("accent next to a comma") << u"Müller, Thomas"_s << u"M\uFFFDller Thomas"_s;
    QTest::newRow("above Latin-1") << u"Łukasz"_s << u"?ukasz"_s;
    QTest::newRow("dash above Latin-1") << u"A—B"_s << u"A?B"_s;
    QTest::newRow("emoji is two UTF-16 units") << u"a😀b"_s << u"a??b"_s;
    QTest::newRow("UTF-8 halves of e acute") << u"Ren\u00C3\u00A9e"_s << u"Renée"_s;
    QTest::newRow("UTF-8 halves of a dash") << u"A\u00E2\u0080\u0094B"_s << u"A—B"_s;
    QTest::newRow("UTF-8 halves of o-slash") << u"Bj\u00C3\u00B8rn"_s << u"Bjorn"_s;
    QTest::newRow("single o-slash") << u"Bjørn"_s << u"Bj\uFFFDrn"_s;
    QTest::newRow("UTF-8 halves of capital O-slash") << u"\u00C3\u0098degaard"_s << u"Ødegaard"_s;
    QTest::newRow("single capital O-slash") << u"Ødegaard"_s << u"\uFFFDdegaard"_s;
    QTest::newRow("first half alone") << u"\u00C3"_s << u"\uFFFD"_s;
    QTest::newRow("halves and a comma") << u"Bj\u00C3\u00B8rn, \u00C3\u0098."_s << u"Bjorn Ø."_s;
}

void TestValues::toAsciiName()
{
    QFETCH(QString, name);
    QFETCH(QString, ascii);

    QCOMPARE(::toAsciiName(name), ascii);
}

void TestValues::toAsciiNameLeavesTheArgument()
{
    const QString name = u"Smith, Jr; Bjørn"_s;
    const QString copy = name;
    QCOMPARE(::toAsciiName(name), u"Smith Jr Bj\uFFFDrn"_s);
    QCOMPARE(name, copy);
}

void TestValues::parseMoney_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint32>("value");
    QTest::addColumn<QString>("rest");

    // The worked examples.
    QTest::newRow("millions with m") << u"€1.50m"_s << 1500000 << u"€1.50m"_s;
    QTest::newRow("thousands with k") << u"€500k"_s << 500000 << u"€500k"_s;
    QTest::newRow("mil. with a decimal comma") << u"1,50 mil. €"_s << 1500000 << u"1.50 mil. €"_s;
    QTest::newRow("Th. with a blank") << u"500 Th. €"_s << 500000 << u"500 Th. €"_s;
    QTest::newRow("capital K behind the sign") << u"€500K"_s << 0 << u"€500K"_s;
    QTest::newRow("single dash") << u"-"_s << 0 << u"-"_s;
    QTest::newRow("plain count") << u"17"_s << 17 << u"17"_s;
    QTest::newRow("negative count loses its dash") << u"-17"_s << 17 << u"-17"_s;
    QTest::newRow("m without a currency sign") << u"1.5m"_s << 500000 << u"1.5m"_s;

    QTest::newRow("empty") << u""_s << 0 << u""_s;

    // Title cells.
    QTest::newRow("title cell prefers the text behind the next bracket")
        << u"<a title=\"x\">€1.00m</a> Last update €3.00m"_s << 1000000 << u"€1.00m"_s;
    QTest::newRow("title cell with entities and a comma")
        << u"<span title=\"y\">&nbsp;€2,5m&nbsp;</span>"_s << 2500000 << u"€2.5m"_s;
    QTest::newRow("title attribute in capitals") << u"<td TITLE=\"v\">12</td>"_s << 12 << u"12"_s;
    QTest::newRow("title without a bracket behind reads from the top")
        << u"12<x title"_s << 12 << u"12"_s;
    QTest::newRow("title with nothing to read") << u"<b title"_s << 0 << u"<b title"_s;

    // The "mil" branch.
    QTest::newRow("capital Mil.") << u"1,50 Mil. €"_s << 1500000 << u"1.50 Mil. €"_s;
    QTest::newRow("MIL in capitals") << u"2 MIL"_s << 2000000 << u"2 MIL"_s;
    QTest::newRow("mil without a number") << u"Mil."_s << 0 << u"Mil."_s;

    // The "m" branch.
    QTest::newRow("word with an m") << u"Remark"_s << 0 << u"Remark"_s;
    QTest::newRow("capital M in a word") << u"Monday 5"_s << 0 << u"Monday 5"_s;
    QTest::newRow("Mio. is not mil") << u"1,5 Mio. €"_s << 0 << u"1.5 Mio. €"_s;
    QTest::newRow("blank before the m") << u"€12,5 m"_s << 12500000 << u"€12.5 m"_s;
    QTest::newRow("other currency sign") << u"£1,20m"_s << 1200000 << u"£1.20m"_s;
    QTest::newRow("capital M") << u"$3M"_s << 3000000 << u"$3M"_s;
    QTest::newRow("m alone") << u"m"_s << 0 << u"m"_s;
    QTest::newRow("negative millions") << u"€-1.5m"_s << -1500000 << u"€-1.5m"_s;
    QTest::newRow("single-precision product") << u"€0,7m"_s << 700000 << u"€0.7m"_s;
    QTest::newRow("another single-precision product") << u"€0.29m"_s << 290000 << u"€0.29m"_s;
    QTest::newRow("product truncated") << u"€1.2345678m"_s << 1234567 << u"€1.2345678m"_s;
    QTest::newRow("two thousand millions fit") << u"€2000m"_s << 2000000000 << u"€2000m"_s;
    QTest::newRow("product beyond the range") << u"€2148m"_s << outOfRange << u"€2148m"_s;
    QTest::newRow("product below the range") << u"€-2148m"_s << outOfRange << u"€-2148m"_s;
    QTest::newRow("infinity") << u"€infm"_s << outOfRange << u"€infm"_s;
    QTest::newRow("not a number") << u"€nanm"_s << outOfRange << u"€nanm"_s;
    QTest::newRow("emoji sign is two units wide") << u"😀1.5m"_s << 0 << u"😀1.5m"_s;

    // The "th. " and capital "K" branch.
    QTest::newRow("TH. in capitals") << u"75 TH. €"_s << 75000 << u"75 TH. €"_s;
    QTest::newRow("capital K behind a blank") << u"500 K"_s << 500000 << u"500 K"_s;
    QTest::newRow("no fraction with Th. ") << u"1,5 Th. €"_s << 0 << u"1.5 Th. €"_s;
    QTest::newRow("thousands wrap around 32 bits")
        << u"3000000 K"_s << -1294967296 << u"3000000 K"_s;
    QTest::newRow("Th. and blank without a number") << u"Th. €"_s << 0 << u"Th. €"_s;

    // The "th." branch.
    QTest::newRow("Th. at the end") << u"€500 Th."_s << 500000 << u"€500 Th."_s;
    QTest::newRow("Th. with a fraction") << u"€1,5Th."_s << 1500 << u"€1.5Th."_s;
    QTest::newRow("Th. product truncated") << u"€1.2345Th."_s << 1234 << u"€1.2345Th."_s;
    QTest::newRow("Th. product truncated toward zero")
        << u"€-0.0015Th."_s << -1 << u"€-0.0015Th."_s;
    QTest::newRow("Th. alone") << u"Th."_s << 0 << u"Th."_s;

    // The small "k" branch.
    QTest::newRow("no fraction with k") << u"€1.5k"_s << 0 << u"€1.5k"_s;
    QTest::newRow("k alone") << u"k"_s << 0 << u"k"_s;
    QTest::newRow("k thousands wrap around 32 bits")
        << u"€2147484k"_s << -2147483296 << u"€2147484k"_s;
    QTest::newRow("k number beyond the range") << u"€3000000000k"_s << 0 << u"€3000000000k"_s;
    QTest::newRow("k behind a non-ASCII sign") << u"¥250k"_s << 250000 << u"¥250k"_s;

    // Plain counts.
    QTest::newRow("blanks around a count") << u" 42 "_s << 42 << u" 42 "_s;
    QTest::newRow("dash inside a count") << u"12-3"_s << 123 << u"12-3"_s;
    QTest::newRow("two dashes") << u"--"_s << 0 << u"--"_s;
    QTest::newRow("em dash") << u"—"_s << 0 << u"—"_s;
    QTest::newRow("plus sign") << u"+5"_s << 5 << u"+5"_s;
    QTest::newRow("thousands comma becomes a point") << u"2,000"_s << 0 << u"2.000"_s;
    QTest::newRow("blank inside a count") << u"1 234"_s << 0 << u"1 234"_s;
    QTest::newRow("count beyond the range") << u"2147483648"_s << 0 << u"2147483648"_s;
    QTest::newRow("letters") << u"abc"_s << 0 << u"abc"_s;
}

void TestValues::parseMoney()
{
    QFETCH(QString, text);
    QFETCH(qint32, value);
    QFETCH(QString, rest);

    QCOMPARE(::parseMoney(text), value);
    QCOMPARE(text, rest);
}

void TestValues::carryYear_data()
{
    QTest::addColumn<qint16>("candidate");
    QTest::addColumn<qint16>("last");
    QTest::addColumn<qint16>("year");
    QTest::addColumn<qint16>("lastAfter");

    QTest::newRow("four digits stand")
        << qint16(2023) << qint16(2019) << qint16(2023) << qint16(2023);
    QTest::newRow("the smallest year")
        << qint16(1000) << qint16(2019) << qint16(1000) << qint16(1000);
    QTest::newRow("three digits are no year")
        << qint16(999) << qint16(2019) << qint16(2019) << qint16(2019);
    QTest::newRow("nothing read") << qint16(0) << qint16(2019) << qint16(2019) << qint16(2019);
    QTest::newRow("negative") << qint16(-2023) << qint16(2019) << qint16(2019) << qint16(2019);
    QTest::newRow("no year before") << qint16(0) << qint16(0) << qint16(0) << qint16(0);
    QTest::newRow("an earlier year stands too")
        << qint16(1990) << qint16(2019) << qint16(1990) << qint16(1990);
}

void TestValues::carryYear()
{
    QFETCH(qint16, candidate);
    QFETCH(qint16, last);
    QFETCH(qint16, year);
    QFETCH(qint16, lastAfter);

    QCOMPARE(::carryYear(candidate, last), year);
    QCOMPARE(last, lastAfter);
}

QM_TEST_GUILESS_MAIN(TestValues)
#include "tst_values.moc"
