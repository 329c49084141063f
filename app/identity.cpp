#include "app/identity.h"

#include "core/constants.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

void setApplicationIdentity()
{
    QCoreApplication::setApplicationName(u"Quillmark"_s);
    QCoreApplication::setApplicationVersion(u"2.2.32"_s + u" QT6 Velmora Edition"_s);
    QCoreApplication::setOrganizationName(u"TFM"_s);
    QCoreApplication::setOrganizationDomain(ORGANISATION_DOMAIN);
}
