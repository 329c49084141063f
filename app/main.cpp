#include "app/identity.h"
#include "app/mainwindow.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    setApplicationIdentity();
    QApplication app(argc, argv);
    MainWindow window(nullptr);
    window.show();
    return app.exec();
}
