#include "proxy/proxy.h"

#include "core/constants.h"
#include "core/fetch.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QSettings>

using namespace Qt::StringLiterals;

Proxy::Proxy(QWidget *parent)
    : QWidget(parent)
    , ipEchoUrl(IP_ECHO_URL)
{
    hostEdit = new QLineEdit(this);
    auto *hostLabel = new QLabel(u"IP Address:"_s, this);
    // The dot is not escaped, so any character separates the four parts.
    hostEdit->setValidator(new QRegularExpressionValidator(
        QRegularExpression(u"^((25[0-5]|2[0-4][0-9]|[01]?[0-9][0-9]?).){3}"
                           u"(25[0-5]|2[0-4][0-9]|[01]?[0-9][0-9]?)$"_s),
        this));

    portEdit = new QLineEdit(this);
    auto *portLabel = new QLabel(u"Port:"_s, this);
    // Ten digits exactly: a usual port stays in the intermediate state, which
    // the field accepts while typing, and an eleventh digit is refused.
    portEdit->setValidator(
        new QRegularExpressionValidator(QRegularExpression(u"([0-9]){10}"_s), this));

    userEdit = new QLineEdit(this);
    auto *userLabel = new QLabel(u"Username (optional):"_s, this);
    passwordEdit = new QLineEdit(this);
    auto *passwordLabel = new QLabel(u"Password (optional):"_s, this);

    testButton = new QPushButton(u"Test"_s, this);
    connect(testButton, &QPushButton::clicked, this, &Proxy::test);

    // The box starts unchecked: it is checked first so that unchecking it fires
    // toggled and disables the fields.
    enabledBox = new QCheckBox(this);
    enabledBox->setChecked(true);
    connect(enabledBox, &QCheckBox::toggled, this, &Proxy::enable);
    enabledBox->setChecked(false);

    auto *layout = new QHBoxLayout(this);
    layout->addWidget(enabledBox);
    layout->addWidget(hostLabel);
    layout->addWidget(hostEdit);
    layout->addWidget(portLabel);
    layout->addWidget(portEdit);
    layout->addWidget(userLabel);
    layout->addWidget(userEdit);
    layout->addWidget(passwordLabel);
    layout->addWidget(passwordEdit);
    layout->addWidget(testButton);

    // A screen reader names each field after the label beside it; the on/off
    // box has no text of its own and gets a name of its own.
    hostLabel->setBuddy(hostEdit);
    portLabel->setBuddy(portEdit);
    userLabel->setBuddy(userEdit);
    passwordLabel->setBuddy(passwordEdit);
    enabledBox->setAccessibleName(u"Use a proxy"_s);
    // The box was made last but stands first: Tab follows the row as it reads.
    setTabOrder(enabledBox, hostEdit);
    setTabOrder(hostEdit, portEdit);
    setTabOrder(portEdit, userEdit);
    setTabOrder(userEdit, passwordEdit);
    setTabOrder(passwordEdit, testButton);

    // A stored proxy is only shown here; it takes effect with the next test.
    QSettings settings;
    enabledBox->setChecked(settings.value(u"proxy_enabled"_s, false).toBool());
    hostEdit->setText(settings.value(u"proxy_host_name"_s, u"0.0.0.0"_s).toString());
    portEdit->setText(settings.value(u"proxy_port"_s, 80).toString());
    userEdit->setText(settings.value(u"proxy_username"_s, QString()).toString());
    passwordEdit->setText(settings.value(u"proxy_password"_s, QString()).toString());
}

Proxy::~Proxy()
{
    QSettings settings;
    settings.setValue(u"proxy_enabled"_s, enabledBox->isChecked());
    settings.setValue(u"proxy_host_name"_s, hostEdit->text());
    settings.setValue(u"proxy_port"_s, portEdit->text());
    settings.setValue(u"proxy_username"_s, userEdit->text());
    settings.setValue(u"proxy_password"_s, passwordEdit->text());
}

void Proxy::enable(bool enabled)
{
    // The test button stays usable: a test with the box unchecked takes the
    // proxy off.
    hostEdit->setEnabled(enabled);
    portEdit->setEnabled(enabled);
    userEdit->setEnabled(enabled);
    passwordEdit->setEnabled(enabled);
}

void Proxy::test()
{
    if (enabledBox->isChecked()) {
        networkProxy.setType(QNetworkProxy::Socks5Proxy);
        networkProxy.setHostName(hostEdit->text());
        // 0 when the text is no 32-bit number; anything wider than 16 bits is
        // cut, so 70000 goes out as 4464.
        networkProxy.setPort(quint16(quint32(portEdit->text().toInt())));
        // Half a set of credentials changes nothing: those of an earlier test
        // stay in force.
        if (!userEdit->text().isEmpty() && !passwordEdit->text().isEmpty()) {
            networkProxy.setUser(userEdit->text());
            networkProxy.setPassword(passwordEdit->text());
        }
        QNetworkProxy::setApplicationProxy(networkProxy);
    } else {
        QNetworkProxy::setApplicationProxy(QNetworkProxy());
    }

    emit output(u"Checking IP address using %1. Please wait..."_s.arg(ipEchoUrl));

    QString text;
    fetchPage(text, ipEchoUrl, false, nullptr, 0, 1);

    // Only the emptiness of the answer counts: an error page that has a body is
    // printed as the address.
    if (text.isEmpty()) {
        emit output(u"Error! Unable to check IP address. Either the IP address/proxy is invalid "
                    u"or %1 is offline."_s.arg(ipEchoUrl));
    } else {
        // The second arg finds no marker left and changes nothing unless the
        // answer itself holds one.
        emit output(u"Your IP address: %1"_s.arg(text).arg(text.size()));
    }

    emit done();
}
