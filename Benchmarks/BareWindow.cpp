// The least that a window of the toolkit costs: the yardstick of the desktop measurements.
#include <QApplication>
#include <QWidget>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(448, 680);
    window.show();
    return QApplication::exec();
}
