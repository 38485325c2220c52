// The yardstick of a start: a Qt window with nothing in it.
#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QMainWindow window;
  window.setWindowTitle(QStringLiteral("Empty window"));
  window.resize(1000, 700);
  window.show();
  return QApplication::exec();
}
