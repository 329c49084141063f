#include "ep/epretirednumber.h"

#include "core/scan.h"
#include "core/values.h"
#include "ep/teamrows.h"

using namespace Qt::StringLiterals;

namespace {

template<typename Convert>
void writeRow(const EP_RetiredNumber &row, QTextStream &stream, const QChar &s, Convert convert)
{
    stream << convert(row.team) << s << row.number << s << convert(row.firstName) << s
           << convert(row.secondName) << '\n';
}

} // namespace

void EP_RetiredNumber::writeAscii(QTextStream &stream, const QChar &separator)
{
    writeRow(*this, stream, separator, toAsciiName);
}

void EP_RetiredNumber::writeUtf(QTextStream &stream, const QChar &separator)
{
    writeRow(*this, stream, separator, asItStands);
}

void EP_RetiredNumber::parsePage(QString &item)
{
    QString value;
    takeBetween(value, item, u"#"_s, u"<"_s);
    number = parseMoney(value);
    // The name ends at the first bracket behind the link's class.
    takeBetween(value, item, u"class=\"txt-blue\">"_s, u"("_s);
    splitAtSpace(value, firstName, secondName);
}

bool scanRetiredNumbers(QList<EP_RetiredNumber> &rows, QString &text, const QString &teamName)
{
    return scanTeamRows(rows, text, teamName, u"Retired Numbers"_s, u"</ul>"_s, u"<li>"_s,
                        u"</li>"_s);
}

QString retiredNumberSample(const QList<EP_RetiredNumber> &rows, const int &index)
{
    return teamRowSample(rows, index, u"Retired number row #%1 does not exist"_s,
                         [](const EP_RetiredNumber &row) {
                             return u"%1 - %2 %3 (%4)"_s.arg(row.number)
                                 .arg(row.firstName)
                                 .arg(row.secondName)
                                 .arg(row.team);
                         });
}
