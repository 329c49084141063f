#pragma once

#include <QNetworkProxy>
#include <QWidget>

class QCheckBox;
class QLineEdit;
class QPushButton;

// The proxy row: keeps a SOCKS5 proxy's address and credentials in the settings,
// and its "Test" applies them to all traffic and asks which address the world sees.
class Proxy : public QWidget
{
    Q_OBJECT

public:
    explicit Proxy(QWidget *parent = nullptr);
    ~Proxy() override;

    QCheckBox *enabledBox = nullptr;
    QLineEdit *hostEdit = nullptr;
    QLineEdit *portEdit = nullptr;
    QLineEdit *userEdit = nullptr;
    QLineEdit *passwordEdit = nullptr;
    QPushButton *testButton = nullptr;
    const QString ipEchoUrl;
    QNetworkProxy networkProxy;

signals:
    void done();
    void output(QString text);

private slots:
    void enable(bool enabled);
    void test();
};
