#include "app/identity.h"

#include "core/constants.h"

#include <QGuiApplication>

using namespace Qt::StringLiterals;

void setApplicationIdentity()
{
    QCoreApplication::setApplicationName(u"Quillmark"_s);
    QCoreApplication::setApplicationVersion(u"" QUILLMARK_VERSION " QT6 Velmora Edition"_s);
    QCoreApplication::setOrganizationName(u"TFM"_s);
    QCoreApplication::setOrganizationDomain(ORGANISATION_DOMAIN);
    // Lets the desktop match the window to the installed menu entry and its icon.
    QGuiApplication::setDesktopFileName(QStringLiteral(QUILLMARK_APP_ID));
}

QIcon applicationIcon()
{
    QIcon icon;
    for (const int size : {48, 128, 256})
        icon.addFile(u":/icons/quillmark-%1.png"_s.arg(size), QSize(size, size));
    return icon;
}
