// The least that a window of the toolkit with one text costs: the yardstick of the desktop
// measurements.
#include <QApplication>
#include <QLabel>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QLabel window(QStringLiteral("Tintwell"));
    window.resize(448, 680);
    window.show();
    return QApplication::exec();
}
